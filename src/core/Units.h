#pragma once

namespace korvanel {

// The factors between what is held (SI units) and what people read. Whole numbers, so that they serve as parameters of
// templates too.
inline constexpr int kPerKilo = 1000;        ///< watts in a kilowatt, newtons in a kilonewton
inline constexpr int kSecondsPerMinute = 60; ///< thermal time constants are held in seconds and shown in minutes
inline constexpr int kSecondsPerHour = 3600; ///< energies are held in watt seconds and shown in watt hours

} // namespace korvanel
