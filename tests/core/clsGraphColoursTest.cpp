// Colours of the curves: the defaults and the user's own.
#include "core/clsGraphColours.h"

#include "core/Messages.h"
#include "core/SettingsStore.h"
#include "support/Fixture.h"

#include <limits>
#include <map>
#include <stdexcept>

namespace korvanel::test {

namespace {

constexpr qint32 kDefaults[] = {
    0x00FF00, // 0 U
    0x0000FF, // 1 I
    0xFF0000, // 2 f
    0x00FFFF, // 3 Pel
    0xFF00FF, // 4 S
    0xFFFF00, // 5 Q
    0x000000, // 6 cosphi
    0x00C000, // 7 n
    0xC0C000, // 8 M
    0x0080FF, // 9 Pmech
    0x808080, // 10 eta
    0xC0C0FF, // 11 Phi
    0x8080FF, // 12 Wp
    0x0000C0, // 13 Wq
    0x000000, // 14 Wp+
    0x000000, // 15 Wp-
    0x00FF00, // 16 U 1
    0x00FF00, // 17 U 2
    0x00FF00, // 18 U 3
    0x0000FF, // 19 I 1
    0x0000FF, // 20 I 2
    0x0000FF, // 21 I 3
    0x00FFFF, // 22 P 1
    0x00FFFF, // 23 P 2
    0x00FFFF, // 24 P 3
    0xFFFF00, // 25 Q 1
    0xFFFF00, // 26 Q 2
    0xFFFF00, // 27 Q 3
    0xFF00FF, // 28 S 1
    0xFF00FF, // 29 S 2
    0xFF00FF, // 30 S 3
    0xC0C0FF, // 31 Phi 1
    0xC0C0FF, // 32 Phi 2
    0xC0C0FF, // 33 Phi 3
    0x000000, // 34 cosphi 1
    0x000000, // 35 cosphi 2
    0x000000, // 36 cosphi 3
    0x0000CD, // 37 In
    0x000000, // 38 Wp abs
    0x000000, // 39 Wp+ abs
    0x000000, // 40 Wp- abs
    0x000000, // 41 Wq abs
    0x000000, // 42 Wq+ abs
    0x000000, // 43 Wq- abs
    0x000000, // 44 Wp rel
    0x8080FF, // 45 Wp+ rel
    0x8080FF, // 46 Wp- rel
    0x000000, // 47 Wq rel
    0x0000C0, // 48 Wq+ rel
    0x0000C0, // 49 Wq- rel
};
static_assert(std::size(kDefaults) == 50);

class clsGraphColoursTest : public BlockTest
{
protected:
    clsGraphColoursTest() { DeleteSection(kSettingsApplication, kSection); }
    ~clsGraphColoursTest() override { DeleteSection(kSettingsApplication, kSection); }

    void Store(const QString& key, const QString& value) const
    {
        StoreValue(kSettingsApplication, kSection, key, value);
    }
    std::map<QString, QString> Stored() const { return ReadSection(kSettingsApplication, kSection); }
    /// The colours as the next start of the program has them.
    static clsGraphColours Restarted()
    {
        clsGraphColours colours(kSettingsApplication);
        colours.ReadSettings();
        return colours;
    }

    const QString kSection = QStringLiteral("GraphColours");
};

} // namespace

TEST_F(clsGraphColoursTest, Defaults_OfEachQuantity)
{
    const clsGraphColours colours(kSettingsApplication);
    for (int i = 0; i < 50; ++i)
        EXPECT_EQ(colours.colour(i), kDefaults[i]) << i;
}

TEST_F(clsGraphColoursTest, Defaults_AreBlackInTheGapsBetweenTheEnergies)
{
    const clsGraphColours colours(kSettingsApplication);
    for (const int index : {14, 15, 38, 39, 40, 41, 42, 43, 44, 47})
        EXPECT_EQ(colours.colour(index), 0) << index;
    for (const int index : {45, 46, 48, 49})
        EXPECT_NE(colours.colour(index), 0) << index;
}

TEST_F(clsGraphColoursTest, ReadSettings_OfAnAbsentSectionKeepsTheDefaults)
{
    const clsGraphColours colours = Restarted();
    for (int i = 0; i < 50; ++i)
        EXPECT_EQ(colours.colour(i), kDefaults[i]) << i;
}

TEST_F(clsGraphColoursTest, ReadSettings_WritesNothing)
{
    Restarted();
    EXPECT_TRUE(Stored().empty());
}

TEST_F(clsGraphColoursTest, SetColour_StoresTheColourAtOnceAsDecimalText)
{
    clsGraphColours colours(kSettingsApplication);
    colours.SetColour(14, 0x8080FF);
    EXPECT_EQ(colours.colour(14), 0x8080FF);
    EXPECT_EQ(Stored(), (std::map<QString, QString>{{"14", "8421631"}}));
}

TEST_F(clsGraphColoursTest, SetColour_ReturnsAfterARestartAndLeavesTheOthers)
{
    clsGraphColours(kSettingsApplication).SetColour(7, 0x123456);
    const clsGraphColours colours = Restarted();
    for (int i = 0; i < 50; ++i)
        EXPECT_EQ(colours.colour(i), i == 7 ? 0x123456 : kDefaults[i]) << i;
    EXPECT_EQ(Stored().size(), 1u);
}

TEST_F(clsGraphColoursTest, SetColour_TakesAnySignedColour)
{
    for (const qint32 colour : {0, -1, std::numeric_limits<qint32>::min(), std::numeric_limits<qint32>::max()}) {
        clsGraphColours(kSettingsApplication).SetColour(49, colour);
        EXPECT_EQ(Restarted().colour(49), colour);
    }
}

TEST_F(clsGraphColoursTest, ReadSettings_TakesAKeyThatIsNoNumberForZero)
{
    Store("rot", "255");
    const clsGraphColours colours = Restarted();
    EXPECT_EQ(colours.colour(0), 255);
    EXPECT_EQ(colours.colour(1), kDefaults[1]);
}

TEST_F(clsGraphColoursTest, ReadSettings_OfAnIndexOutsideTheTableIsAnError)
{
    for (const char* key : {"50", "-1", "1e999", "4294967296"}) {
        DeleteSection(kSettingsApplication, kSection);
        Store(key, "255");
        EXPECT_THROW(Restarted(), std::out_of_range) << key;
    }
}

TEST_F(clsGraphColoursTest, ReadSettings_OfAnIndexOutsideTheTableEndsInTheGeneralReport)
{
    Store("50", "255");
    RunGuarded("clsGraphColours", [] { Restarted(); });
    ASSERT_EQ(shell.boxes.size(), 1u);
    EXPECT_EQ(shell.boxes[0].title, "Fehlermeldung");
}

TEST_F(clsGraphColoursTest, ReadSettings_OfAColourBeyondItsTypeKeepsTheDefault)
{
    for (const char* value : {"2147483648", "-1e300", "1e999"}) {
        Store("3", value);
        EXPECT_EQ(Restarted().colour(3), kDefaults[3]) << value;
    }
}

TEST_F(clsGraphColoursTest, IndexOutsideTheTable_IsAnErrorAndStoresNothing)
{
    clsGraphColours colours(kSettingsApplication);
    for (const int index : {-4, -1, 50, std::numeric_limits<int>::max()}) {
        EXPECT_THROW(static_cast<void>(colours.colour(index)), std::out_of_range) << index;
        EXPECT_THROW(colours.SetColour(index, 1), std::out_of_range) << index;
    }
    EXPECT_TRUE(Stored().empty());
}

} // namespace korvanel::test
