// Colours as numbers, and back.
#include "core/Colour.h"

#include <gtest/gtest.h>

namespace korvanel::test {

TEST(Colour, RedIsTheLowByte)
{
    EXPECT_EQ(ColourOf(0x0000FF), QColor(255, 0, 0));
    EXPECT_EQ(ColourNumber(QColor(255, 0, 0)), 0x0000FF);
    EXPECT_EQ(ColourOf(0x010203), QColor(3, 2, 1));
    EXPECT_EQ(ColourNumber(QColor(3, 2, 1)), 0x010203);
}

TEST(Colour, NumberComesBackFromItsColour)
{
    for (const qint32 number : {0, 1, 255, 0x00FF00, 65535, 0x800000, 0xFFFFFF})
        EXPECT_EQ(ColourNumber(ColourOf(number)), number);
}

TEST(Colour, NumberKnowsNoTransparency)
{
    EXPECT_EQ(ColourNumber(QColor(10, 20, 30, 40)), ColourNumber(QColor(10, 20, 30)));
}

} // namespace korvanel::test
