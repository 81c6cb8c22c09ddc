#include "evaluation/RatedData.h"

#include "core/Common.h"
#include "machine/MachineFormulas.h"

namespace korvanel {

RatedData RatedDataOf(const MachineRecord& record, double Pel, double stallTorque)
{
    return {.U = record.U,
            .I = record.I,
            .f = record.f,
            .n = record.n,
            .M = record.M,
            .Pmech = record.Pmech,
            .Pel = Pel,
            .Mkipp = record.Mkipp_Mn ? std::optional(stallTorque) : std::nullopt};
}

RatedData RatedDataI()
{
    return RatedDataOf(App().MachineI, App().Model.Pelec_n, App().Model.Kippmoment);
}

RatedData RatedDataII()
{
    const MachineRecord& record = App().MachineII;
    const double magnitude =
        std::abs(ElectricalPower(record.U.value_or(0), record.I.value_or(0), record.cosphi.value_or(0)));
    return RatedDataOf(record, std::copysign(magnitude, record.Pmech.value_or(0)),
                       record.Mkipp_Mn.value_or(0) * record.M.value_or(0));
}

} // namespace korvanel
