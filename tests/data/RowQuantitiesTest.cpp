#include "data/RowQuantities.h"

#include "data/ValueColumns.h"
#include "support/Fixture.h"

#include <set>

namespace korvanel::test {
namespace {

class RowQuantitiesTest : public BlockTest
{
};

TEST_F(RowQuantitiesTest, EveryNumberHasAFieldOfItsOwn)
{
    tValueRow row;
    std::set<const double*> fields;
    for (int quantity = 0; quantity < kQuantityCount; ++quantity)
        EXPECT_TRUE(fields.insert(&QuantityField(row, quantity)).second) << quantity;
    EXPECT_THROW(QuantityField(row, -1), std::out_of_range);
    EXPECT_THROW(QuantityField(row, kQuantityCount), std::out_of_range);
}

TEST_F(RowQuantitiesTest, FieldsAreThoseOfTheColumnsWithTheSymbolsName)
{
    // The columns are named in the file as the symbols are, but for the totals and three spellings.
    tValueRow row;
    for (int quantity = kU1; quantity < kQuantityCount; ++quantity) {
        QString name = symbols.Symbol(quantity);
        name.replace("Phi", "phi").replace("In", "I N");
        const auto columns = ValueColumns();
        const auto column =
            std::find_if(columns.begin(), columns.end(), [&](const ValueColumn& c) { return name == c.name; });
        ASSERT_NE(column, columns.end()) << name.toStdString();
        EXPECT_EQ(&column->field(row), &QuantityField(row, quantity)) << name.toStdString();
    }
}

TEST_F(RowQuantitiesTest, TextsAreRoundedAndEnergiesInWattHours)
{
    tValueRow row;
    row.dU[kSum] = 230.45678;
    row.df = 49.987;
    row.dWp = 3600 * 12.5;
    row.dn = 1487.6;
    EXPECT_EQ(GridText(row, kU), "230,457");
    EXPECT_EQ(GridText(row, kF), "49,99");
    EXPECT_EQ(GridText(row, kWp), "12,5");
    EXPECT_EQ(GridText(row, kN), "1488");
}

TEST_F(RowQuantitiesTest, ExtraQuantitiesAreThoseOfARecorderWithoutAColumn)
{
    EXPECT_EQ(ExtraQuantities(4), (std::vector<int>{kWpAbs, kWqAbs, kWpRel, kWqRel}));
    EXPECT_FALSE(ExtraQuantities(5).empty());
    for (const int netConf : {0, 1, 2, 3, 6})
        EXPECT_TRUE(ExtraQuantities(netConf).empty()) << netConf;
}

TEST(RowQuantities, GridFactor_GivesTheDigitsOfEachQuantity)
{
    for (const int quantity : {0, 1, 3, 4, 5, 9, 12, 13, 14, 15, 16, 21, 22, 27, 30, 37, 38, 49})
        EXPECT_EQ(GridFactor(quantity), 1000) << quantity;
    for (const int quantity : {2, 6, 8, 10, 11, 31, 33, 34, 36})
        EXPECT_EQ(GridFactor(quantity), 100) << quantity;
    EXPECT_EQ(GridFactor(7), 1);
}

} // namespace
} // namespace korvanel::test
