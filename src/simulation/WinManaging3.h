// What the user reads of the two machines side by side: rating plates, classes of the sets, energies, utilisation. The
// dialogs show it, and reports can show the same.
#pragma once

#include "core/MachineInUse.h"
#include "evaluation/WinManaging2.h"

namespace korvanel {

/// Value and unit as the rating plate has them, "-" where it isn't known.
QString RatedPowerText(const MachineRecord& record); ///< kW
QString RatedSpeedText(const MachineRecord& record);
QString RatedVoltageText(const MachineRecord& record);

/// Share of the sets in the good class; 0 % without sets.
QString GoodShareText(const EvaluationResults& results);

/// The rating of the sets, a line for each class: its word, a tab, count and share.
QString ClassesText(const EvaluationResults& results);

/// `flxEnergie`: energies and costs of both machines, without what a simulation doesn't have at all. Where one of them
/// has no value, "-". Without sets of either, heads alone; likewise the other one.
ResultTable ComparedEnergyTable(const MachineInUse& first, const MachineInUse& second);

/// `flxAuslastung`: utilisation of both machines, each value with its share of the rated one in the colour of its
/// verdict.
ResultTable ComparedUtilisationTable(const MachineInUse& first, const MachineInUse& second);

} // namespace korvanel
