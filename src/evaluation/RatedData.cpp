#include "evaluation/RatedData.h"

#include "core/Common.h"
#include "machine/MachineFormulas.h"

namespace korvanel {

RatedData RatedDataOf(const MachineRecord& record, double Pel, double stallTorque)
{
    // Without the rated speed the record's torque is the 0 that the model puts there, and so is what follows from it.
    const bool isTorqueKnown = record.n || record.M.value_or(0) != 0;
    const bool isStallKnown = record.Mkipp_Mn && (isTorqueKnown || stallTorque != 0);
    return {.U = record.U,
            .I = record.I,
            .f = record.f,
            .n = record.n,
            .M = isTorqueKnown ? record.M : std::nullopt,
            .Pmech = record.Pmech,
            .Pel = Pel,
            .Mkipp = isStallKnown ? std::optional(stallTorque) : std::nullopt};
}

namespace {

/// The model of the measured machine is built; of the other one the record alone is known.
RatedData RatedDataWithoutModel(const MachineRecord& record)
{
    const double magnitude =
        std::abs(ElectricalPower(record.U.value_or(0), record.I.value_or(0), record.cosphi.value_or(0)));
    return RatedDataOf(record, std::copysign(magnitude, record.Pmech.value_or(0)),
                       record.Mkipp_Mn.value_or(0) * record.M.value_or(0));
}

} // namespace

RatedData RatedDataOf(WhichMachine which)
{
    const MachineInUse& machine = App().MachineOf(which);
    return which == WhichMachine::I ? RatedDataOf(machine.record, machine.model.Pelec_n, machine.model.Kippmoment)
                                    : RatedDataWithoutModel(machine.record);
}

} // namespace korvanel
