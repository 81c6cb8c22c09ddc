// The search dialog: its texts, its messages and the condition that it gives.
#include "motors/FormH6.h"

#include "support/Dialogs.h"
#include "support/MotorDbFixture.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace korvanel::test {
namespace {

class FormH6Test : public BlockTest
{
protected:
    FormH6Test() { Open(false); }
    void Open(bool isGenerator)
    {
        dialog = std::make_unique<FormH6>(nullptr, isGenerator);
        dialog->show();
    }
    template <typename Control>
    Control& Find(const char* name) const
    {
        return ControlOf<Control>(*dialog, name);
    }
    void Enter(const QString& polePairs, const QString& power, const QString& voltage) const
    {
        Find<QLineEdit>("txtSearch_0").setText(polePairs);
        Find<QLineEdit>("txtSearch_1").setText(power);
        Find<QLineEdit>("txtSearch_2").setText(voltage);
        Find<QPushButton>("cmdSearch").click();
    }

    std::unique_ptr<FormH6> dialog;
};

TEST_F(FormH6Test, Open_ShowsItsTexts)
{
    EXPECT_EQ(dialog->windowTitle(), "Datenbankeinträge suchen");
    EXPECT_EQ(Find<QLabel>("lblSearch_0").text(), "Polpaare");
    EXPECT_EQ(Find<QLabel>("lblSearch_1").text(), "Pmech [kW]");
    EXPECT_EQ(Find<QLabel>("lblSearch_2").text(), "U [V]");
    EXPECT_EQ(Find<QLabel>("lblRelation_0").text(), "=");
    EXPECT_EQ(Find<QLabel>("lblRelation_1").text(), ">=");
    EXPECT_EQ(Find<QLabel>("lblRelation_2").text(), "=");
}

TEST_F(FormH6Test, Open_ForAGeneratorTurnsTheRelationOfThePower)
{
    Open(true);
    EXPECT_EQ(Find<QLabel>("lblRelation_1").text(), "<=");
    Enter("2", "-5,5", "400");
    ASSERT_TRUE(dialog->Filter());
    EXPECT_TRUE(dialog->Filter()->isGenerator);
    EXPECT_EQ(dialog->Filter()->Pmech, -5.5);
}

TEST_F(FormH6Test, Search_GivesTheFilter)
{
    Enter("2", "5,5", "400");
    EXPECT_EQ(dialog->result(), QDialog::Accepted);
    ASSERT_TRUE(dialog->Filter());
    EXPECT_EQ(dialog->Filter()->polePairs, 2);
    EXPECT_EQ(dialog->Filter()->Pmech, 5.5);
    EXPECT_EQ(dialog->Filter()->U, 400);
    EXPECT_FALSE(dialog->Filter()->isGenerator);
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(FormH6Test, Search_TakesThePointAsWell)
{
    Enter(" 3 ", "7.5", "400");
    ASSERT_TRUE(dialog->Filter());
    EXPECT_EQ(dialog->Filter()->Pmech, 7.5);
}

TEST_F(FormH6Test, Search_AsksForTheFirstFieldThatIsEmpty)
{
    struct Case
    {
        const char* texts[3];
        const char* message;
        const char* focused;
    };
    constexpr Case kCases[] = {
        {{"", "", ""}, "Bitte Polpaarzahl eingeben", "txtSearch_0"},
        {{"2", "", ""}, "Bitte Pmech eingeben", "txtSearch_1"},
        {{"2", "5", ""}, "Bitte U eingeben", "txtSearch_2"},
        {{"", "5", "400"}, "Bitte Polpaarzahl eingeben", "txtSearch_0"},
    };
    for (const Case& c : kCases) {
        shell.boxes.clear();
        Enter(c.texts[0], c.texts[1], c.texts[2]);
        EXPECT_EQ(shell.BoxTexts(), QStringList{c.message});
        EXPECT_EQ(dialog->focusWidget(), &Find<QLineEdit>(c.focused)) << c.message;
        EXPECT_TRUE(dialog->isVisible());
        EXPECT_FALSE(dialog->Filter());
    }
}

TEST_F(FormH6Test, Search_TakesNoTextForANumber)
{
    for (const char* text : {"abc", "2 OR 1=1", "2'; DROP TABLE Motor", "1e999", "nan", "inf", "2,5", "99999999999"}) {
        shell.boxes.clear();
        Enter(text, "5", "400");
        EXPECT_EQ(shell.BoxTexts(), QStringList{"Bitte Polpaarzahl eingeben"}) << text;
        EXPECT_FALSE(dialog->Filter()) << text;
    }
    shell.boxes.clear();
    Enter("2", "5 kW", "400");
    EXPECT_EQ(shell.BoxTexts(), QStringList{"Bitte Pmech eingeben"});
}

TEST_F(FormH6Test, Cancel_GivesNone)
{
    Find<QLineEdit>("txtSearch_0").setText("2");
    Find<QPushButton>("cmdCancel").click();
    EXPECT_FALSE(dialog->Filter());
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_TRUE(shell.boxes.empty());
}

} // namespace
} // namespace korvanel::test
