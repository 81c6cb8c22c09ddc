// The search for a set: what is taken and what is not.
#include "data/FormH15.h"

#include "support/Dialogs.h"
#include "support/Fixture.h"
#include "support/Keys.h"

#include <QLineEdit>
#include <QPushButton>

namespace korvanel::test {
namespace {

class FormH15Test : public BlockTest
{
protected:
    void Open(int sets)
    {
        App().iSetCount = sets;
        App().iCurrentSet = 1;
        dialog = std::make_unique<FormH15>(nullptr);
        dialog->show();
    }
    QLineEdit& Box() { return ControlOf<QLineEdit>(*dialog, "txtSet"); }
    /// Whether a text ends the dialog.
    bool IsTaken(const QString& text)
    {
        Box().setText(text);
        ControlOf<QPushButton>(*dialog, "cmdOK").click();
        return dialog->result() == QDialog::Accepted;
    }

    std::unique_ptr<FormH15> dialog;
};

TEST_F(FormH15Test, Open_ShowsItsTexts)
{
    Open(20);
    EXPECT_EQ(dialog->windowTitle(), "Satz suchen");
    EXPECT_EQ(ControlOf<QPushButton>(*dialog, "cmdOK").text(), "Ok");
    EXPECT_EQ(ControlOf<QPushButton>(*dialog, "cmdCancel").text(), "Abbrechen");
}

TEST_F(FormH15Test, Open_ShowsTheCurrentSetSelected)
{
    App().iSetCount = 20;
    for (const auto& [current, shown] : {std::pair(7, "7"), std::pair(20, "20"), std::pair(31, "20")}) {
        App().iCurrentSet = current;
        dialog = std::make_unique<FormH15>(nullptr);
        EXPECT_EQ(Box().text(), shown);
        EXPECT_EQ(Box().selectedText(), shown) << "so that typing replaces it";
    }
}

struct Taken
{
    const char* text;
    int set;
};

TEST_F(FormH15Test, Number_BecomesTheCurrentSet)
{
    for (const Taken c : {Taken{"1", 1}, Taken{"20", 20}, Taken{" 7 ", 7}, Taken{"007", 7}, Taken{"7,0", 7}}) {
        Open(20);
        EXPECT_TRUE(IsTaken(QLatin1String(c.text))) << c.text;
        EXPECT_EQ(App().iCurrentSet, c.set) << c.text;
    }
}

TEST_F(FormH15Test, NumberAboveTheLastSet_IsReplacedByIt)
{
    for (const char* text : {"21", "2147483648", "99999999999999999999", "1e15"}) {
        Open(20);
        EXPECT_TRUE(IsTaken(QLatin1String(text))) << text;
        EXPECT_EQ(App().iCurrentSet, 20) << text;
    }
}

TEST_F(FormH15Test, AnythingElse_IsNotTakenAndTheDialogStays)
{
    Open(20);
    App().iCurrentSet = 3;
    for (const char* text :
         {"", " ", "0", "-1", "-99999999999", "abc", "3x", "1,5", "25,5", "nan", "inf", "0x10", "1 2"}) {
        EXPECT_FALSE(IsTaken(QLatin1String(text))) << text;
        EXPECT_TRUE(dialog->isVisible()) << text;
    }
    EXPECT_EQ(App().iCurrentSet, 3);
}

TEST_F(FormH15Test, WithoutSets_NoNumberIsTaken)
{
    Open(0);
    EXPECT_FALSE(IsTaken(QStringLiteral("1")));
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(App().iCurrentSet, 1);
}

TEST_F(FormH15Test, Cancel_ChangesNothing)
{
    Open(20);
    Box().setText(QStringLiteral("9"));
    ControlOf<QPushButton>(*dialog, "cmdCancel").click();
    EXPECT_EQ(dialog->result(), QDialog::Rejected);
    EXPECT_EQ(App().iCurrentSet, 1);
}

TEST_F(FormH15Test, Enter_TakesTheNumberInTheBox)
{
    Open(20);
    Box().setText(QStringLiteral("9"));
    PressKey(Box(), Qt::Key_Return);
    EXPECT_EQ(dialog->result(), QDialog::Accepted);
    EXPECT_EQ(App().iCurrentSet, 9);
}

} // namespace
} // namespace korvanel::test
