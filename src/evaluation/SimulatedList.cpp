#include "evaluation/SimulatedList.h"

#include "core/NumberText.h"
#include "core/texts/FormF6Texts.h"
#include "evaluation/SetJudges.h"

#include <QScrollBar>

namespace korvanel {

SimulatedList::SimulatedList() : SetList(JudgeBy(RatingMode::MachineII), "flxSimul")
{
    Bar().setObjectName(QStringLiteral("scrSimul"));
    setContextMenuPolicy(Qt::NoContextMenu); // its columns have one order
    setToolTip({});
}

std::span<const qint16> SimulatedList::Columns() const
{
    static constexpr qint16 kColumns[] = {
        kU, kF, kP, kN, kM, kPmech, kEta, kWp, kWpPlus, kWpMinus, kColumnMethod, kColumnSuitability};
    return kColumns;
}

QString SimulatedList::TimeHeading() const
{
    return texts::headSeconds;
}

QString SimulatedList::TimeOf(const tValueRow& row) const
{
    return NumberText(row.dt);
}

bool SimulatedList::Visit(qint32 first, qint32 last, const std::function<bool(const ShownSet&)>& visit)
{
    const bool hasRows = App().MachineII.evaluation.lSets > 0;
    return !hasRows || VisitSimulatedSets(first, last, visit);
}

} // namespace korvanel
