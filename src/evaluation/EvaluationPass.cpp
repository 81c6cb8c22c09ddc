#include "evaluation/EvaluationPass.h"

#include "core/NetConfigurations.h"
#include "core/NumberText.h"
#include "core/texts/DefaultTexts.h"
#include "data/RowQuantities.h"
#include "evaluation/RatedData.h"
#include "evaluation/TimeWindow.h"
#include "evaluation/Utilisation.h"
#include "machine/Algorithms_ASM_Start.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace korvanel {

namespace {

std::size_t At(int index)
{
    return static_cast<std::size_t>(index);
}

/// Whether a pass that has a machine sums the channel; the others stay 0.
constexpr bool NeedsMachine(int channel)
{
    return channel >= kN && channel <= kEta;
}

bool IsFinite(const ExtremEntry& entry)
{
    return std::isfinite(entry.dValue);
}

bool IsFinite(const EnergyEntry& entry)
{
    return std::isfinite(entry.dPlus) && std::isfinite(entry.dMinus) && std::isfinite(entry.dTotal);
}

bool IsFinite(const UtilisationEntry& entry)
{
    return std::isfinite(entry.dValue) && std::isfinite(entry.vRatio.value_or(0));
}

template <typename... Tables>
void RequireFinite(const Tables&... tables)
{
    const auto areFinite = [](const auto& table) {
        return std::all_of(table.begin(), table.end(), [](const auto& entry) {
            using std::isfinite;
            if constexpr (std::is_arithmetic_v<std::remove_cvref_t<decltype(entry)>>)
                return isfinite(entry);
            else
                return IsFinite(entry);
        });
    };
    if (!(areFinite(tables) && ...))
        throw ArithmeticFault();
}

void RequireInterval(double dt)
{
    if (!(dt > 0 && std::isfinite(dt)))
        throw std::invalid_argument(FillPlaceholders(texts::noInterval, {NumberText(dt)}).toStdString());
}

/// A quantity that the sets don't hold counts as 0 in every one of them.
void BeginUnstored(EvaluationResults& results, const std::vector<int>& stored)
{
    for (int quantity = 0; quantity < kQuantityCount; ++quantity)
        if (std::find(stored.begin(), stored.end(), quantity) == stored.end())
            UpdateExtrem(0, 1, results.tExtremMin[At(quantity)], results.tExtremMax[At(quantity)]);
}

} // namespace

EvaluationPass::EvaluationPass(const PassConditions& passConditions, std::unique_ptr<WindowTail> windowTail)
    : conditions(passConditions), rater(conditions.rated, conditions.netConf),
      stored(StoredQuantities(conditions.netConf)), span(WindowSpan(conditions.window, conditions.energy.dt)),
      tail(std::move(windowTail))
{
    results.dWindowSpan = span;
    results.sWindow = conditions.windowText;
    results.sCurrency = conditions.currency;
}

void EvaluationPass::Add(const tValueRow& row)
{
    const bool isFirst = ++results.lSets == 1;
    if (isFirst) {
        RequireInterval(conditions.energy.dt);
        BeginUnstored(results, stored);
        firstTime = lastTime = row.dt;
    }
    FindGap(row.dt);
    if (row.bEdit != 0)
        ++results.lCorrectedRows;
    UpdateExtremes(row);
    if (!isFirst)
        AccumulateEnergy(results.tEnergy, row);
    const double loss = LossPower(row.dP[kSum], row.dPmech);
    if (HasMachine(conditions.netConf))
        AccumulateUtilisation(results, row, loss, rater);
    const WindowValues values = WindowValuesOf(row);
    WindowAccumulate(values, loss, true);
    ++results.dWindowRows;
    MoveWindow(values);
}

void EvaluationPass::UpdateExtremes(const tValueRow& row)
{
    for (const int quantity : stored)
        UpdateExtrem(QuantityValue(row, quantity), results.lSets, results.tExtremMin[At(quantity)],
                     results.tExtremMax[At(quantity)]);
}

void EvaluationPass::WindowAccumulate(const WindowValues& values, double loss, bool add)
{
    const bool hasMachine = HasMachine(conditions.netConf);
    const double sign = add ? 1 : -1;
    for (int channel = 0; channel < kLossChannel; ++channel) {
        if (NeedsMachine(channel) && !hasMachine)
            continue;
        const double x = values[At(channel)];
        results.dWindowSumSq[At(channel)] += sign * x * x;
        results.dWindowSum[At(channel)] += sign * x;
    }
    if (hasMachine)
        results.dWindowSum[kLossChannel] += sign * loss; // its squares have no meaning and are never formed
}

