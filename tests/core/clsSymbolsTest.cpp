// Symbols and units of the fifty quantities.
#include "core/clsSymbols.h"

#include "core/Common.h"
#include "core/Texts.h"

#include "support/Fixture.h"

#include <limits>
#include <stdexcept>

namespace korvanel::test {

namespace {

struct Row
{
    const char* symbol;
    const char* unit;
};

constexpr Row kRows[] = {
    {"U", "V"},          // 0
    {"I", "A"},          // 1
    {"f", "Hz"},         // 2
    {"Pel", "W"},        // 3
    {"S", "VA"},         // 4
    {"Q", "var"},        // 5
    {"cosphi", ""},      // 6
    {"n", "rpm"},        // 7
    {"M", "Nm"},         // 8
    {"Pmech", "W"},      // 9
    {"eta", ""},         // 10
    {"Phi", "°"},        // 11
    {"Wp", "Wh"},        // 12
    {"Wq", "varh"},      // 13
    {"Wp+", "Wh"},       // 14
    {"Wp-", "Wh"},       // 15
    {"U 1", "V"},        // 16
    {"U 2", "V"},        // 17
    {"U 3", "V"},        // 18
    {"I 1", "A"},        // 19
    {"I 2", "A"},        // 20
    {"I 3", "A"},        // 21
    {"P 1", "W"},        // 22
    {"P 2", "W"},        // 23
    {"P 3", "W"},        // 24
    {"Q 1", "var"},      // 25
    {"Q 2", "var"},      // 26
    {"Q 3", "var"},      // 27
    {"S 1", "VA"},       // 28
    {"S 2", "VA"},       // 29
    {"S 3", "VA"},       // 30
    {"Phi 1", "°"},      // 31
    {"Phi 2", "°"},      // 32
    {"Phi 3", "°"},      // 33
    {"cosphi 1", ""},    // 34
    {"cosphi 2", ""},    // 35
    {"cosphi 3", ""},    // 36
    {"In", "A"},         // 37
    {"Wp abs", "Wh"},    // 38
    {"Wp+ abs", "Wh"},   // 39
    {"Wp- abs", "Wh"},   // 40
    {"Wq abs", "varh"},  // 41
    {"Wq+ abs", "varh"}, // 42
    {"Wq- abs", "varh"}, // 43
    {"Wp rel", "Wh"},    // 44
    {"Wp+ rel", "Wh"},   // 45
    {"Wp- rel", "Wh"},   // 46
    {"Wq rel", "varh"},  // 47
    {"Wq+ rel", "varh"}, // 48
    {"Wq- rel", "varh"}, // 49
};
static_assert(std::size(kRows) == 50);

} // namespace

TEST(clsSymbolsTest, Symbol_OfEachQuantity)
{
    const clsSymbols symbols;
    for (int i = 0; i < 50; ++i)
        EXPECT_EQ(symbols.Symbol(i), kRows[i].symbol) << i;
}

TEST(clsSymbolsTest, Unit_OfEachQuantity)
{
    const clsSymbols symbols;
    for (int i = 0; i < 50; ++i)
        EXPECT_EQ(symbols.Unit(i), kRows[i].unit) << i;
}

TEST(clsSymbolsTest, SymbolWithUnit_PutsTheUnitInBrackets)
{
    const clsSymbols symbols;
    EXPECT_EQ(symbols.SymbolWithUnit(3), "Pel [W]");
    EXPECT_EQ(symbols.SymbolWithUnit(11), "Phi [°]");
    EXPECT_EQ(symbols.SymbolWithUnit(46), "Wp- rel [Wh]");
    EXPECT_EQ(symbols.SymbolWithUnit(49), "Wq- rel [varh]");
}

TEST(clsSymbolsTest, SymbolWithUnit_WithoutUnitIsTheSymbolAlone)
{
    const clsSymbols symbols;
    EXPECT_EQ(symbols.SymbolWithUnit(6), "cosphi");
    EXPECT_EQ(symbols.SymbolWithUnit(10), "eta");
    EXPECT_EQ(symbols.SymbolWithUnit(36), "cosphi 3");
}

TEST(clsSymbolsTest, ColumnHeading_IsSymbolAndUnitOrTheColumnsName)
{
    clsSymbols symbols;
    App().Symbols = &symbols;
    SetBuiltInTexts();
    EXPECT_EQ(ColumnHeading(3), "Pel [W]");
    EXPECT_EQ(ColumnHeading(10), "eta");
    EXPECT_EQ(ColumnHeading(-1), "t Sample");
    EXPECT_EQ(ColumnHeading(-2), "Zeitstempel");
    EXPECT_EQ(ColumnHeading(-3), "Modell");
    EXPECT_EQ(ColumnHeading(-4), "Methode");
    App().Symbols = nullptr;
}

TEST(clsSymbolsTest, IndexOutsideTheTable_IsAnError)
{
    const clsSymbols symbols;
    for (const int index : {-4, -1, 50, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
        EXPECT_THROW(static_cast<void>(symbols.Symbol(index)), std::out_of_range) << index;
        EXPECT_THROW(static_cast<void>(symbols.Unit(index)), std::out_of_range) << index;
        EXPECT_THROW(static_cast<void>(symbols.SymbolWithUnit(index)), std::out_of_range) << index;
    }
}

} // namespace korvanel::test
