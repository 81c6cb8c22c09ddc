#include "acquisition/StatusLamps.h"

#include "core/Colour.h"
#include "core/Texts.h"
#include "core/texts/FormF3Texts.h"
#include "core/window/PlainLabel.h"
#include "core/window/StatusLamp.h"

#include <QHBoxLayout>
#include <QLabel>

namespace korvanel {

namespace {

struct Lamp
{
    int colour; ///< low byte red
    TextRef description;
    LampState litBy;
};

constexpr std::array<Lamp, 3> kLamps{{
    {255, &texts::colourRed, LampState::NotConnected},
    {65535, &texts::colourYellow, LampState::AtWork},
    {65280, &texts::colourGreen, LampState::Connected},
}};

constexpr std::array kWords{&texts::stateNotConnected, &texts::stateConnected, &texts::stateAtWork, &texts::stateOff};

} // namespace

StatusLamps::StatusLamps() : words(new PlainLabel)
{
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    for (std::size_t i = 0; i < lamps.size(); ++i) {
        lamps[i] = new StatusLamp(QStringLiteral("shpLED_%1").arg(i));
        row->addWidget(lamps[i]);
    }
    words->setObjectName(QStringLiteral("lblState"));
    row->addWidget(words, 1);
}

void StatusLamps::Show(LampState state)
{
    const int grey = ColourNumber(palette().color(QPalette::Active, QPalette::Button));
    for (std::size_t i = 0; i < lamps.size(); ++i) {
        const bool isLit = kLamps[i].litBy == state;
        lamps[i]->Show(isLit ? kLamps[i].colour : grey, TextOf(isLit ? kLamps[i].description : &texts::colourOff));
    }
    words->setText(TextOf(kWords.at(static_cast<std::size_t>(state))));
    words->repaint();
}

} // namespace korvanel
