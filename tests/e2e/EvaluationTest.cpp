// A recorded cycle in the real program: evaluated on entering the page, shown on every tab, written through the button.
#include "e2e/RecordingFixture.h"
#include "motors/MotorDatabase.h"
#include "support/ProjectFixture.h"
#include "support/WorkedExample.h"

namespace korvanel::test {
namespace {

class EvaluationProgram : public ProjectTest
{
protected:
    EvaluationProgram()
    {
        qputenv("XDG_CONFIG_HOME", PathOf("settings").toUtf8()); // those of the program
        options.emplace(App().sProgramDir);
        App().ProgSettings = &*options;
    }
    void OpenExample()
    {
        CreateProject(2, "Lastspiel.MDB");
        PutExample(*options);
        ASSERT_TRUE(CopyMachineIntoProject(App().MachineI.record, WhichMachine::I));
        ASSERT_TRUE(SaveProject());
        OpenProjectWithMachine(program, App().sProjectPath);
    }
    void OpenResults()
    {
        program.Trigger("mnuResTable");
        program.WaitForControl("FormF6");
    }
    /// A cell of a table of the page; with the heading of the block that holds the row, and the row's first cells.
    QString Cell(const QString& table, const QString& heading, const QStringList& name, int column)
    {
        bool isInBlock = false;
        for (const QJsonValue& entry : program.Read(table)["cells"].toArray()) {
            QStringList cells;
            for (const QJsonValue& cell : entry.toArray())
                cells << cell.toString();
            if (cells.mid(1).join(QString()).isEmpty())
                isInBlock = cells.front() == heading;
            else if (isInBlock && cells.mid(0, name.size()) == name)
                return cells.at(column);
        }
        return QStringLiteral("no such row");
    }
    int End()
    {
        program.Trigger("mnuEnd");
        return program.WaitForEnd();
    }

    std::optional<clsProgSettings> options;
    ProgramDriver program{PathOf("settings")};
};

TEST_F(EvaluationProgram, EnteringThePage_EvaluatesTheRecording)
{
    OpenExample();
    OpenResults();
    EXPECT_EQ(Cell("flxExtrem", "Satz mit dem global kleinsten/größten Zahlenwert", {"Pel", ""}, 2), "-3000 W");
    EXPECT_EQ(Cell("flxExtrem", "Quadratischer Mittelwert (rms) im Zeitfenster", {"I", "rms"}, 4), "30,353 A");
    EXPECT_EQ(Cell("flxExtrem", "Quadratischer Mittelwert (rms) im Zeitfenster", {"I", "rms"}, 5), "1 - 3");
    EXPECT_EQ(Cell("flxEnergy", "Energie für 1 Messzyklus", {"Wel", "M/G"}, 2), "0,738 kWh");
    EXPECT_EQ(Cell("flxEnergy", "Energiekosten für 1000 Messzyklen", {"Wel", "M/G"}, 4), "107,25 €");
    EXPECT_EQ(Cell("flxASM", "Auslastungswerte im Zeitfenster", {"I", "rms"}, 3), "92,4 % (I n)");
    EXPECT_EQ(Cell("flxASM", "Auslastungswerte im Zeitfenster", {"I", "rms"}, 5), "mittel");
    EXPECT_TRUE(program.Text("lblCorrected").startsWith("* korregierte Datensätze, Anzahl:"));
    EXPECT_TRUE(program.Text("lblCorrected").endsWith("1"));
    EXPECT_EQ(End(), 0);
}

/// The pictures stay where KORVANEL_PICTURES names a folder: those of the document are made so.
TEST_F(EvaluationProgram, EveryTab_IsShown)
{
    OpenExample();
    OpenResults();
    program.Trigger("chkValue_1"); // the tables alone
    const QDir kept(qEnvironmentVariable("KORVANEL_PICTURES", folder.path()));
    const QStringList names{"uebersicht", "extremwerte", "energie", "auslastung", "zweite-maschine"};
    const QJsonArray tabs = program.Read("TabEvaluation")["items"].toArray();
    ASSERT_EQ(tabs.size(), names.size());
    for (qsizetype i = 0; i < tabs.size(); ++i) {
        program.Choose("TabEvaluation", tabs[i].toString());
        const QString file = kept.filePath(QStringLiteral("auswertung-") + names[i] + ".png");
        program.Grab("FormF6", file);
        EXPECT_GT(QFileInfo(file).size(), 0) << file.toStdString();
    }
    EXPECT_EQ(End(), 0);
}

TEST_F(EvaluationProgram, NewWindow_ChangesTheHeadingAtOnceAndTheValuesAtTheNextEntry)
{
    OpenExample();
    OpenResults();
    program.Trigger("cmdOptions_2");
    program.WaitForControl("FormH9");
    program.Type("txtTime_1", "00"); // one set alone
    program.Trigger("cmdOK");
    program.WaitUntilGone("FormH9");
    const QString block = QStringLiteral("Quadratischer Mittelwert (rms) im Zeitfenster");
    EXPECT_EQ(Cell("flxExtrem", block, {"I", "rms"}, 4), "30,353 A");
    program.Trigger("cmdBack");
    program.WaitUntilGone("FormF6");
    OpenResults();
    EXPECT_EQ(Cell("flxExtrem", block, {"I", "rms"}, 4), "42 A");
    EXPECT_EQ(Cell("flxExtrem", block, {"I", "rms"}, 5), "3 - 3");
    EXPECT_EQ(End(), 0);
}

TEST_F(EvaluationProgram, ExportButton_WritesTheRecordingAndTheTables)
{
    OpenExample();
    OpenResults();
    program.Trigger("cmdExcel");
    program.GivePath(PathOf("Lastspiel.txt"));
    program.WaitUntilEnabled("cmdExcel"); // the page is locked meanwhile
    const QByteArray content = ContentOf("Lastspiel.txt");
    EXPECT_TRUE(content.startsWith("\xEF\xBB\xBF"));
    const QString text = QString::fromUtf8(content.mid(3));
    EXPECT_TRUE(
        text.startsWith(QStringLiteral("Satz\tU [V]\tI [A]\tf [Hz]\tPel [W]\tQ [var]\tS [VA]\tPhi [°]\tcosphi\t")));
    EXPECT_TRUE(text.contains("\n3\t396\t42\t49,9\t25800\t12800\t28800\t26,4\t0,896\t1446\t152\t23,01\t0,892\t"));
    EXPECT_TRUE(text.contains("I\trms\t30,353 A\t92,4 % (I n)\t1 - 3\tmittel\t"));
    const QString kept =
        QSettings(PathOf("settings/KORVANEL/KORVANEL.ini"), QSettings::IniFormat).value("Settings/Export").toString();
    EXPECT_EQ(kept, PathOf(QString()) + '/');
    EXPECT_EQ(End(), 0);
}

} // namespace
} // namespace korvanel::test
