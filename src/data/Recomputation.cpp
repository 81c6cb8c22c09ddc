#include "data/Recomputation.h"

#include "core/Common.h"
#include "core/Messages.h"
#include "core/ProjectDb.h"
#include "core/texts/DefaultTexts.h"
#include "data/ComputedQuantities.h"
#include "data/PassOverSets.h"
#include "data/SetRewriter.h"
#include "data/ValueColumns.h"
#include "data/ValueTables.h"
#include "machine/Algorithms_ASM_Start.h"

#include <cmath>

namespace korvanel {

namespace {

/// Rewrites all sets of the project in one transaction. Throws DbError and whatever the transformation throws, with all
/// sets as they were.
void RewriteProject(const RewriteSource& source, const std::function<std::unique_ptr<SetTarget>()>& makeTarget,
                    const SetTransform& transform)
{
    PassOverSets([&] {
        DbTransaction transaction(ProjectDb());
        const std::unique_ptr<SetTarget> target = makeTarget();
        RewriteSets(ProjectDb(), App().iNetConfIndex, source, *target, transform, AdvanceOverSets);
        transaction.Commit();
    });
    RecordingChanged();
}

/// False after a failure of the file, which is told and counted.
bool Told(const std::function<void()>& rewriting)
{
    try {
        rewriting();
        return true;
    } catch (const DbError& error) {
        ++App().iFileErrors;
        ShowError(texts::cannotWriteFile + u'\n' + QString::fromUtf8(error.what()) + u'.');
        return false;
    }
}

} // namespace

void IntegrateRow(tValueRow& row)
{
    WholeSeconds(row.dt); // a time that the column can't hold is none to integrate over
    StepEnergyOffline(row.dP[kSum], row.dQ[kSum], row.dt);
    PutRunningEnergies(row);
    if (!std::isfinite(row.dWp) || !std::isfinite(row.dWq))
        throw ArithmeticFault();
}

bool RecomputeEnergies()
{
    return Told(IntegrateAllRows);
}

void IntegrateAllRows()
{
    static constexpr int kRead[] = {kP, kQ, kColumnTime};
    static constexpr int kWritten[] = {kWp, kWpPlus, kWpMinus, kWq};
    if (!RefreshSetCount())
        return;
    ResetEnergies();
    RewriteProject(
        {.quantities = kRead},
        [] { return std::make_unique<ChosenColumns>(ProjectDb(), App().iNetConfIndex, kWritten); },
        [](qint64, tValueRow& row) { IntegrateRow(row); });
    App().bEnergiesOutdated = false;
}

bool RecomputeAllRows()
{
    return Told(EstimateAllRows);
}

void EstimateAllRows()
{
    static constexpr int kRead[] = {kU, kI, kF, kP, kPhi};
    static constexpr int kNumberAlone[] = {kU}; // nothing is estimated, the sets are only marked
    static constexpr int kWritten[] = {kN, kM, kPmech, kEta, kColumnMethod};
    if (!RefreshSetCount())
        return;
    const bool isEstimating = IsEstimating();
    const RewriteSource source{.source = SetSource::Sampled,
                               .quantities = isEstimating ? std::span<const int>(kRead) : kNumberAlone};
    RewriteProject(
        source,
        [isEstimating] {
            const std::span<const int> written = isEstimating ? std::span<const int>(kWritten) : std::span<const int>();
            return std::make_unique<ChosenColumns>(ProjectDb(), App().iNetConfIndex, written, kCorrected);
        },
        [](qint64, tValueRow& row) { EstimateRow(row); });
}

} // namespace korvanel
