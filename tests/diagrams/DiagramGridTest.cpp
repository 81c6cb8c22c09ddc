#include "diagrams/DiagramGrid.h"

#include "diagrams/NumberTable.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace korvanel {
namespace {

std::vector<double> Places(const std::vector<GridLine>& lines)
{
    std::vector<double> places;
    for (const GridLine& line : lines)
        places.push_back(line.at);
    return places;
}

TEST(DiagramGrid, LineStandsOnTheLeftEdgeIfThatIsAMultiple)
{
    const DiagramGrid grid = GridOf({.x1 = 1, .x2 = 5, .y1 = 0, .y2 = 1});
    EXPECT_EQ(grid.setStep, 0.5);
    EXPECT_EQ(Places(grid.sets), (std::vector<double>{1, 1.5, 2, 2.5, 3, 3.5, 4, 4.5, 5}));
}

TEST(DiagramGrid, FirstLineIsTheNextMultipleBehindTheLeftEdge)
{
    const DiagramGrid grid = GridOf({.x1 = 1, .x2 = 1000, .y1 = 0, .y2 = 1});
    EXPECT_EQ(Places(grid.sets), (std::vector<double>{100, 200, 300, 400, 500, 600, 700, 800, 900, 1000}));
}

TEST(DiagramGrid, LinesBetweenSetsArePaler)
{
    const DiagramGrid grid = GridOf({.x1 = 2, .x2 = 4, .y1 = 0, .y2 = 1});
    ASSERT_EQ(grid.sets.size(), 9u);
    for (const GridLine& line : grid.sets)
        EXPECT_EQ(line.colour, line.at == std::floor(line.at) ? GridColour::Main : GridColour::BetweenSets) << line.at;
    EXPECT_EQ(static_cast<qint32>(GridColour::Main), 12632256);
    EXPECT_EQ(static_cast<qint32>(GridColour::BetweenSets), 13684944);
    EXPECT_EQ(static_cast<qint32>(GridColour::Zero), 6316128);
}

TEST(DiagramGrid, LineOfASetIsNoneBetweenSetsThoughReachedInTenths)
{
    const DiagramGrid grid = GridOf({.x1 = 350.37, .x2 = 351.24, .y1 = 0, .y2 = 1});
    EXPECT_EQ(grid.setStep, 0.1);
    ASSERT_EQ(grid.sets.size(), 9u);
    EXPECT_EQ(grid.sets[6], (GridLine{.at = 351, .colour = GridColour::Main}));
}

TEST(DiagramGrid, UpToFiveLinesAreLabelledEach)
{
    const DiagramGrid grid = GridOf({.x1 = 1, .x2 = 5.9, .y1 = 0, .y2 = 1});
    EXPECT_EQ(grid.setStep, 0.5);
    const DiagramGrid five = GridOf({.x1 = 100.5, .x2 = 105.5, .y1 = 0, .y2 = 1});
    EXPECT_EQ(Places(five.sets), (std::vector<double>{101, 102, 103, 104, 105}));
    EXPECT_EQ(five.setLabels, Places(five.sets));
}

TEST(DiagramGrid, OfMoreThanFiveLinesEachSecondIsLabelled)
{
    const DiagramGrid grid = GridOf({.x1 = 100, .x2 = 105, .y1 = 0, .y2 = 1});
    EXPECT_EQ(Places(grid.sets), (std::vector<double>{100, 101, 102, 103, 104, 105}));
    EXPECT_EQ(grid.labelStep, 2);
    EXPECT_EQ(grid.setLabels, (std::vector<double>{100, 102, 104}));
}

TEST(DiagramGrid, FullHeightHasElevenLinesWithZeroInTheMiddle)
{
    const DiagramGrid grid = GridOf({.x1 = 1, .x2 = 10, .y1 = -1, .y2 = 1});
    ASSERT_EQ(grid.fractions.size(), 11u);
    for (std::size_t i = 0; i < 11; ++i) {
        EXPECT_NEAR(grid.fractions[i].at, -1 + 0.2 * static_cast<double>(i), 1e-12);
        EXPECT_EQ(grid.fractions[i].colour, i == 5 ? GridColour::Zero : GridColour::Main) << i;
    }
}

TEST(DiagramGrid, StepOfTheFractionsByTheHeightOfTheView)
{
    const struct
    {
        double height;
        double step;
    } cases[] = {{2, 0.2},      {1.01, 0.2},    {1, 0.1},      {0.51, 0.1},    {0.5, 0.05}, {0.26, 0.05},
                 {0.25, 0.04},  {0.21, 0.04},   {0.2, 0.02},   {0.11, 0.02},   {0.1, 0.01}, {0.051, 0.01},
                 {0.05, 0.005}, {0.011, 0.005}, {0.01, 0.001}, {0.0001, 0.001}};
    for (const auto& [height, step] : cases)
        EXPECT_EQ(GridOf({.x1 = 1, .x2 = 2, .y1 = 0, .y2 = height}).fractionStep, step) << height;
}

TEST(DiagramGrid, NoLineAtTheUpperEdgeIsLostToRounding)
{
    const DiagramGrid grid = GridOf({.x1 = 1, .x2 = 2, .y1 = 0, .y2 = 0.3});
    ASSERT_EQ(grid.fractions.size(), 7u);
    EXPECT_NEAR(grid.fractions.back().at, 0.3, 1e-12);
}

TEST(DiagramGrid, StepThatVanishesInTheRoundingEndsIt)
{
    const double far = 1e15;
    const DiagramGrid grid = GridOf({.x1 = far, .x2 = std::nextafter(far, 2 * far), .y1 = 0, .y2 = 1});
    EXPECT_LT(grid.sets.size(), 50u);
}

TEST(DiagramGrid, AgreesWithASecondCalculation)
{
    const std::vector<test::NumberLine> table = test::NumberTable("random_views.txt");
    EXPECT_EQ(table.size(), 2000u);
    for (const auto& [line, numbers] : table) {
        ASSERT_EQ(numbers.size(), 16u) << line;
        const DiagramGrid grid = GridOf({.x1 = numbers[0], .x2 = numbers[1], .y1 = numbers[2], .y2 = numbers[3]});
        const double near = grid.setStep * 1e-6;
        EXPECT_DOUBLE_EQ(grid.setStep, numbers[4]) << line;
        ASSERT_EQ(static_cast<double>(grid.sets.size()), numbers[5]) << line;
        EXPECT_NEAR(grid.sets.front().at, numbers[6], near) << line;
        EXPECT_NEAR(grid.sets.back().at, numbers[7], near) << line;
        EXPECT_EQ(static_cast<double>(std::ranges::count(grid.sets, GridColour::Main, &GridLine::colour)), numbers[8])
            << line;
        ASSERT_EQ(static_cast<double>(grid.setLabels.size()), numbers[9]) << line;
        EXPECT_NEAR(grid.setLabels.back(), numbers[10], near) << line;
        EXPECT_EQ(grid.fractionStep, numbers[11]) << line;
        ASSERT_EQ(static_cast<double>(grid.fractions.size()), numbers[12]) << line;
        EXPECT_NEAR(grid.fractions.front().at, numbers[13], 1e-9) << line;
        EXPECT_NEAR(grid.fractions.back().at, numbers[14], 1e-9) << line;
        EXPECT_EQ(static_cast<double>(std::ranges::count(grid.fractions, GridColour::Zero, &GridLine::colour)),
                  numbers[15])
            << line;
    }
}

} // namespace
} // namespace korvanel
