// How far a load cycle uses the machine: its largest torque, and current, torque, power and loss in the window and over
// the whole recording, each against its rated value.
#pragma once

#include "core/Evaluation.h"
#include "core/ValueRow.h"
#include "evaluation/Rating.h"

namespace korvanel {

/// Adds one set, with the power that it loses (W), to the sums over the whole recording, and counts its class.
void AccumulateUtilisation(EvaluationResults& results, const tValueRow& row, double loss, const Rater& rater);

/// Fills `tAsm` from the finished extremes and window values and from the sums, `lSets` being the number of sets.
/// Without the rated power no share is formed; without the rated value of a row none for that row.
void FinishUtilisation(EvaluationResults& results, const RatedData& rated);

} // namespace korvanel
