#include "data/ComputedQuantities.h"

#include "core/Common.h"
#include "data/ElectricalFormulas.h"
#include "data/ValueColumns.h"
#include "machine/Algorithms_ASM_Start.h"

#include <algorithm>
#include <cmath>

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

Energies RunningEnergies()
{
    const ApplicationBlock& app = App();
    return {app.dEnergyWp, app.dEnergyWpPlus, app.dEnergyWpMinus, app.dEnergyWq};
}

void SetRunningEnergies(const Energies& energies)
{
    ApplicationBlock& app = App();
    app.dEnergyWp = energies.Wp;
    app.dEnergyWpPlus = energies.WpPlus;
    app.dEnergyWpMinus = energies.WpMinus;
    app.dEnergyWq = energies.Wq;
}

void AddSteps()
{
    SetRunningEnergies(AfterStep(RunningEnergies(), App().dStepWp, App().dStepWq));
}

} // namespace

DerivedQuantities DeriveQuantities(double U, double I, double P, double phi, bool isThreePhase)
{
    DerivedQuantities derived;
    derived.S = ApparentPower(U, I, isThreePhase);
    derived.cosPhi = derived.S == 0 ? 0 : std::abs(P / derived.S);
    derived.Q = ReactivePower(derived.S, P);
    derived.phi = derived.S == 0 ? 0 : AngleOfPowerFactor(derived.cosPhi);
    if (P < 0) {
        derived.phi = 180 - derived.phi;
        derived.cosPhi = -derived.cosPhi;
    }
    if (phi < 0) {
        derived.phi = -derived.phi;
        derived.Q = -derived.Q;
    }
    return derived;
}

Energies AfterStep(Energies energies, double stepWp, double stepWq)
{
    (stepWp >= 0 ? energies.WpPlus : energies.WpMinus) += stepWp;
    energies.Wp += stepWp;
    energies.Wq += stepWq;
    return energies;
}

void DeriveFromUIP(double U, double I, double /*f*/, double P, double phi)
{
    const DerivedQuantities derived = DeriveQuantities(U, I, P, phi, IsAron());
    App().dCalcS = derived.S;
    App().dCalcQ = derived.Q;
    App().dCalcCosPhi = derived.cosPhi;
    App().dCalcPhi = derived.phi;
}

void ResetEnergies()
{
    ApplicationBlock& app = App();
    SetRunningEnergies({});
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
    PutRunningEnergies(row);
}

void PutRunningEnergies(tValueRow& row)
{
    const Energies energies = RunningEnergies();
    row.dWp = energies.Wp;
    row.dWpPlus = energies.WpPlus;
    row.dWpMinus = energies.WpMinus;
    row.dWq = energies.Wq;
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

bool IsEstimating()
{
    return HasMachine(App().iNetConfIndex) && App().bModelValid;
}

void EstimateRow(tValueRow& row)
{
    if (!IsEstimating())
        return;
    EstimateLoad(row.dU[kSum], row.dI[kSum], row.df, row.dP[kSum], row.dPhi[kSum], App().iCalcMethod);
    const LoadEstimate& estimate = App().Estimate;
    row.dn = estimate.n;
    row.dM = estimate.M;
    row.dPmech = estimate.Pmech;
    row.deta = estimate.eta;
    row.sMethod = App().SampleLetter;
}

void ComputeRow(bool withQuantities)
{
    tValueRow& row = App().CurrentRow;
    if (withQuantities) {
        DeriveFromUIP(row.dU[kSum], row.dI[kSum], row.df, row.dP[kSum], row.dPhi[kSum]);
        if (!std::isfinite(App().dCalcS) || !std::isfinite(App().dCalcQ))
            throw ArithmeticFault();
        row.dPhi[kSum] = App().dCalcPhi;
        row.dQ[kSum] = App().dCalcQ;
        row.dS[kSum] = App().dCalcS;
        row.dCosPhi[kSum] = App().dCalcCosPhi;
    }
    EstimateRow(row);
    row.bEdit = kCorrected;
}

} // namespace korvanel
