// The dialog of the time window: what it shows, what its boxes take, what OK stores.
#include "evaluation/FormH9.h"

#include "support/Keys.h"
#include "support/ResultPageFixture.h"

#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

namespace korvanel::test {
namespace {

class FormH9Test : public ResultPageTest
{
protected:
    void Open()
    {
        dialog = std::make_unique<FormH9>(nullptr);
        dialog->show();
    }
    void OpenWithMachine()
    {
        OpenProjectOf(2);
        Open();
    }
    QLineEdit& Time(int index)
    {
        return ControlOf<QLineEdit>(*dialog, QStringLiteral("txtTime_%1").arg(index).toUtf8().constData());
    }
    QString ShownTime() { return Time(0).text() + u':' + Time(1).text() + u':' + Time(2).text(); }
    QLineEdit& Factor() { return ControlOf<QLineEdit>(*dialog, "txtThermic"); }
    QRadioButton& Option(int index)
    {
        return ControlOf<QRadioButton>(*dialog, index == 0 ? "optTWindow_0" : "optTWindow_1");
    }
    void Press(const char* button) { ControlOf<QPushButton>(*dialog, button).click(); }
    static void Leave(QLineEdit& box)
    {
        QFocusEvent focusOut(QEvent::FocusOut, Qt::TabFocusReason);
        QApplication::sendEvent(&box, &focusOut);
    }

