#include "acquisition/CurveList.h"

#include "core/Colour.h"
#include "core/Common.h"
#include "core/NumberText.h"
#include "core/clsGraphColours.h"
#include "core/clsSymbols.h"
#include "core/texts/FormF4Texts.h"
#include "core/window/PlainToolTip.h"

#include <QSignalBlocker>

namespace korvanel {

namespace {

QIcon ColourIcon(int quantity)
{
    constexpr int kSide = 12;
    QPixmap square(kSide, kSide);
    square.fill(ColourOf(App().GraphColours->colour(quantity)));
    return QIcon(square);
}

} // namespace

CurveList::CurveList()
{
    setObjectName(QStringLiteral("picColour"));
    setToolTip(PlainToolTip(texts::curveHint));
    connect(this, &QListWidget::itemChanged, this, [](const QListWidgetItem* item) { Switch(*item); });
}

void CurveList::Switch(const QListWidgetItem& item)
{
    qint32& check = App().Checks.at(static_cast<std::size_t>(item.data(Qt::UserRole).toInt()));
    const qint32 wanted = item.checkState() == Qt::Checked ? 1 : 0;
    App().bProjectDirty = App().bProjectDirty || check != wanted;
    check = wanted;
}

void CurveList::Fill(const std::vector<OnlineCurve>& curves)
{
    constexpr double kThreeDecimals = 1000;
    const QSignalBlocker quiet(this);
    clear();
    for (const OnlineCurve& curve : curves) {
        const QString end =
            FormatPrefixed(ScaleEndOf(curve), kThreeDecimals, true) + App().Symbols->Unit(curve.quantity);
        auto* item = new QListWidgetItem(ColourIcon(curve.quantity),
                                         App().Symbols->Symbol(curve.quantity) + QStringLiteral(":  ") + end);
        item->setData(Qt::UserRole, curve.quantity);
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsUserCheckable | Qt::ItemIsSelectable);
        const bool isOn = App().Checks.at(static_cast<std::size_t>(curve.quantity)) != 0;
        item->setCheckState(isOn ? Qt::Checked : Qt::Unchecked);
        addItem(item);
    }
}

} // namespace korvanel
