#include "machine/EstimationConstants.h"

namespace korvanel {

EstimationConstants ConstantsOf(const MachineRecord& record, const MachineModel& model)
{
    EstimationConstants constants;
    constants.rotor = {record.Polpaarzahl, record.Pmech ? model.R2 : 0};
    constants.ratedU = record.U.value_or(0);
    constants.ratedF = record.f.value_or(0);
    constants.noLoadPower = model.Po_rech;
    constants.loadLoss = model.k_maschine;
    constants.resistance = model.Rs_rech;
    constants.friction = model.Mreib_rech;
    constants.factor = model.k_RZM;
    constants.isFactorFixed = record.Pmech || record.Po || record.Mreib;
    if (record.Schaltungsart && *record.Schaltungsart == QLatin1String("Y"))
        constants.connection = StatorConnection::Star;
    return constants;
}

} // namespace korvanel
