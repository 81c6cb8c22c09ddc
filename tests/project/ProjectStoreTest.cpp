#include "project/ProjectStore.h"

#include "core/LocalFormats.h"
#include "data/FileManaging.h"
#include "data/ValueTables.h"
#include "support/ProjectFixture.h"

#include <cmath>

namespace korvanel::test {
namespace {

struct StoredKey
{
    const char* table;
    const char* key;
    const char* column;
    const char* value;
};

class ProjectStore : public ProjectTest
{
protected:
    QString Stored(const char* table, const QString& key, const char* column) const
    {
        return Query(QStringLiteral("SELECT [%1] FROM [%2] WHERE Name='%3'")
                         .arg(QLatin1String(column), QLatin1String(table), key));
    }
    void Open()
    {
        OpenProject(App().sProjectPath);
        ASSERT_FALSE(App().bFileError);
    }
};

TEST_F(ProjectStore, NewProject_HasEveryKeyWithItsDefaultInTheColumnOfItsType)
{
    CreateProject(0);
    const StoredKey expected[] = {
        {"Overview", "Project Name", "Text", "Neues Projekt"},
        {"Overview", "Project Created", "Time", "2026-03-14 15:09:26"},
        {"Overview", "Project Saved", "Time", "2026-03-14 15:09:26"},
        {"Overview", "Company", "Text", "Ihre Firma"},
        {"Overview", "Editor", "Text", "Ihr Name"},
        {"Overview", "Description", "Text", "Hersteller:\nStandort:\nEinbaulage:\nweitere Angaben:"},
        {"Overview", "Measurement Begin", "Time", "1899-12-30 00:00:00"},
        {"Overview", "Measurement End", "Time", "1899-12-30 00:00:00"},
        {"Overview", "Measurement Term", "Text", ""},
        {"Overview", "Measurement Device ID", "Text", ""},
        {"Overview", "Measurement Device", "Text", ""},
        {"Overview", "Measurement Interval", "Decimal", "1.0"},
        {"Settings", "iNetConfIndex", "Number", "0"},
        {"Settings", "COM", "Number", "1"},
        {"Settings", "MODBUS", "Number", "33"},
        {"Settings", "Sound", "Number", "0"},
        {"Settings", "iCalcMethod", "Number", "1"},
        {"Settings", "PrintSetsOpt", "Number", "0"},
        {"Settings", "StartAtSet", "Number", "1"},
        {"Settings", "StopAtSet", "Number", "56"},
        {"Settings", "bASMSim", "Number", "0"},
        {"Settings", "dTransPrimary 0", "Decimal", "1.0"},
        {"Settings", "dTransSecondary 1", "Decimal", "1.0"},
        {"Settings", "ScaleEnds 0", "Decimal", "500.0"},
        {"Settings", "ScaleEnds 1", "Decimal", "10.0"},
        {"Settings", "ScaleEnds 2", "Decimal", "50.0"},
        {"Settings", "ScaleEnds 3", "Decimal", "100.0"},
        {"Settings", "ScaleEnds 4", "Decimal", "50.0"},
        {"Settings", "ScaleEnds 5", "Decimal", "5000.0"},
        {"Settings", "dTrigger 0", "Decimal", "0.0"},
        {"Settings", "dTrigger 1", "Decimal", "0.0"},
        {"Settings", "PrintIt 0", "Number", "1"},
        {"Settings", "PrintIt 15", "Number", "1"},
        {"Settings", "Export 0", "Number", "1"},
        {"Settings", "Export 1", "Number", "0"},
    };
    for (const StoredKey& key : expected)
        EXPECT_EQ(Stored(key.table, QLatin1String(key.key), key.column), QString::fromUtf8(key.value)) << key.key;
    EXPECT_EQ(Query("SELECT count(*) FROM Overview"), "12");
    EXPECT_EQ(Query("SELECT count(*) FROM Settings"), "139");
    EXPECT_EQ(Query("SELECT count(*) FROM Settings WHERE Text IS NOT NULL"), "0");
    EXPECT_EQ(
        Query("SELECT count(*) FROM Overview WHERE Text IS NOT NULL AND (Time IS NOT NULL OR Decimal IS NOT NULL)"),
        "0");
}

TEST_F(ProjectStore, NewProject_ChecksTheColumnsOfTheSumsAndTheNeutralCurrent)
{
    App().Checks[14] = 1; // these two keep what they had
    App().Checks[15] = 0;
    CreateProject(0);
    for (int i = 0; i < kQuantityCount; ++i) {
        const bool isChecked = i <= 14 || i == 37;
        EXPECT_EQ(Stored("Settings", QStringLiteral("Checks %1").arg(i), "Number"), isChecked ? "1" : "0") << i;
        EXPECT_EQ(Stored("Settings", QStringLiteral("PrChecks %1").arg(i), "Number"), isChecked ? "1" : "0") << i;
    }
}

TEST_F(ProjectStore, KeysAreWrittenInTheirOrder)
{
    CreateProject(0);
    EXPECT_EQ(Query("SELECT group_concat(Name) FROM (SELECT Name FROM Overview ORDER BY rowid)"),
              "Project Name,Project Created,Project Saved,Company,Editor,Description,Measurement Begin,Measurement "
              "End,Measurement Term,Measurement Device ID,Measurement Device,Measurement Interval");
    EXPECT_EQ(Query("SELECT group_concat(Name) FROM (SELECT Name FROM Settings ORDER BY rowid LIMIT 13)"),
              "iNetConfIndex,COM,MODBUS,Sound,iCalcMethod,PrintSetsOpt,StartAtSet,StopAtSet,bASMSim,Checks 0,PrChecks "
              "0,Checks 1,PrChecks 1");
    EXPECT_EQ(Query("SELECT group_concat(Name) FROM (SELECT Name FROM Settings ORDER BY rowid LIMIT 14 OFFSET 109)"),
              "dTransPrimary 0,dTransSecondary 0,dTransPrimary 1,dTransSecondary 1,ScaleEnds 0,ScaleEnds 1,ScaleEnds "
              "2,ScaleEnds 3,ScaleEnds 4,ScaleEnds 5,dTrigger 0,dTrigger 1,PrintIt 0,PrintIt 1");
}

TEST_F(ProjectStore, FileIsMarkedAsThisProgramsOwn)
{
    CreateProject(0);
    EXPECT_EQ(Query("PRAGMA application_id"), QString::number(0x4B564E4C));
    EXPECT_EQ(Query("PRAGMA user_version"), "1");
    EXPECT_EQ(Query("PRAGMA journal_mode"), "delete");
}

TEST_F(ProjectStore, EveryFieldComesBackAsItWasSaved)
{
    CreateProject(4);
    ApplicationBlock& app = App();
    app.sProjectName = QStringLiteral("O'Neill \"Pumpe\"; 100% [1] ä€ 007");
    app.sCompany = QStringLiteral("007"); // must not become the number 7
    app.sDescription = QStringLiteral("a\nb");
    app.dtMeasurementBegin = QDateTime(QDate(2025, 12, 31), QTime(23, 59, 58));
    app.dInterval = 2.5;
    app.lComPort = 12;
    app.lModbusAddress = 247;
    app.iCalcMethod = 0;
    app.bASMSim = true;
    app.Checks[49] = 1;
    app.PrChecks[0] = 0;
    app.dTransPrimary = {20000, 0.1};
    app.ScaleEnds[2] = 1e-300;
    app.dTrigger[1] = -0.25;
    app.PrintIt[15] = 0;
    app.Export = {0, 1};
    const ApplicationBlock saved = app;
    ASSERT_TRUE(SaveProject());
    Open();
    EXPECT_EQ(app.sProjectName, saved.sProjectName);
    EXPECT_EQ(app.sCompany, "007");
    EXPECT_EQ(app.sDescription, saved.sDescription);
    EXPECT_EQ(app.dtMeasurementBegin, saved.dtMeasurementBegin);
    EXPECT_EQ(app.dInterval, 2.5);
    EXPECT_EQ(app.iNetConfIndex, 4);
    EXPECT_EQ(app.lComPort, 12);
    EXPECT_EQ(app.lModbusAddress, 247);
    EXPECT_EQ(app.iCalcMethod, 0);
    EXPECT_TRUE(app.bASMSim);
    EXPECT_EQ(app.Checks, saved.Checks);
    EXPECT_EQ(app.PrChecks, saved.PrChecks);
    EXPECT_EQ(app.dTransPrimary, saved.dTransPrimary);
    EXPECT_EQ(app.ScaleEnds, saved.ScaleEnds);
    EXPECT_EQ(app.dTrigger, saved.dTrigger);
    EXPECT_EQ(app.PrintIt, saved.PrintIt);
    EXPECT_EQ(app.Export, saved.Export);
    EXPECT_EQ(app.ColumnLayout, ColumnLayoutOf(4));
}

TEST_F(ProjectStore, OpenProject_MissingKeysShowTheirDefaults)
{
    CreateProject(0);
    App().sCompany = QStringLiteral("Werk");
    App().lComPort = 7;
    ASSERT_TRUE(SaveProject());
    Execute("DELETE FROM Settings WHERE Name IN ('COM', 'ScaleEnds 5', 'Checks 3')");
    Execute("DELETE FROM Overview WHERE Name='Editor'");
    Open();
    EXPECT_EQ(App().lComPort, 1);
    EXPECT_EQ(App().ScaleEnds[5], 5000);
    EXPECT_EQ(App().Checks[3], 1);
    EXPECT_EQ(App().sEditor, "Ihr Name");
    EXPECT_EQ(App().sCompany, "Werk");
    ASSERT_TRUE(SaveProject());
    EXPECT_EQ(Stored("Settings", "COM", "Number"), "1") << "a save adds what was missing";
}

TEST_F(ProjectStore, OpenProject_EmptyTermWithSetsGetsItsTerm)
{
    CreateProject(0);
    App().dInterval = 60;
    ASSERT_TRUE(SaveProject());
    OpenDbGuarded();
    for (App().MeasuredRow.lSet = 1; App().MeasuredRow.lSet <= 3; ++App().MeasuredRow.lSet)
        AppendMeasuredRow();
    CloseDbGuarded();
    Open();
    EXPECT_EQ(App().sMeasurementTerm, "00:02:00");
    EXPECT_EQ(App().iSetCount, 3);
}

TEST_F(ProjectStore, OpenProject_KeepsAStoredTermAndCountsTheSets)
{
    CreateProject(0);
    App().sMeasurementTerm = QStringLiteral("99:00:00");
    ASSERT_TRUE(SaveProject());
    App().iSetCount = 44;
    Open();
    EXPECT_EQ(App().sMeasurementTerm, "99:00:00");
    EXPECT_EQ(App().iSetCount, 0);
}

TEST_F(ProjectStore, OpenProject_ModbusZeroInTheFileOverwritesTheDefault)
{
    CreateProject(0);
    App().lModbusAddress = 0;
    ASSERT_TRUE(SaveProject());
    App().lModbusAddress = 0;
    ResetProjectData();
    EXPECT_EQ(App().lModbusAddress, 33) << "0 becomes the default before the read";
    Open();
    EXPECT_EQ(App().lModbusAddress, 0) << "and the stored 0 wins";
    App().lModbusAddress = 99;
    ResetProjectData();
    EXPECT_EQ(App().lModbusAddress, 99) << "another value stays from project to project";
}

TEST_F(ProjectStore, OpenProject_NeedsNoMoreThanTheTableOfSamples)
{
    CreateProject(0);
    Execute("DROP TABLE ComputedValues");
    Open();
    EXPECT_EQ(App().iSetCount, 0);
}

TEST_F(ProjectStore, OpenProject_ResetsRowBuffersAndStateOfTheFormerProject)
{
    CreateProject(0);
    App().CurrentRow.dI[kSum] = 5;
    App().MeasuredRow.dU[kSum] = 5;
    App().lMarkedSets = 8;
    App().fDevScaleU = 3;
    App().bEvaluated = 1;
    App().bModelValid = true;
    Open();
    EXPECT_EQ(App().CurrentRow.dI[kSum], 0);
    EXPECT_EQ(App().MeasuredRow.dU[kSum], 0);
    EXPECT_EQ(App().lMarkedSets, 1);
    EXPECT_EQ(App().fDevScaleU, 1);
    EXPECT_EQ(App().bEvaluated, 0);
    EXPECT_FALSE(App().bModelValid);
    EXPECT_EQ(shell.waiting, 0) << "the wait cursor is gone";
}

TEST_F(ProjectStore, ResetProjectData_ComputesTheConstants)
{
    EXPECT_EQ(App().PI, 0);
    ResetProjectData();
    EXPECT_EQ(App().PI, 4 * std::atan(1.0));
    EXPECT_EQ(App().E, std::exp(1.0));
    EXPECT_EQ(App().SQRT3, std::sqrt(3.0));
    EXPECT_EQ(App().LN10, std::log(10.0));
}

TEST_F(ProjectStore, OpenProject_EnablesTheMachineMenuWithAMachine)
{
    CreateProject(5);
    Open();
    EXPECT_TRUE(shell.calls.contains("EnableMachineMenu 1"));
    shell.calls.clear();
    CreateProject(4, "other.MDB");
    Open();
    EXPECT_TRUE(shell.calls.contains("EnableMachineMenu 0"));
}

TEST_F(ProjectStore, AtRestTheFileIsClosed)
{
    CreateProject(0);
    EXPECT_FALSE(IsProjectDbOpen());
    Open();
    EXPECT_FALSE(IsProjectDbOpen());
    ASSERT_TRUE(SaveProject());
    EXPECT_FALSE(IsProjectDbOpen());
}

TEST_F(ProjectStore, SaveProject_SetsTheMomentAndRefreshesPageAndStatusBar)
{
    CreateProject(0);
    App().bProjectDirty = true;
    clock.now = clock.now.addSecs(61);
    shell.calls.clear();
    ASSERT_TRUE(SaveProject());
    EXPECT_FALSE(App().bProjectDirty);
    EXPECT_EQ(Stored("Overview", "Project Saved", "Time"), "2026-03-14 15:10:27");
    EXPECT_EQ(shell.calls, (QStringList{"RefreshPage", "RefreshStatusBar"}));
}

TEST_F(ProjectStore, SaveProject_FailureNamesThePathAndLeavesTheProjectChanged)
{
    CreateProject(0);
    const QString path = App().sProjectPath;
    ASSERT_TRUE(QFile::remove(path));
    App().bProjectDirty = true;
    EXPECT_FALSE(SaveProject());
    EXPECT_TRUE(App().bProjectDirty);
    EXPECT_EQ(shell.BoxTexts(), QStringList{"Konnte Pfad/Datei nicht finden: \n" + path});
    EXPECT_FALSE(QFile::exists(path)) << "a save creates no file";
}

TEST_F(ProjectStore, SaveIfDirty_SavesOnlyWhatHasChanged)
{
    CreateProject(0);
    App().sCompany = QStringLiteral("Werk");
    SaveIfDirty();
    EXPECT_EQ(Stored("Overview", "Company", "Text"), "Ihre Firma");
    App().bProjectDirty = true;
    SaveIfDirty();
    EXPECT_EQ(Stored("Overview", "Company", "Text"), "Werk");
}

TEST_F(ProjectStore, TransferMeasurementHeader_WritesItsFourKeysAlone)
{
    CreateProject(0);
    App().sCompany = QStringLiteral("not to be written");
    App().sMeasurementTerm = QStringLiteral("00:05:00");
    App().sDeviceId = QStringLiteral("MI 7140");
    {
        const ProjectDbScope scope;
        TransferMeasurementHeader(Direction::Write);
    }
    EXPECT_EQ(Stored("Overview", "Company", "Text"), "Ihre Firma");
    EXPECT_EQ(Stored("Overview", "Measurement Term", "Text"), "00:05:00");
    EXPECT_EQ(Stored("Overview", "Measurement Device ID", "Text"), "MI 7140");
}

TEST_F(ProjectStore, TransferValue_MovesOneKeyAndNoOther)
{
    CreateProject(0);
    const auto& keys = ProjectKeys();
    const auto com = std::find_if(keys.begin(), keys.end(), [](const ProjectKey& key) { return key.name == "COM"; });
    ASSERT_NE(com, keys.end());
    App().lComPort = 5;
    App().lSound = 1;
    {
        const ProjectDbScope scope;
        TransferValue(Direction::Write, *com);
    }
    EXPECT_EQ(Stored("Settings", "COM", "Number"), "5");
    EXPECT_EQ(Stored("Settings", "Sound", "Number"), "0");
    Execute("UPDATE Settings SET Number=9 WHERE Name='COM'");
    {
        const ProjectDbScope scope;
        TransferValue(Direction::Read, *com);
    }
    EXPECT_EQ(App().lComPort, 9);
}

TEST_F(ProjectStore, SixteenBitNumbersAreRoundedDownAndNullTextIsEmpty)
{
    CreateProject(0);
    Execute("UPDATE Settings SET Number=3.9 WHERE Name='iNetConfIndex'");
    Execute("UPDATE Overview SET Text=NULL WHERE Name='Company'");
    Execute("UPDATE Settings SET Number=-2 WHERE Name='bASMSim'");
    Open();
    EXPECT_EQ(App().iNetConfIndex, 3);
    EXPECT_EQ(App().sCompany, "");
    EXPECT_TRUE(App().bASMSim) << "any number but 0 is true";
}

TEST_F(ProjectStore, SnapshotProject_CopiesTheFileUnderTheStartTime)
{
    CreateProject(0, "Lauf.mdb");
    App().sDeviceId = QStringLiteral("MI 7131");
    SnapshotProject(QStringLiteral("14.03.2026 15:09:26"));
    const QString copy = PathOf("Lauf 14-03-2026 15-09-26.MDB");
    ASSERT_TRUE(QFile::exists(copy));
    EXPECT_EQ(QueryFile(copy, "SELECT Text FROM Overview WHERE Name='Measurement Device ID'"), "MI 7131");
    EXPECT_EQ(App().sProjectPath, PathOf("Lauf.mdb")) << "the project goes on in the old file";
}

TEST_F(ProjectStore, SnapshotProject_MindsSlashesOfADateAndTheEndingOfTheFileAlone)
{
    ASSERT_TRUE(QDir(folder.path()).mkdir("x.MDB"));
    CreateProject(0, "x.MDB/y.bak");
    SnapshotProject(QStringLiteral("3/14/2026 3:09"));
    EXPECT_TRUE(QFile::exists(PathOf("x.MDB/y.bak 3-14-2026 3-09.MDB")));
}

TEST_F(ProjectStore, ReadingASetKeepsNoLockOnTheFile)
{
    CreateProject(0);
    OpenProjectDb();
    App().MeasuredRow.lSet = 1;
    ASSERT_TRUE(AppendMeasuredRow());
    ASSERT_TRUE(ReadRow(1));
    SQLite::Database other(App().sProjectPath.toStdString(), SQLite::OPEN_READWRITE);
    EXPECT_NO_THROW(other.exec("CREATE TABLE beside (x); DROP TABLE beside"));
    CloseProjectDb();
}

TEST_F(ProjectStore, AnOpeningOfAnotherProjectBesideAnOpenOneIsRefused)
{
    CreateProject(0, "eins.MDB");
    OpenProjectDb();
    App().sProjectPath = PathOf("zwei.MDB");
    EXPECT_THROW(OpenProjectDb(), DbError);
    CloseProjectDb();
    EXPECT_FALSE(IsProjectDbOpen());
}

TEST_F(ProjectStore, SnapshotProject_DuringARunHoldsEveryStoredRow)
{
    CreateProject(0);
    OpenProjectDb();
    OpenJoinedRecordset();
    App().MeasuredRow.lSet = 1;
    ASSERT_TRUE(AppendMeasuredRow());
    SnapshotProject(QStringLiteral("x"));
    App().MeasuredRow.lSet = 2;
    ASSERT_TRUE(AppendMeasuredRow());
    CloseProjectDb();
    EXPECT_EQ(QueryFile(PathOf("test x.MDB"), "SELECT count(*) FROM SampledValues"), "1");
    EXPECT_EQ(CountSets(), 2);
}

TEST_F(ProjectStore, CreateProjectFile_LeavesAnExistingFileAlone)
{
    WriteContent("there.MDB", "precious");
    CreateProjectFile(PathOf("there.MDB"));
    EXPECT_EQ(ContentOf("there.MDB"), "precious");
    ASSERT_EQ(shell.boxes.size(), 1U);
    EXPECT_EQ(shell.boxes[0].title, "Fehlermeldung");
}

} // namespace
} // namespace korvanel::test
