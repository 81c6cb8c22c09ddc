#include "diagrams/DiagramView.h"

#include <gtest/gtest.h>

#include <limits>

namespace korvanel {
namespace {

constexpr qint32 kSets = 100;
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(DiagramView, FullViewGoesOverAllSetsAndUpFromZero)
{
    EXPECT_EQ(FullView(kSets, false), (DiagramView{.x1 = 1, .x2 = 100, .y1 = 0, .y2 = 1}));
}

TEST(DiagramView, FullViewOfNegativeValuesGoesDownToMinusOne)
{
    EXPECT_EQ(FullView(kSets, true), (DiagramView{.x1 = 1, .x2 = 100, .y1 = -1, .y2 = 1}));
}

TEST(DiagramView, EndsInTheWrongOrderAreSwapped)
{
    EXPECT_EQ(NormalisedView({.x1 = 20, .x2 = 10, .y1 = 0.5, .y2 = -0.5}, kSets),
              (DiagramView{.x1 = 10, .x2 = 20, .y1 = -0.5, .y2 = 0.5}));
}

TEST(DiagramView, EndsBeyondTheDiagramAreClipped)
{
    EXPECT_EQ(NormalisedView({.x1 = -5, .x2 = 500, .y1 = -7, .y2 = 7}, kSets),
              (DiagramView{.x1 = 1, .x2 = 100, .y1 = -1, .y2 = 1}));
}

TEST(DiagramView, ViewWithoutWidthOrHeightGetsAHundredth)
{
    EXPECT_EQ(NormalisedView({.x1 = 7, .x2 = 7, .y1 = 0.25, .y2 = 0.25}, kSets),
              (DiagramView{.x1 = 7, .x2 = 7 + 0.01, .y1 = 0.25, .y2 = 0.25 + 0.01}));
}

TEST(DiagramView, OneSetHasAViewWithAWidth)
{
    EXPECT_EQ(NormalisedView(FullView(1, false), 1), (DiagramView{.x1 = 1, .x2 = 1 + 0.01, .y1 = 0, .y2 = 1}));
}

TEST(DiagramView, WhateverIsAskedForCanBeDrawn)
{
    const double ends[] = {kNan, kInfinity, -kInfinity, 1e308, -1e308, 0, 0.5, 1, 50, 100, 101};
    for (const qint32 count : {0, 1, 2, kSets})
        for (const double x1 : ends)
            for (const double x2 : ends)
                for (const double y : ends) {
                    const DiagramView view = NormalisedView({.x1 = x1, .x2 = x2, .y1 = y, .y2 = x1}, count);
                    ASSERT_LT(view.x1, view.x2) << count << ' ' << x1 << ' ' << x2;
                    ASSERT_LT(view.y1, view.y2) << y << ' ' << x1;
                    ASSERT_GE(view.x1, 1);
                    ASSERT_LE(view.x2, std::max(count, 1) + 0.01);
                    ASSERT_GE(view.y1, -1);
                    ASSERT_LE(view.y2, 1.01);
                }
}

TEST(DiagramView, RectangleDraggedRightToLeftGivesTheSameView)
{
    const DiagramView expected{.x1 = 10, .x2 = 20, .y1 = 0.25, .y2 = 0.5};
    EXPECT_EQ(ViewOfRectangle({.xStart = 10, .yStart = 0.5, .xEnd = 20, .yEnd = 0.25}, kSets, false), expected);
    EXPECT_EQ(ViewOfRectangle({.xStart = 20, .yStart = 0.25, .xEnd = 10, .yEnd = 0.5}, kSets, false), expected);
}

TEST(DiagramView, RectangleBeyondTheDiagramIsClipped)
{
    EXPECT_EQ(ViewOfRectangle({.xStart = 90, .yStart = 3, .xEnd = 300, .yEnd = 0.5}, kSets, false),
              (DiagramView{.x1 = 90, .x2 = 100, .y1 = 0.5, .y2 = 1}));
    for (const bool hasNegativeValues : {false, true})
        EXPECT_EQ(ViewOfRectangle({.xStart = -9, .yStart = -5, .xEnd = 300, .yEnd = 5}, kSets, hasNegativeValues),
                  FullView(kSets, hasNegativeValues));
}

TEST(DiagramView, RectangleOutsideTheDiagramGivesTheFullView)
{
    const DiagramView full = FullView(kSets, true);
    EXPECT_EQ(ViewOfRectangle({.xStart = 101, .yStart = 0, .xEnd = 300, .yEnd = 1}, kSets, true), full);
    EXPECT_EQ(ViewOfRectangle({.xStart = -3, .yStart = 0, .xEnd = 0.5, .yEnd = 1}, kSets, true), full);
    EXPECT_EQ(ViewOfRectangle({.xStart = 3, .yStart = 1.1, .xEnd = 5, .yEnd = 2}, kSets, true), full);
    EXPECT_EQ(ViewOfRectangle({.xStart = 3, .yStart = -1.1, .xEnd = 5, .yEnd = -2}, kSets, true), full);
}

} // namespace
} // namespace korvanel
