#include "instruments/WiringView.h"

#include "core/Common.h"
#include "core/NumberText.h"
#include "core/Texts.h"
#include "core/texts/DefaultTexts.h"
#include "core/texts/FormH7Texts.h"
#include "core/window/PlainLabel.h"
#include "instruments/Catalogue.h"

#include <QGridLayout>
#include <QLabel>

namespace korvanel {

namespace {

constexpr std::array kCaptions{&texts::wiringName, &texts::wiringNet, &texts::wiringVoltage, &texts::wiringCurrent,
                               &texts::wiringPower};

/// Where nothing is measured the method is the same dash as the measurement, and one says it.
QString PowerText(const QString& power, const QString& method)
{
    return power == method ? power : FillPlaceholders(texts::wiringPowerByMethod, {power, method});
}

} // namespace

WiringView::WiringView()
{
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setColumnStretch(1, 1);
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const int row = static_cast<int>(i);
        if (i < kCaptions.size()) {
            auto* caption = new PlainLabel(TextOf(kCaptions[i]));
            caption->setObjectName(QStringLiteral("lblText_%1").arg(i));
            grid->addWidget(caption, row, 0, Qt::AlignTop);
        }
        texts[i] = new PlainLabel;
        texts[i]->setObjectName(QStringLiteral("lblWiringtext_%1").arg(i));
        texts[i]->setWordWrap(true);
        grid->addWidget(texts[i], row, 1, Qt::AlignTop);
    }
}

void WiringView::Refresh()
{
    LookUpInstrument(App().sDevice);
    const auto& [net, voltage, current, power, method, remark] = App().WiringTexts;
    const std::array shown{App().sDevice, net, voltage, current, PowerText(power, method), remark};
    for (std::size_t i = 0; i < texts.size(); ++i)
        texts[i]->setText(shown[i]);
}

} // namespace korvanel
