// The options of the evaluation: reading of typed numbers, rounding, range, storing.
#include "evaluation/FormH10.h"

#include "support/Keys.h"
#include "support/ResultPageFixture.h"

#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>

#include <limits>

namespace korvanel::test {
namespace {

class FormH10Test : public ResultPageTest
{
protected:
    FormH10Test() { Open(); }
    void Open()
    {
        dialog = std::make_unique<FormH10>(nullptr);
        dialog->show();
    }
    QLineEdit& Box(const char* name) { return ControlOf<QLineEdit>(*dialog, name); }
    void Press(const char* button) { ControlOf<QPushButton>(*dialog, button).click(); }
    QString LeftWith(const char* name, const char* text)
    {
        Box(name).setText(QString::fromUtf8(text));
        QFocusEvent focusOut(QEvent::FocusOut, Qt::TabFocusReason);
        QApplication::sendEvent(&Box(name), &focusOut);
        return Box(name).text();
    }

    std::unique_ptr<FormH10> dialog;
};

TEST_F(FormH10Test, Open_ShowsTextsAndOptions)
{
    EXPECT_EQ(dialog->windowTitle(), "Optionen");
    QStringList texts;
    for (const QGroupBox* group : dialog->findChildren<QGroupBox*>())
        texts << group->title();
    for (const QLabel* label : dialog->findChildren<QLabel*>())
        texts << label->text();
    for (const char* text : {"Energiekosten", "Sonstiges", "Verbrauch / kWh:", "Lieferung / kWh:", "Verbrauch / kvarh:",
                             "Währung:", "Anzahl der Zyklen:"})
        EXPECT_TRUE(texts.contains(QString::fromUtf8(text))) << text;
    EXPECT_EQ(ControlOf<QPushButton>(*dialog, "cmdOK").text(), "OK");
    EXPECT_EQ(ControlOf<QPushButton>(*dialog, "cmdAbort").text(), "Abbrechen");
    EXPECT_EQ(Box("txtKosten_0").text(), "0,15");
    EXPECT_EQ(Box("txtKosten_1").text(), "0,07");
    EXPECT_EQ(Box("txtKosten_2").text(), "0,03");
    EXPECT_EQ(Box("txtWaehrung").text(), "€");
    EXPECT_EQ(Box("txtZyklen").text(), "10");
}

TEST_F(FormH10Test, LeavingABox_ReadsTheNumberAtItsBeginning)
{
    struct Case
    {
        const char* typed;
        const char* shown;
    };
    const Case cases[] = {
        {"0,25", "0,25"}, {"0.25", "0,25"}, {"12 Cent", "12"}, {"abc", "0"},    {"", "0"},      {"-0,5", "-0,5"},
        {"1,2,3", "1,2"}, {"  7", "7"},     {"+3", "3"},       {"1e3", "1000"}, {"1e400", "0"}, {"nan", "0"},
        {"inf", "0"},     {"0x10", "0"},    {",5", "0,5"},     {"\u0661", "0"},
    };
    for (const char* box : {"txtKosten_0", "txtKosten_1", "txtKosten_2", "txtZyklen"})
        for (const Case& c : cases)
            EXPECT_EQ(LeftWith(box, c.typed), c.shown) << box << ' ' << c.typed;
}

TEST_F(FormH10Test, Ok_StoresEverythingAndAsksForANewPass)
{
    App().bEvaluated = 1;
    LeftWith("txtKosten_0", "0,3");
    LeftWith("txtKosten_1", "-0,1");
    LeftWith("txtKosten_2", "0");
    Box("txtWaehrung").setText(QStringLiteral(" SFr # "));
    LeftWith("txtZyklen", "250");
    Press("cmdOK");
    EXPECT_EQ(dialog->result(), QDialog::Accepted);
    const clsProgSettings stored(folder.path());
    EXPECT_EQ(stored.EnergyCosts(0), 0.3);
    EXPECT_EQ(stored.EnergyCosts(1), -0.1) << "no range is set to prices";
    EXPECT_EQ(stored.EnergyCosts(2), 0);
    EXPECT_EQ(stored.UsedCurrency(), " SFr # ") << "as it stands";
    EXPECT_EQ(stored.Cycles(), 250);
    EXPECT_FALSE(App().bEvaluated);
}

TEST_F(FormH10Test, Cycles_AreRoundedHalfToEven)
{
    struct Case
    {
        const char* typed;
        qint32 stored;
    };
    for (const Case c : {Case{"2,5", 2}, Case{"3,5", 4}, Case{"2,4", 2}, Case{"2,6", 3}, Case{"-2,5", -2}, Case{"0", 0},
                         Case{"0,5", 0}, Case{"2147483647", std::numeric_limits<qint32>::max()},
                         Case{"2147483647,4", std::numeric_limits<qint32>::max()},
                         Case{"-2147483648", std::numeric_limits<qint32>::min()}}) {
        Open();
        LeftWith("txtZyklen", c.typed);
        Press("cmdOK");
        EXPECT_EQ(dialog->result(), QDialog::Accepted) << c.typed;
        EXPECT_EQ(settings->Cycles(), c.stored) << c.typed;
    }
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(FormH10Test, CyclesBeyondTheirRange_AreToldAndTheDialogStays)
{
    App().bEvaluated = 1;
    for (const char* text : {"2147483648", "-2147483649", "1e300", "2147483647,5"}) {
        shell.boxes.clear();
        LeftWith("txtKosten_0", "9");
        LeftWith("txtZyklen", text);
        Press("cmdOK");
        ASSERT_EQ(shell.boxes.size(), 1U) << text;
        EXPECT_EQ(shell.boxes[0].text,
                  "Der eingegebene Wert muss sich\nzwischen -2147483648 und 2147483647  befinden.");
        EXPECT_TRUE(dialog->isVisible()) << text;
    }
    EXPECT_EQ(settings->Cycles(), 10);
    EXPECT_EQ(settings->EnergyCosts(0), 0.15) << "nothing is stored by halves";
    EXPECT_TRUE(App().bEvaluated);
}

TEST_F(FormH10Test, Enter_TakesTheBoxThatHasTheFocus)
{
    Box("txtKosten_1").setText(QStringLiteral("0.9 je kWh"));
    PressKey(Box("txtKosten_1"), Qt::Key_Return);
    EXPECT_EQ(dialog->result(), QDialog::Accepted);
    EXPECT_EQ(settings->EnergyCosts(1), 0.9);
}

TEST_F(FormH10Test, Ok_KeepsTheDigitsOfAPriceThatWasNotTouched)
{
    settings->SetEnergyCosts(0, 1.0 / 3);
    Open();
    LeftWith("txtZyklen", "3");
    Press("cmdOK");
    EXPECT_EQ(settings->EnergyCosts(0), 1.0 / 3);
}

TEST_F(FormH10Test, Cancel_StoresNothing)
{
    App().bEvaluated = 1;
    LeftWith("txtKosten_0", "5");
    LeftWith("txtZyklen", "5");
    Press("cmdAbort");
    EXPECT_EQ(dialog->result(), QDialog::Rejected);
    EXPECT_EQ(settings->EnergyCosts(0), 0.15);
    EXPECT_EQ(settings->Cycles(), 10);
    EXPECT_TRUE(App().bEvaluated);
}

} // namespace
} // namespace korvanel::test
