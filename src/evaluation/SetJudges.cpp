#include "evaluation/SetJudges.h"

namespace korvanel {

SetJudge JudgeBy(RatingMode mode)
{
    SetJudge judge;
    judge.colourOf = [mode](double value, int quantity) { return RateValue(value, quantity, mode, false); };
    judge.verdictOn = [mode](const tValueRow& row) {
        const int rating = RateRow(row, mode);
        return SetJudge::Verdict{RatingWord(rating), RatingColour(rating)};
    };
    for (int rating = 0; rating < kRatingCount; ++rating)
        judge.words << RatingWord(rating);
    return judge;
}

} // namespace korvanel
