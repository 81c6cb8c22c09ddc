#include "evaluation/Utilisation.h"

#include <cmath>
#include <numbers>

namespace korvanel {

namespace {

using Entries = std::array<UtilisationEntry, kUtilisationRowCount>;

void Put(UtilisationEntry& entry, double value, double set)
{
    entry.dValue = value;
    entry.dSet = set;
}

/// The greater magnitude of a pair with its set; a tie goes to the maximum.
void PutGreater(UtilisationEntry& entry, const ExtremEntry& minimum, const ExtremEntry& maximum)
{
    const ExtremEntry& greater = std::abs(minimum.dValue) <= std::abs(maximum.dValue) ? maximum : minimum;
    Put(entry, std::abs(greater.dValue), greater.lSet);
}

/// The power that a torque would give at rated speed: P = M omega.
void PutPowerOfTorque(UtilisationEntry& entry, const UtilisationEntry& torque, const std::optional<double>& n)
{
    if (n)
        Put(entry, torque.dValue * *n * std::numbers::pi / 30, torque.dSet);
    else
        Put(entry, 0, 0);
}

void PutWindow(Entries& tAsm, const EvaluationResults& results, const std::optional<double>& n)
{
    PutGreater(tAsm[kMostTorque], results.tExtremMin[kM], results.tExtremMax[kM]);
    PutGreater(tAsm[kWindowCurrent], results.tRmsMin[kI], results.tRmsMax[kI]);
    PutGreater(tAsm[kWindowTorque], results.tRmsMin[kM], results.tRmsMax[kM]);
    PutGreater(tAsm[kWindowPower], results.tRmsMin[kPmech], results.tRmsMax[kPmech]);
    PutPowerOfTorque(tAsm[kWindowPowerOfTorque], tAsm[kWindowTorque], n);
    PutGreater(tAsm[kWindowLoss], results.tAvgMin[kLossChannel], results.tAvgMax[kLossChannel]);
}

void PutWhole(Entries& tAsm, qint32 sets, const std::optional<double>& n)
{
    constexpr double kInsteadOfNone = 1e-10;
    const double R = sets == 0 ? kInsteadOfNone : sets;
    for (const UtilisationRow row : {kWholeCurrent, kWholeTorque, kWholePower})
        Put(tAsm[row], std::sqrt(std::abs(tAsm[row].dValue) / R), R);
    PutPowerOfTorque(tAsm[kWholePowerOfTorque], tAsm[kWholeTorque], n);
    Put(tAsm[kWholeLoss], tAsm[kWholeLoss].dValue / R, R);
}

/// Rated value of a row.
std::optional<double> RatedValueOf(int row, const RatedData& rated)
{
    switch (row) {
    case kMostTorque:
        return rated.Mkipp;
    case kWindowCurrent:
    case kWholeCurrent:
        return rated.I;
    case kWindowTorque:
    case kWholeTorque:
        return rated.M;
    case kWindowLoss:
    case kWholeLoss:
        return rated.Pth();
    default:
        return rated.Pmech;
    }
}

void Judge(UtilisationEntry& entry, int row, const RatedData& rated)
{
    const std::optional<double> ratedValue = rated.Pmech ? RatedValueOf(row, rated) : std::nullopt;
    int rating = 0;
    entry.vRatio.reset();
    if (ratedValue) {
        entry.vRatio = std::abs(entry.dValue / *ratedValue);
        rating = row == kMostTorque ? RateStallShare(*entry.vRatio) : RateRatedShare(*entry.vRatio);
    }
    entry.lColour = RatingColour(rating);
    entry.sVerdict = RatingWord(rating);
}

} // namespace

void AccumulateUtilisation(EvaluationResults& results, const tValueRow& row, double loss, const Rater& rater)
{
    Entries& tAsm = results.tAsm;
    const double I = row.dI[kSum];
    tAsm[kWholeCurrent].dValue += I * I;
    tAsm[kWholeTorque].dValue += row.dM * row.dM;
    tAsm[kWholePower].dValue += row.dPmech * row.dPmech;
    tAsm[kWholeLoss].dValue += loss;
    ++results.lRowClassCount[static_cast<std::size_t>(rater.RateRow(row))];
}

void FinishUtilisation(EvaluationResults& results, const RatedData& rated)
{
    Entries& tAsm = results.tAsm;
    PutWindow(tAsm, results, rated.n);
    PutWhole(tAsm, results.lSets, rated.n);
    for (int row = 0; row < kUtilisationRowCount; ++row)
        Judge(tAsm[static_cast<std::size_t>(row)], row, rated);
}

} // namespace korvanel
