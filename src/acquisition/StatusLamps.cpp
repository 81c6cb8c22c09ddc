#include "acquisition/StatusLamps.h"

#include "core/Texts.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>

namespace korvanel {

namespace {

constexpr int kLampSize = 18;

struct Lamp
{
    int colour; ///< low byte red
    TextMember description;
    LampState litBy;
};

constexpr std::array<Lamp, 3> kLamps{{
    {255, &TextTable::colourRed, LampState::NotConnected},
    {65535, &TextTable::colourYellow, LampState::AtWork},
    {65280, &TextTable::colourGreen, LampState::Connected},
}};

constexpr std::array kWords{&TextTable::stateNotConnected, &TextTable::stateConnected, &TextTable::stateAtWork,
                            &TextTable::stateOff};

int ColourNumber(const QColor& colour)
{
    return colour.red() | colour.green() << 8 | colour.blue() << 16;
}

QColor ColourOf(int number)
{
    return {number & 0xFF, number >> 8 & 0xFF, number >> 16 & 0xFF};
}

} // namespace

StatusLamp::StatusLamp(const QString& name)
{
    setObjectName(name);
    setFixedSize(kLampSize, kLampSize);
}

void StatusLamp::Show(int colour, const QString& description)
{
    colourNumber = colour;
    setProperty("colour", colour);
    setAccessibleDescription(description);
    repaint();
}

void StatusLamp::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(palette().color(QPalette::Active, QPalette::Dark));
    painter.setBrush(ColourOf(colourNumber));
    painter.drawEllipse(rect().adjusted(1, 1, -2, -2));
}

StatusLamps::StatusLamps() : words(new QLabel)
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
        lamps[i]->Show(isLit ? kLamps[i].colour : grey, TextOf(isLit ? kLamps[i].description : &TextTable::colourOff));
    }
    words->setText(TextOf(kWords.at(static_cast<std::size_t>(state))));
    words->repaint();
}

} // namespace korvanel
