// The evaluation of the open project: takes conditions from the block, runs the pass, and puts the results there.
#pragma once

#include "evaluation/EvaluationPass.h"

namespace korvanel {

/// What the project's sets are evaluated with: interval, window, options, and the rated data of the measured machine.
PassConditions ConditionsOfProject();

/// Evaluates all sets of the project into `Evaluation` of the block and sets `bEvaluated`. The tables are empty while
/// the pass runs and stay so after a failure, with `bEvaluated` clear. Throws ArithmeticFault where a sum or a result
/// is not finite, and DbError where the sets can't be read.
void EvaluateProject();

} // namespace korvanel
