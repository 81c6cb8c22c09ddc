// How a list of sets is judged: value by value and set by set, with the ratings of a machine.
#pragma once

#include "data/SetList.h"
#include "evaluation/Rating.h"

namespace korvanel {

/// By the machine of a mode.
SetJudge JudgeBy(RatingMode mode);

} // namespace korvanel
