#include "simulation/SimulatedRow.h"

#include "core/Units.h"
#include "evaluation/RatedData.h"
#include "machine/Algorithms_ASM_Leistung.h"
#include "machine/MachineFormulas.h"

#include <cmath>

namespace korvanel {

SecondMachine SecondMachineOf(const MachineRecord& record, const MachineModel& model)
{
    const double M = record.M.value_or(0);
    const double Pmech = record.Pmech.value_or(0);
    const double Pel = std::copysign(model.Pelec_n, Pmech);
    return {.U = record.U.value_or(0),
            .f = record.f.value_or(0),
            .M = M,
            .polePairs = record.Polpaarzahl,
            .slip = model.Nennschlupf,
            .Po = model.Po_rech,
            .k = M == 0 ? 0 : (Pel - Pmech - model.Po_rech) / (M * M)};
}

SimulatedPoint SimulatedPointAt(const SecondMachine& machine, double M, double U, double f)
{
    const double p = machine.polePairs;
    const double voltageRatio = machine.U == 0 ? 0 : U / machine.U;
    const double frequencyRatio = f == 0 ? 0 : machine.f / f;
    const double torqueAtSlip = machine.M * voltageRatio * voltageRatio * frequencyRatio * frequencyRatio;
    const double slip = frequencyRatio * machine.slip;
    const double synchronous = p == 0 ? 0 : kSecondsPerMinute * f / p;

    SimulatedPoint point;
    if (torqueAtSlip != 0 && p != 0)
        point.n = (1 - M / torqueAtSlip * slip) * synchronous;
    point.Pmech = ShaftPower(M, point.n);
    double noLoad = 0;
    if (p != 0 && f != 0 && machine.f != 0 && machine.U != 0) {
        const double speedRatio = point.n / synchronous;
        noLoad = NoLoadPowerAt(machine.Po, U, machine.U, f, machine.f) * speedRatio * speedRatio * speedRatio;
    }
    point.P = M * M * machine.k + point.Pmech + noLoad;
    point.eta = Efficiency(point.Pmech, point.P, noLoad);
    point.loss = LossPower(point.P, point.Pmech);
    return point;
}

} // namespace korvanel
