// Choosing the second machine: list, search, refusals, and what is accepted.
#include "simulation/FormH12.h"

#include "simulation/SimulationPageFixture.h"
#include "support/Keys.h"

#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>

namespace korvanel::test {
namespace {

const QString kNeedsRating = QStringLiteral("Bitte wählen Sie eine Maschine von der die Nenndaten bekannt sind!");

class FormH12Test : public SimulationPageTest
{
protected:
    /// Opens the dialog over the window; true if it is accepted.
    bool Open(std::function<void(FormH12&)> action)
    {
        WithNextDialog<FormH12>(std::move(action));
        return window.ShowDialog(kDialogSecondMachine);
    }
    static QTableWidget& Grid(const FormH12& dialog) { return ControlOf<QTableWidget>(dialog, "GridBemess"); }
    /// Remarks of the machines in the list, in order.
    static QStringList Listed(const FormH12& dialog)
    {
        constexpr int kRemark = 9;
        QStringList remarks;
        for (int row = 0; row < Grid(dialog).rowCount(); ++row)
            remarks << CellOf(dialog, "GridBemess", row, kRemark);
        return remarks;
    }
    static void Search(const FormH12& dialog, const std::array<const char*, 4>& numbers, const QString& comment = {})
    {
        for (std::size_t i = 0; i < numbers.size(); ++i)
            ControlOf<QLineEdit>(dialog, QStringLiteral("txtSearch_%1").arg(i).toUtf8().constData())
                .setText(QString::fromUtf8(numbers.at(i)));
        ControlOf<QLineEdit>(dialog, "txtComment").setText(comment);
        Press(dialog, "cmdSearch");
    }
    static void Choose(const FormH12& dialog, int row)
    {
        Grid(dialog).selectRow(row);
        Press(dialog, "cmdOK");
    }
    QString SimulatedRows() { return Query("SELECT count(*) FROM SimulatedValues"); }

