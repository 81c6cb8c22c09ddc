// The numbering of the quantities that tables, diagrams, evaluation, reports and export share. 0 to 49 are measured
// or derived quantities; four negative numbers stand for grid columns without a quantity.
#pragma once

#include <QtGlobal>

namespace korvanel {

inline constexpr int kQuantityCount = 50;

enum Quantity : qint16
{
    kColumnMethod = -4,      ///< letter of the estimation method
    kColumnSuitability = -3, ///< suitability grade
    kColumnTimeStamp = -2,   ///< date and time at which the set was written
    kColumnTime = -1,        ///< seconds since the first set, shown as hours, minutes and seconds

    kU = 0,
    kI = 1,
    kF = 2,
    kP = 3,
    kS = 4,
    kQ = 5,
    kCosPhi = 6,
    kN = 7,
    kM = 8,
    kPmech = 9,
    kEta = 10,
    kPhi = 11,
    kWp = 12,
    kWq = 13,
    kWpPlus = 14,
    kWpMinus = 15,
    kU1 = 16,      // 16 to 18
    kI1 = 19,      // 19 to 21
    kP1 = 22,      // 22 to 24
    kQ1 = 25,      // 25 to 27
    kS1 = 28,      // 28 to 30
    kPhi1 = 31,    // 31 to 33
    kCosPhi1 = 34, // 34 to 36
    kINeutral = 37,
    kWpAbs = 38,
    kWpPlusAbs = 39,
    kWpMinusAbs = 40,
    kWqAbs = 41,
    kWqPlusAbs = 42,
    kWqMinusAbs = 43,
    kWpRel = 44,
    kWpPlusRel = 45,
    kWpMinusRel = 46,
    kWqRel = 47,
    kWqPlusRel = 48,
    kWqMinusRel = 49,
};

} // namespace korvanel
