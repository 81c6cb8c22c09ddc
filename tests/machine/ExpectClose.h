#pragma once

#include <gtest/gtest.h>

#include <cmath>

namespace korvanel::test {

/// Equal but for the last digits: two orders of the same arithmetic.
inline void ExpectClose(double value, double expected)
{
    EXPECT_NEAR(value, expected, std::abs(expected) * 1e-13);
}

} // namespace korvanel::test
