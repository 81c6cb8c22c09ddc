// Stands for the model where only its being built matters.
#include "core/Common.h"
#include "machine/Algorithms_ASM_Start.h"

namespace korvanel {

void BuildMachineModel()
{
    if (App().MachineI.Pmech || (App().MachineI.Schaltungsart && App().MachineI.Polpaarzahl >= 1))
        App().bModelValid = true;
}

} // namespace korvanel
