#include "data/ComputedQuantities.h"

#include "core/Common.h"

namespace korvanel {

namespace {

/// True if the first three characters of the mask (voltage, current, power) are "N" where asked for.
bool IsValidAt(const QString& mask, std::initializer_list<int> positions)
{
    for (const int position : positions)
        if (mask.size() <= position || mask[position] != u'N')
            return false;
    return true;
}

void AddSteps()
{
    ApplicationBlock& app = App();
    (app.dStepWp >= 0 ? app.dEnergyWpPlus : app.dEnergyWpMinus) += app.dStepWp;
    app.dEnergyWp += app.dStepWp;
    app.dEnergyWq += app.dStepWq;
}

} // namespace

void ResetEnergies()
{
    ApplicationBlock& app = App();
    app.dEnergyWp = app.dEnergyWpPlus = app.dEnergyWpMinus = app.dEnergyWq = 0;
    app.dLastT = 0;
    app.iFileErrors = 0;
}

void StepEnergyOnline()
{
    ApplicationBlock& app = App();
    tMeasuredRow& row = app.MeasuredRow;
    app.iFileErrors = 0;
    const double isCounted = row.lSet > 1 ? 1 : row.lSet == 1 ? 0 : -1;
    // A group that was not measured well leaves its former step in force.
    if (IsValidAt(row.sValidMask, {0, 1, 2}))
        app.dStepWq = app.dInterval * row.dQ[kSum] * isCounted;
    if (IsValidAt(row.sValidMask, {2}))
        app.dStepWp = row.dP[kSum] * app.dInterval * isCounted;
    AddSteps();
    row.dWp = app.dEnergyWp;
    row.dWpPlus = app.dEnergyWpPlus;
    row.dWpMinus = app.dEnergyWpMinus;
    row.dWq = app.dEnergyWq;
}

void StepEnergyOffline(double P, double Q, double t)
{
    ApplicationBlock& app = App();
    const double duration = t - app.dLastT;
    app.dStepWp = duration * P;
    app.dStepWq = duration * Q;
    app.dLastT = t;
    AddSteps();
}

void FormRelativeEnergies()
{
    tMeasuredRow& row = App().MeasuredRow;
    auto& start = App().StartEnergies;
    if (row.lSet == 1)
        start = {row.dWpAbs, row.dWpPlusAbs, row.dWpMinusAbs, row.dWqAbs, row.dWqPlusAbs, row.dWqMinusAbs};
    row.dWpRel = row.dWpAbs - start[0];
    row.dWpPlusRel = row.dWpPlusAbs - start[1];
    row.dWpMinusRel = row.dWpMinusAbs - start[2];
    row.dWqRel = row.dWqAbs - start[3];
    row.dWqPlusRel = row.dWqPlusAbs - start[4];
    row.dWqMinusRel = row.dWqMinusAbs - start[5];
}

} // namespace korvanel
