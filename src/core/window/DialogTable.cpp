#include "core/window/DialogTable.h"

#include <algorithm>
#include <iterator>

namespace korvanel {

namespace {

constexpr DialogEntry kDialogs[] = {
    {.number = kDialogAbout, .name = "FormH2"},          {.number = kDialogAddressSearch, .name = "FormH5"},
    {.number = kDialogWiring, .name = "FormH7"},         {.number = kDialogMachineInfo, .name = "FormH8"},
    {.number = kDialogMotorDatabase, .name = "FormH11"}, {.number = kDialogSecondMachine, .name = "FormH12"},
    {.number = kDialogComparison, .name = "FormH13"},    {.number = kDialogSimulationResults, .name = "FormH14"},
    {.number = kDialogPrintMachines, .name = "FormH16"},
};

} // namespace

std::span<const DialogEntry> Dialogs()
{
    return kDialogs;
}

const DialogEntry* FindDialog(int number)
{
    const auto* dialog = std::find_if(std::begin(kDialogs), std::end(kDialogs),
                                      [number](const DialogEntry& d) { return d.number == number; });
    return dialog == std::end(kDialogs) ? nullptr : dialog;
}

} // namespace korvanel