    std::unique_ptr<FormH9> dialog;
};

TEST_F(FormH9Test, Open_ShowsItsTexts)
{
    OpenWithMachine();
    EXPECT_EQ(dialog->windowTitle(), "Dimension des Zeitfensters");
    EXPECT_EQ(Option(0).text(), "Manuelle Angabe:");
    EXPECT_EQ(Option(1).text(), "Thermische Zeitkonstante:");
    EXPECT_EQ(ControlOf<QLabel>(*dialog, "lblWhat").text(), "* Tth");
    EXPECT_EQ(ControlOf<QPushButton>(*dialog, "cmdGetAll").text(), "Gesamte Messdauer");
    EXPECT_EQ(ControlOf<QPushButton>(*dialog, "cmdOK").text(), "OK");
    EXPECT_EQ(ControlOf<QPushButton>(*dialog, "cmdAbort").text(), "Abbrechen");
}

TEST_F(FormH9Test, Open_LeavesAGapBetweenTheButtons)
{
    OpenWithMachine();
    const QRect ok = ControlOf<QPushButton>(*dialog, "cmdOK").geometry();
    EXPECT_GT(ControlOf<QPushButton>(*dialog, "cmdAbort").x() - ok.right() - 1, 0);
}

TEST_F(FormH9Test, Open_SplitsTheLengthIntoTwoDigitsEach)
{
    struct Case
    {
        double seconds;
        const char* shown;
    };
    for (const Case c : {Case{900, "00:15:00"}, Case{3661, "01:01:01"}, Case{359999, "99:59:59"}, Case{1, "00:00:01"},
                         Case{400'000, "11:06:40"}, Case{-5, "00:00:00"}}) {
        settings->SetTWindowSize(c.seconds);
        Open();
        EXPECT_EQ(ShownTime(), c.shown);
    }
}

TEST_F(FormH9Test, Open_ShowsTheFactorInTheLocalFormat)
{
    settings->SetTWindowFactor(2.5);
    Open();
    EXPECT_EQ(Factor().text(), "2,5");
}

TEST_F(FormH9Test, Buttons_StandApart)
{
    Open();
    const QRect ok = ControlOf<QPushButton>(*dialog, "cmdOK").geometry();
    const QRect abort = ControlOf<QPushButton>(*dialog, "cmdAbort").geometry();
    EXPECT_GE(abort.left() - ok.right(), 6);
    EXPECT_EQ(abort.top(), ok.top());
}

TEST_F(FormH9Test, EveryBox_HasANameForAScreenReader)
{
    Open();
    EXPECT_EQ(Factor().accessibleName(), "Thermische Zeitkonstante:");
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(Time(i).accessibleName(), QStringList({"h", "min", "s"}).at(i));
}

TEST_F(FormH9Test, WithoutATimeConstant_ItCanNotBeChosen)
{
    settings->SetTWindowSelection(1);
    Open();
    EXPECT_FALSE(Option(1).isEnabled());
    EXPECT_TRUE(Option(0).isChecked());
    EXPECT_EQ(settings->TWindowSelection(), 0) << "and the choice has fallen back";
    OpenProjectOf(2);
    App().bModelValid = false;
    Open();
    EXPECT_FALSE(Option(1).isEnabled()) << "a machine whose data are not valid";
}

TEST_F(FormH9Test, Option_EnablesItsOwnControls)
{
    settings->SetTWindowSelection(1);
    OpenWithMachine();
    const auto areEnabled = [this](std::initializer_list<const char*> names) {
        for (const char* name : names)
            if (!ControlOf<QWidget>(*dialog, name).isEnabled())
                return false;
        return true;
    };
    const auto byHand = {"txtTime_0",   "txtTime_1",   "txtTime_2", "lblSpacer_0",
                         "lblSpacer_1", "lblSpacer_2", "cmdGetAll"};
    const auto thermal = {"txtThermic", "lblWhat"};
    EXPECT_TRUE(areEnabled(thermal));
    for (const char* name : byHand)
        EXPECT_FALSE(areEnabled({name})) << name;
    Option(0).click();
    EXPECT_TRUE(areEnabled(byHand));
    for (const char* name : thermal)
        EXPECT_FALSE(areEnabled({name})) << name;
}

TEST_F(FormH9Test, Time_IsKeptWithinItsLimitsOnEveryChange)
{
    struct Case
    {
        int box;
        const char* typed;
        const char* shown;
    };
    const Case cases[] = {
        {0, "99", "99"},     {0, "100", "99"},    {1, "60", "59"},   {2, "60", "59"},  {2, "59", "59"},
        {0, "-1", "0"},      {1, "abc", ""},      {1, "-", ""},      {2, "1e9", "59"}, {0, "nan", ""},
        {0, "inf", ""},      {1, "5 5", ""},      {0, "99,5", "99"}, {0, "1e400", ""}, {1, "--3", ""},
        {2, "12,7", "12,7"}, {2, "12.7", "12.7"}, {0, "\u0665", ""}, {1, "0x1F", ""},
    };
    Open();
    for (const Case& c : cases) {
        Time(c.box).setText(QString::fromUtf8(c.typed));
        EXPECT_EQ(Time(c.box).text(), c.shown) << c.typed;
    }
}

TEST_F(FormH9Test, Time_IsPaddedOnLeaving)
{
    struct Case
    {
        const char* typed;
        const char* shown;
    };
    Open();
    for (const Case c : {Case{"5", "05"}, Case{"", "00"}, Case{"12", "12"}, Case{"007", "07"}, Case{"7,9", "07"}}) {
        Time(1).setText(QLatin1String(c.typed));
        Leave(Time(1));
        EXPECT_EQ(Time(1).text(), c.shown) << c.typed;
    }
}

TEST_F(FormH9Test, Factor_BecomesOneIfItIsNone)
{
    OpenWithMachine();
    Option(1).click();
    for (const char* text : {"", "abc", "0", "-2", "nan", "inf", "1e400", "3 3"}) {
        Factor().setText(QLatin1String(text));
        Leave(Factor());
        EXPECT_EQ(Factor().text(), "1") << text;
    }
    Factor().setText(QStringLiteral("0.5"));
    Leave(Factor());
    EXPECT_EQ(Factor().text(), "0.5");
}

TEST_F(FormH9Test, WholeTerm_IsTheTimeOfTheLastSetAndOneInterval)
{
    OpenProjectOf(0);
    App().dInterval = 2;
    StoreNumbered(1800);
    Open();
    Press("cmdGetAll");
    EXPECT_EQ(ShownTime(), "01:00:00");
}

TEST_F(FormH9Test, WholeTerm_OfMoreThanNinetyNineHoursEndsAtTheLimitOfTheHours)
{
    OpenProjectOf(0);
    App().dInterval = 300000;
    StoreNumbered(3);
    Open();
    Press("cmdGetAll");
    EXPECT_EQ(ShownTime(), "99:00:00");
}

TEST_F(FormH9Test, WholeTerm_WithoutSetsDoesNothing)
{
    OpenProjectOf(0);
    Open();
    Press("cmdGetAll");
    EXPECT_EQ(ShownTime(), "00:15:00");
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(FormH9Test, Ok_StoresTheLengthByHand)
{
    App().bEvaluated = 1;
    Open();
    Time(0).setText(QStringLiteral("1"));
    Time(1).setText(QStringLiteral("2,9"));
    Time(2).setText(QStringLiteral("3"));
    Press("cmdOK");
    EXPECT_EQ(dialog->result(), QDialog::Accepted);
    EXPECT_EQ(settings->TWindowSize(), 3723) << "a fraction does not count";
    EXPECT_EQ(settings->TWindowSelection(), 0);
    EXPECT_EQ(settings->TWindowFactor(), 3);
    EXPECT_FALSE(App().bEvaluated);
    EXPECT_EQ(clsProgSettings(folder.path()).TWindowSize(), 3723) << "for the next start too";
}

TEST_F(FormH9Test, Ok_StoresTheFactorOfTheBoxThatHasTheFocus)
{
    OpenWithMachine();
    Option(1).click();
    Factor().setText(QStringLiteral("0,25"));
    PressKey(Factor(), Qt::Key_Return);
    EXPECT_EQ(dialog->result(), QDialog::Accepted);
    EXPECT_EQ(settings->TWindowFactor(), 0.25);
    EXPECT_EQ(settings->TWindowSelection(), 1);
    EXPECT_EQ(settings->TWindowSize(), 900);
}

TEST_F(FormH9Test, Ok_ReplacesAFactorThatIsNone)
{
    OpenWithMachine();
    Option(1).click();
    Factor().setText(QStringLiteral("x"));
    Press("cmdOK");
    EXPECT_EQ(settings->TWindowFactor(), 1);
}

TEST_F(FormH9Test, Ok_LeavesNeitherWithoutAnExtent)
{
    settings->SetTWindowFactor(-4);
    Open();
    for (int i = 0; i < 3; ++i)
        Time(i).setText(QStringLiteral("0"));
    Press("cmdOK");
    EXPECT_EQ(settings->TWindowSize(), 1);
    EXPECT_EQ(settings->TWindowFactor(), 1) << "although it was not chosen";
}

TEST_F(FormH9Test, Cancel_StoresNothing)
{
    App().bEvaluated = 1;
    Open();
    Time(0).setText(QStringLiteral("7"));
    Press("cmdAbort");
    EXPECT_EQ(dialog->result(), QDialog::Rejected);
    EXPECT_EQ(settings->TWindowSize(), 900);
    EXPECT_TRUE(App().bEvaluated);
}

} // namespace
} // namespace korvanel::test
