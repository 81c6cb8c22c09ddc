// The dialogs that another room than their own opens, by their numbers. Whoever adds one adds a line here and its
// builder in the composition root; a dialog that only its own room opens needs neither.
#pragma once

#include <span>

namespace korvanel {

enum DialogNumber
{
    kDialogAbout = 2,
    kDialogAddressSearch = 5,
    kDialogWiring = 7,
    kDialogMachineInfo = 8,
    kDialogMotorDatabase = 11,
    kDialogSecondMachine = 12,
    kDialogComparison = 13,
    kDialogSimulationResults = 14,
    kDialogPrintMachines = 16,
};

struct DialogEntry
{
    int number;
    const char* name; ///< object name of the dialog
};

/// The dialog of a number, or nothing.
const DialogEntry* FindDialog(int number);

std::span<const DialogEntry> Dialogs();

} // namespace korvanel