/// Until the window is full its entries hold what is in it; from then on positions are compared, by the raw sums, since
/// the divisor is the same for all of them.
void EvaluationPass::MoveWindow(const WindowValues& values)
{
    tail->Push(values);
    const qint32 set = results.lSets;
    if (set <= span + 1) {
        for (std::size_t c = 0; c < kWindowChannelCount; ++c) {
            results.tRmsMin[c] = results.tRmsMax[c] = {results.dWindowSumSq[c], set};
            results.tAvgMin[c] = results.tAvgMax[c] = {results.dWindowSum[c], set};
        }
        return;
    }
    --results.dWindowRows;
    const WindowValues oldest = tail->Pop();
    WindowAccumulate(oldest, LossPower(oldest[kP], oldest[kPmech]), false);
    for (std::size_t c = 0; c < kWindowChannelCount; ++c) {
        UpdateExtrem(results.dWindowSumSq[c], set, results.tRmsMin[c], results.tRmsMax[c]);
        UpdateExtrem(results.dWindowSum[c], set, results.tAvgMin[c], results.tAvgMax[c]);
    }
}

/// A set that is later than its place on the grid of the interval. Times are stored as whole seconds.
void EvaluationPass::FindGap(double t)
{
    constexpr double kLate = 1.5;
    const double interval = conditions.energy.dt;
    const double step = t - lastTime;
    lastTime = t;
    if (!(step > kLate * interval && step - interval >= 1))
        return;
    ++results.lGaps;
    results.dMissing += std::round(step / interval) - 1;
}

void EvaluationPass::FinishGaps()
{
    if (results.lSets == 0)
        return;
    const double interval = conditions.energy.dt;
    const double ended = firstTime + conditions.recorded; // the recording began with the first set or a little before
    const double lastSet = lastTime;
    if (conditions.recorded > 0)
        FindGap(ended);
    const double recorded = std::max(conditions.recorded, lastSet - firstTime + interval);
    results.dCoverage = std::clamp(results.lSets * interval / recorded, 0.0, 1.0);
}

void EvaluationPass::RequireFiniteSums() const
{
    RequireFinite(results.dWindowSumSq, results.dWindowSum, results.tEnergy, results.tAsm);
}

void EvaluationPass::FinishWindow()
{
    const double N = results.dWindowRows;
    const auto rms = [N](ExtremEntry& entry) { entry.dValue = N > 0 ? std::sqrt(std::abs(entry.dValue) / N) : 0; };
    const auto mean = [N](ExtremEntry& entry) { entry.dValue = N != 0 ? entry.dValue / N : 0; };
    for (std::size_t c = 0; c < kWindowChannelCount; ++c) {
        rms(results.tRmsMin[c]);
        rms(results.tRmsMax[c]);
        mean(results.tAvgMin[c]);
        mean(results.tAvgMax[c]);
    }
}

EvaluationResults EvaluationPass::FinishEvaluation()
{
    RequireFiniteSums();
    FinishWindow();
    FinishGaps();
    FinishEnergy(results.tEnergy, conditions.energy);
    if (HasMachine(conditions.netConf))
        FinishUtilisation(results, conditions.rated);
    RequireFinite(results.tExtremMin, results.tExtremMax, results.tRmsMin, results.tRmsMax, results.tAvgMin,
                  results.tAvgMax, results.tEnergy, results.tAsm);
    return std::move(results);
}

namespace {

std::unique_ptr<WindowTail> TailFor(TableDb& db, SetSource source, const PassConditions& conditions, qint32 count,
                                    qint32 mostInMemory)
{
    const double length = std::max(0.0, WindowSpan(conditions.window, conditions.energy.dt)) + 1;
    if (!(length < count)) // it never overruns, or there is no length at all and the first set will say so
        return std::make_unique<RereadTail>(db, conditions.netConf, source);
    if (length < mostInMemory)
        return std::make_unique<KeptTail>(static_cast<std::size_t>(length) + 1);
    return std::make_unique<RereadTail>(db, conditions.netConf, source);
}

} // namespace

EvaluationResults EvaluateSets(TableDb& db, SetSource source, const PassConditions& conditions, qint32 count,
                               const std::function<void(qint32)>& advance, qint32 mostInMemory)
{
    constexpr qint32 kSteps = 200;
    EvaluationPass pass(conditions, TailFor(db, source, conditions, count, mostInMemory));
    SetReader reader(db, conditions.netConf, SetRange::All, source);
    for (qint32 done = 1; reader.Next(); ++done) {
        pass.Add(reader.Row());
        if (done % (count / kSteps + 1) == 0) {
            pass.RequireFiniteSums();
            advance(done);
        }
    }
    return pass.FinishEvaluation();
}

} // namespace korvanel
