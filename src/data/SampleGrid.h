// The grid of a run: the present sample in a head of its own, below it the last sets that were stored.
#pragma once

#include "data/HeadedSetGrid.h"

#include <functional>

namespace korvanel {

/// Background of a cell whose value was not measured well: blue, green, red from the high to the low byte.
inline constexpr qint32 kBadCellColour = 12632256;

class SampleGrid : public HeadedSetGrid
{
    Q_OBJECT

public:
    /// `rows` sets are shown at once.
    explicit SampleGrid(int rows);

    /// Shows a sample that is not stored yet, or not at all. `isGood` tells of a quantity whether it was measured well.
    void ShowPresent(const tValueRow& row, const std::function<bool(int)>& isGood);
    void ClearPresent();
};

} // namespace korvanel