    const QStringList all{"Werk B", "Werk A", "Generator", "Ohne Nenndaten"};
};

TEST_F(FormH12Test, Open_ShowsTextsAndMachinesInTheirOrder)
{
    OpenWithSets(5);
    EXPECT_FALSE(Open([this](FormH12& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Simulation - ASM Auswahl");
        EXPECT_EQ(ControlOf<QGroupBox>(dialog, "fraSearch").title(), "Suchen");
        EXPECT_EQ(ControlOf<QPushButton>(dialog, "cmdSearch").text(), "Suchen");
        EXPECT_EQ(ControlOf<QPushButton>(dialog, "cmdAbort").text(), "Abbrechen");
        QStringList labels;
        for (const QLabel* label : ControlOf<QGroupBox>(dialog, "fraSearch").findChildren<QLabel*>())
            labels << label->text();
        EXPECT_EQ(labels,
                  (QStringList{"Polpaare", "=", "Pmech [kW]", ">=", "U [V]", "=", "f [Hz]", "=", "Bemerkungen", "="}));
        EXPECT_EQ(Listed(dialog), all);
        EXPECT_EQ(Grid(dialog).currentRow(), 0) << "without a second machine the first one";
        TakePicture(dialog, "FormH12");
        Press(dialog, "cmdAbort");
    }));
    EXPECT_FALSE(App().bASMSim);
    EXPECT_FALSE(App().bProjectDirty);
    EXPECT_FALSE(App().MachineII.record.Pmech);
    EXPECT_EQ(Query("SELECT count(*) FROM sqlite_master WHERE name IN ('SimulatedValues','Motor')"), "0");
}

TEST_F(FormH12Test, Open_SelectsThePresentSecondMachine)
{
    OpenWithSets(5);
    App().MachineII.record = KnownMachine();
    App().MachineII.record.set_ID = 1;
    Open([](FormH12& dialog) {
        EXPECT_EQ(Grid(dialog).currentRow(), 1);
        dialog.reject();
    });
}

TEST_F(FormH12Test, Search_LeavesEmptyFieldsOut)
{
    OpenWithSets(5);
    const struct
    {
        std::array<const char*, 4> numbers;
        const char* comment;
        QStringList found;
    } cases[] = {
        {{"2", "", "", ""}, "", {"Werk B", "Werk A"}},
        {{"", "7,6", "", ""}, "", {"Werk A"}},
        {{"", "7.5", "", ""}, "", {"Werk B", "Werk A", "Ohne Nenndaten"}},
        {{"", "", "690", ""}, "", {"Generator"}},
        {{"", "", "", " 50 "}, "", {"Werk B", "Werk A", "Ohne Nenndaten"}},
        {{"", "", "", ""}, "Werk A", {"Werk A"}},
        {{"2", "7,5", "400", "50"}, "Werk B", {"Werk B"}},
        {{"", "", "", ""}, " ", {"Werk B", "Werk A", "Generator", "Ohne Nenndaten"}},
    };
    Open([&cases](FormH12& dialog) {
        for (const auto& c : cases) {
            Search(dialog, c.numbers, QString::fromUtf8(c.comment));
            EXPECT_EQ(Listed(dialog), c.found);
            EXPECT_EQ(Grid(dialog).currentRow(), 0);
        }
        dialog.reject();
    });
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(FormH12Test, Search_ForAGeneratorTurnsTheRelationOfThePower)
{
    OpenWithSets(5);
    App().MachineI.record.Pmech = -18500;
    Open([](FormH12& dialog) {
        QStringList labels;
        for (const QLabel* label : dialog.findChildren<QLabel*>())
            labels << label->text();
        EXPECT_TRUE(labels.contains("<="));
        EXPECT_FALSE(labels.contains(">="));
        Search(dialog, {"", "-5", "", ""});
        EXPECT_EQ(Listed(dialog), QStringList{"Generator"});
        dialog.reject();
    });
}

TEST_F(FormH12Test, Search_WithoutAMachineKeepsTheLastList)
{
    OpenWithSets(5);
    Open([this](FormH12& dialog) {
        Search(dialog, {"2", "", "", ""});
        Grid(dialog).selectRow(1);
        Search(dialog, {"7", "", "", ""});
        EXPECT_EQ(shell.BoxTexts(), QStringList{"Keine Datensätze gefunden!"});
        EXPECT_EQ(Listed(dialog), (QStringList{"Werk B", "Werk A"}));
        EXPECT_EQ(Grid(dialog).currentRow(), 1);
        dialog.reject();
    });
}

TEST_F(FormH12Test, Search_TellsATextThatIsNoNumber)
{
    OpenWithSets(5);
    const struct
    {
        std::array<const char*, 4> numbers;
        const char* message;
        const char* focused;
    } cases[] = {
        {{"zwei", "", "", ""}, "Bitte Polpaarzahl eingeben", "txtSearch_0"},
        {{"2,5", "", "", ""}, "Bitte Polpaarzahl eingeben", "txtSearch_0"},
        {{"99999999999", "", "", ""}, "Bitte Polpaarzahl eingeben", "txtSearch_0"},
        {{"2", "5 kW", "", ""}, "Bitte Pmech eingeben", "txtSearch_1"},
        {{"", "", "400 OR 1=1", ""}, "Bitte U eingeben", "txtSearch_2"},
        {{"", "", "", "nan"}, "Bitte f eingeben", "txtSearch_3"},
    };
    Open([&](FormH12& dialog) {
        for (const auto& c : cases) {
            shell.boxes.clear();
            Search(dialog, c.numbers);
            EXPECT_EQ(shell.BoxTexts(), QStringList{c.message});
            EXPECT_EQ(dialog.focusWidget(), &ControlOf<QLineEdit>(dialog, c.focused)) << c.message;
            EXPECT_EQ(Listed(dialog), all);
        }
        dialog.reject();
    });
}

TEST_F(FormH12Test, Enter_SearchesInAFieldAndTakesTheMachineElsewhere)
{
    OpenWithSets(5);
    QApplication::setActiveWindow(&window);
    EXPECT_TRUE(Open([](FormH12& dialog) {
        QApplication::setActiveWindow(&dialog);
        auto& field = ControlOf<QLineEdit>(dialog, "txtSearch_2");
        field.setFocus();
        TypeKeys(field, "690");
        PressKey(field, Qt::Key_Return);
        EXPECT_EQ(Listed(dialog), QStringList{"Generator"});
        EXPECT_TRUE(dialog.isVisible());
        Grid(dialog).setFocus();
        PressKey(Grid(dialog), Qt::Key_Return);
        EXPECT_FALSE(dialog.isVisible());
    }));
    EXPECT_EQ(App().MachineII.record.Hersteller, "Generator");
}

TEST_F(FormH12Test, Ok_RefusesAMachineWithoutRatingData)
{
    OpenWithSets(5);
    for (const char* column : {"Pmech", "n", "U", "I", "f", "cosphi"}) {
        shell.boxes.clear();
        ExecuteMotors("UPDATE Motor SET cosphi=0.8, Pmech=7.5, n=700, U=400, I=15, f=50 WHERE set_ID=4");
        ExecuteMotors(QStringLiteral("UPDATE Motor SET %1=NULL WHERE set_ID=4").arg(QLatin1String(column)));
        EXPECT_FALSE(Open([](FormH12& dialog) {
            Choose(dialog, 3);
            EXPECT_TRUE(dialog.isVisible());
            dialog.reject();
        }));
        EXPECT_EQ(shell.BoxTexts(), QStringList{kNeedsRating}) << column;
        EXPECT_FALSE(App().bASMSim) << column;
        EXPECT_FALSE(App().bProjectDirty) << column;
        EXPECT_FALSE(App().MachineII.record.U) << column;
    }
}

TEST_F(FormH12Test, Ok_TakesTheMachineAndRunsItOverTheSets)
{
    OpenWithSets(5);
    App().bEvaluated = 1;
    const quint64 formerState = App().lRecordingState;
    EXPECT_TRUE(Open([](FormH12& dialog) {
        Choose(dialog, 0);
        EXPECT_FALSE(dialog.isVisible());
    }));
    EXPECT_TRUE(shell.boxes.empty());
    EXPECT_TRUE(App().bASMSim);
    EXPECT_TRUE(App().bProjectDirty);
    EXPECT_EQ(App().MachineII.record.set_ID, 2);
    EXPECT_EQ(App().MachineII.record.Pmech, 7500);
    EXPECT_EQ(Query("SELECT Hersteller FROM Motor WHERE set_ID=2"), "Werk B");
    EXPECT_EQ(SimulatedRows(), "5");
    EXPECT_EQ(App().MachineII.evaluation.lSets, 5);
    EXPECT_EQ(App().bEvaluated, 1) << "the measured machine is the same";
    EXPECT_NE(App().lRecordingState, formerState) << "what was read of the simulated sets before is no more";
    EXPECT_EQ(App().lSimulationState, App().lRecordingState);
    EXPECT_EQ(shell.waiting, 0);
}

TEST_F(FormH12Test, DoubleClick_TakesTheMachineOfTheRow)
{
    OpenWithSets(5);
    EXPECT_TRUE(Open([](FormH12& dialog) {
        QTableWidget& grid = Grid(dialog);
        const QPoint cell = grid.visualItemRect(grid.item(1, 1)).center();
        QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, cell);
        QTest::mouseDClick(grid.viewport(), Qt::LeftButton, {}, cell);
        EXPECT_FALSE(dialog.isVisible());
    }));
    EXPECT_EQ(App().MachineII.record.Hersteller, "Werk A");
}

TEST_F(FormH12Test, TheSameMachineAgain_RunsAnewOverAllSets)
{
    OpenWithSets(5);
    Open([](FormH12& dialog) { Choose(dialog, 0); });
    Execute("UPDATE SimulatedValues SET [P sum]=1");
    EXPECT_TRUE(Open([](FormH12& dialog) { Press(dialog, "cmdOK"); }));
    EXPECT_EQ(SimulatedRows(), "5");
    EXPECT_EQ(Query("SELECT count(*) FROM SimulatedValues WHERE [P sum]=1"), "0");
    EXPECT_EQ(App().MachineII.record.Hersteller, "Werk B");
}

TEST_F(FormH12Test, AMachineThatCannotBePrepared_IsTakenWithoutSets)
{
    OpenWithSets(5);
    Open([](FormH12& dialog) { Choose(dialog, 0); });
    ExecuteMotors("UPDATE Motor SET n=9000 WHERE set_ID=1");
    EXPECT_TRUE(Open([](FormH12& dialog) { Choose(dialog, 1); }));
    EXPECT_EQ(shell.boxes.size(), 1U);
    EXPECT_TRUE(App().bASMSim);
    EXPECT_EQ(App().MachineII.record.Hersteller, "Werk A");
    EXPECT_EQ(SimulatedRows(), "0");
    EXPECT_EQ(App().MachineII.evaluation.lSets, 0);
}

class FormH12Failure : public FormH12Test
{
protected:
    /// The machine of 7.5 kW is the second one, with its sets, and everything is stored.
    void TakeFirst()
    {
        OpenWithSets(5);
        Open([](FormH12& dialog) { Choose(dialog, 0); });
        App().bProjectDirty = false;
        App().bEvaluated = 1;
        formerPower = Query("SELECT sum([P sum]) FROM SimulatedValues");
    }
    void ExpectNothingChanged()
    {
        EXPECT_TRUE(App().bASMSim);
        EXPECT_FALSE(App().bProjectDirty);
        EXPECT_EQ(App().bEvaluated, 1);
        EXPECT_EQ(App().MachineII.record.Hersteller, "Werk B");
        EXPECT_EQ(App().MachineII.evaluation.lSets, 5);
        EXPECT_EQ(App().lSimulationState, App().lRecordingState);
        EXPECT_EQ(Query("SELECT Hersteller FROM Motor WHERE set_ID=2"), "Werk B");
        EXPECT_EQ(Query("SELECT sum([P sum]) FROM SimulatedValues"), formerPower);
    }
    QString formerPower;
};

TEST_F(FormH12Failure, DatabaseThatVanished_IsToldAndChangesNothing)
{
    TakeFirst();
    EXPECT_FALSE(Open([this](FormH12& dialog) {
        QFile::remove(App().sMotorDbPath);
        Choose(dialog, 1);
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_EQ(shell.boxes.size(), 1U);
        dialog.reject();
    }));
    ExpectNothingChanged();
}

TEST_F(FormH12Failure, MachineThatWasDeleted_IsToldAndChangesNothing)
{
    TakeFirst();
    EXPECT_FALSE(Open([this](FormH12& dialog) {
        ExecuteMotors("DELETE FROM Motor WHERE set_ID=1");
        Choose(dialog, 1);
        EXPECT_TRUE(dialog.isVisible());
        dialog.reject();
    }));
    EXPECT_EQ(shell.BoxTexts(), QStringList{"Der Datensatz 1 ist nicht vorhanden."});
    ExpectNothingChanged();
}

TEST_F(FormH12Failure, ValueOfAnotherType_IsToldAndChangesNothing)
{
    TakeFirst();
    EXPECT_FALSE(Open([this](FormH12& dialog) {
        ExecuteMotors("UPDATE Motor SET U='viel' WHERE set_ID=1");
        Choose(dialog, 1);
        EXPECT_TRUE(dialog.isVisible());
        dialog.reject();
    }));
    EXPECT_EQ(shell.boxes.size(), 1U);
    ExpectNothingChanged();
}

TEST_F(FormH12Failure, ProjectThatCannotBeWritten_IsToldAndChangesNothing)
{
    TakeFirst();
    {
        SQLite::Database other(App().sProjectPath.toStdString(), SQLite::OPEN_READWRITE);
        other.exec("BEGIN EXCLUSIVE");
        EXPECT_FALSE(Open([](FormH12& dialog) {
            Choose(dialog, 1);
            EXPECT_TRUE(dialog.isVisible());
            dialog.reject();
        }));
    }
    ASSERT_EQ(shell.boxes.size(), 1U);
    EXPECT_TRUE(shell.boxes.front().text.startsWith("Die zweite Maschine konnte nicht übernommen werden."));
    ExpectNothingChanged();
}

TEST_F(FormH12Failure, SetsThatCannotBeRead_AreToldAndChangeNothing)
{
    TakeFirst();
    Execute("ALTER TABLE ComputedValues RENAME COLUMN M TO Moment");
    Open([](FormH12& dialog) { Choose(dialog, 1); });
    EXPECT_EQ(shell.boxes.size(), 1U);
    ExpectNothingChanged();
}

TEST_F(FormH12Failure, AResultThatIsNotFinite_IsToldAndChangesNothing)
{
    TakeFirst();
    Execute("UPDATE ComputedValues SET M=1e308 WHERE [Set]=3");
    Open([](FormH12& dialog) { Choose(dialog, 1); });
    EXPECT_EQ(shell.boxes.size(), 1U);
    ExpectNothingChanged();
}

TEST_F(FormH12Failure, NoDatabase_OpensAnEmptyListWithoutOk)
{
    OpenWithSets(5);
    QFile::remove(App().sMotorDbPath);
    EXPECT_FALSE(Open([this](FormH12& dialog) {
        EXPECT_EQ(shell.boxes.size(), 1U);
        EXPECT_EQ(Listed(dialog), QStringList());
        EXPECT_FALSE(ControlOf<QPushButton>(dialog, "cmdOK").isEnabled());
        Search(dialog, {"2", "", "", ""});
        EXPECT_EQ(shell.boxes.size(), 2U);
        Press(dialog, "cmdAbort");
    }));
}

TEST_F(FormH12Test, NoSets_TakesTheMachineWithEmptyResults)
{
    OpenWithSets(0);
    EXPECT_TRUE(Open([](FormH12& dialog) { Choose(dialog, 0); }));
    EXPECT_TRUE(shell.boxes.empty());
    EXPECT_TRUE(App().bASMSim);
    EXPECT_EQ(SimulatedRows(), "0");
    EXPECT_EQ(App().MachineII.evaluation.lSets, 0);
}

} // namespace
} // namespace korvanel::test
