// The dialogs that are opened by their numbers.
#include "core/window/DialogTable.h"

#include "support/Fixture.h"

#include <stdexcept>
#include <utility>

namespace korvanel::test {

namespace {

class DialogTableTest : public BlockTest
{
};

} // namespace

TEST_F(DialogTableTest, Dialogs_HaveTheirNames)
{
    const std::pair<int, const char*> cases[] = {{2, "FormH2"},   {5, "FormH5"},   {7, "FormH7"},
                                                 {8, "FormH8"},   {11, "FormH11"}, {12, "FormH12"},
                                                 {13, "FormH13"}, {14, "FormH14"}, {16, "FormH16"}};
    for (const auto& [number, name] : cases) {
        const DialogEntry* dialog = FindDialog(number);
        ASSERT_NE(dialog, nullptr) << number;
        EXPECT_EQ(dialog->number, number);
        EXPECT_STREQ(dialog->name, name);
    }
    EXPECT_EQ(Dialogs().size(), std::size(cases));
}

TEST_F(DialogTableTest, FindDialog_OfANumberWithoutDialogIsNothing)
{
    for (const int number : {-1, 0, 1, 9, 100, 32767})
        EXPECT_EQ(FindDialog(number), nullptr) << number;
}

TEST_F(DialogTableTest, ShellWithoutAUser_RecordsTheDialogAndAnswersFromItsScript)
{
    shell.dialogs[kDialogWiring] = [] { return true; };
    EXPECT_TRUE(shell.ShowDialog(kDialogWiring));
    EXPECT_FALSE(shell.ShowDialog(kDialogAbout)) << "nothing in the script";
    EXPECT_EQ(shell.calls, (QStringList{"ShowDialog FormH7", "ShowDialog FormH2"}));
}

TEST_F(DialogTableTest, ShellWithoutAUser_RefusesANumberWithoutDialog)
{
    EXPECT_THROW(shell.ShowDialog(1), std::out_of_range);
    EXPECT_TRUE(shell.calls.isEmpty());
}

} // namespace korvanel::test
