// What the heading of a recording tells, also after a loss of the line, a power cut and another program.
#include "acquisition/RunAndFileFixture.h"
#include "core/LocalFormats.h"
#include "project/ProjectCommands.h"
#include "project/ProjectStore.h"

#include <QDir>

#include <memory>

namespace korvanel::test {
namespace {

// The heading.

TEST_F(RunAndFile, HeadingIsStoredWithTheFirstRowAndCompletedAtTheEnd)
{
    Open(2);
    Start();
    Pass(0.2);
    EXPECT_EQ(Count(), 1);
    EXPECT_EQ(Heading("Begin"), StoredDateText(App().dtMeasurementBegin));
    EXPECT_EQ(Heading("End"), StoredDateText(ZeroDate()));
    EXPECT_EQ(Heading("Term"), "");
    EXPECT_EQ(Heading("Device"), "ISKRA MI71XX 1Ø2W (1b)");
    EXPECT_EQ(Heading("Device ID"), "MI7140 4711");
    EXPECT_EQ(Interval(), "2.0");
    Pass(4);
    run.End();
    EXPECT_EQ(Heading("End"), StoredDateText(App().dtMeasurementEnd));
    EXPECT_EQ(Heading("Term"), "00:00:04");
}

TEST_F(RunAndFile, HeadingOfTheFirstRecordingGoesWithItsRows)
{
    Open();
    Start();
    Pass(2.2);
    run.End();
    ASSERT_NE(Heading("Begin"), StoredDateText(ZeroDate()));
    shell.answers = {Answer::Yes};
    ASSERT_TRUE(run.Drop());
    for (const char* key : {"Begin", "End"})
        EXPECT_EQ(Heading(key), StoredDateText(ZeroDate())) << key;
    EXPECT_EQ(Heading("Term"), "");
    EXPECT_EQ(App().dtMeasurementBegin, ZeroDate());
}

TEST_F(RunAndFile, RowsThatCanNotBeDeletedKeepTheirHeading)
{
    Open();
    Start();
    Pass(2.2);
    run.End();
    const QDateTime begin = App().dtMeasurementBegin;
    SQLite::Database other = Other();
    other.exec("BEGIN IMMEDIATE");
    shell.answers = {Answer::Yes};
    EXPECT_FALSE(run.Drop());
    other.exec("ROLLBACK");
    EXPECT_EQ(App().dtMeasurementBegin, begin);
    EXPECT_EQ(Heading("Begin"), StoredDateText(begin));
    EXPECT_EQ(Count(), 3);
    EXPECT_TRUE(shell.boxes.back().text.contains("Die Datei wird gerade von einem anderen Programm benutzt"));
}

TEST_F(RunAndFile, ARunWithoutAnyRowLeavesNoHeading)
{
    Open();
    App().dTrigger = {1000, 0};
    Start();
    Pass(5);
    run.End();
    EXPECT_EQ(Count(), 0);
    EXPECT_EQ(App().dtMeasurementBegin, ZeroDate());
    EXPECT_EQ(App().sMeasurementTerm, "");
}

TEST_F(RunAndFile, EndIsTheMomentOfTheLossAndNotThatOfTheClick)
{
    Open();
    Start();
    Pass(2.2);
    port.answer = [](const QByteArray&) -> QByteArray { throw PortError("weg"); };
    QDateTime endInBox;
    shell.onBox = [&] {
        endInBox = App().dtMeasurementEnd;
        moving.seconds += 8 * 3600; // the box stands overnight
    };
    const QDateTime expected = After(0.8);
    Pass(1);
    EXPECT_EQ(endInBox, App().dtMeasurementEnd);
    EXPECT_LE(std::abs(expected.secsTo(App().dtMeasurementEnd)), 1);
    EXPECT_TRUE(QStringList({"00:00:03", "00:00:04"}).contains(App().sMeasurementTerm));
    EXPECT_EQ(Heading("End"), StoredDateText(App().dtMeasurementEnd));
}

TEST_F(RunAndFile, DurationIsCountedByTheSteadyClock)
{
    struct Case
    {
        const char* what;
        double shift;
    };
    for (const Case& c : {Case{"autumn night", -3600}, Case{"clock set forward", 9600.0 * 3600}}) {
        Open();
        Start();
        Pass(10.2);
        moving.wallOffset += c.shift;
        Pass(8);
        run.End();
        EXPECT_EQ(App().sMeasurementTerm, "00:00:18") << c.what;
        QFile::remove(App().sProjectPath);
    }
}

TEST_F(RunAndFile, OpeningCompletesWhatAPowerCutHasLeft)
{
    Open();
    Start();
    Pass(9.2);
    run.End();
    const QString begin = Heading("Begin");
    Execute("UPDATE Overview SET Time='1899-12-30 00:00:00' WHERE Name='Measurement End'");
    Execute("UPDATE Overview SET Text='' WHERE Name='Measurement Term'");
    OpenProject(App().sProjectPath);
    EXPECT_EQ(StoredDateText(App().dtMeasurementBegin), begin);
    EXPECT_EQ(StoredDateText(App().dtMeasurementEnd), Query("SELECT Time FROM SampledValues WHERE [Set]=10"));
    EXPECT_EQ(App().sMeasurementTerm, "00:00:09");
}

TEST_F(RunAndFile, OpeningReplacesAHeadingOfOtherRows)
{
    Open();
    Start();
    Pass(4.2);
    run.End();
    Execute("UPDATE Overview SET Time='2020-01-01 10:00:00' WHERE Name='Measurement Begin'");
    Execute("UPDATE Overview SET Time='2020-01-01 12:00:00' WHERE Name='Measurement End'");
    Execute("UPDATE Overview SET Text='02:00:00' WHERE Name='Measurement Term'");
    OpenProject(App().sProjectPath);
    EXPECT_EQ(StoredDateText(App().dtMeasurementBegin), Query("SELECT Time FROM SampledValues WHERE [Set]=1"));
    EXPECT_EQ(StoredDateText(App().dtMeasurementEnd), Query("SELECT Time FROM SampledValues WHERE [Set]=5"));
    EXPECT_EQ(App().sMeasurementTerm, "00:00:04");
}

TEST_F(RunAndFile, OpeningLeavesAWholeHeadingAndSetsWithoutTimeStampsAlone)
{
    Open();
    Start();
    Pass(4.2);
    run.End();
    Execute("UPDATE Overview SET Text='00:00:17' WHERE Name='Measurement Term'"); // silent until the end
    OpenProject(App().sProjectPath);
    EXPECT_EQ(App().sMeasurementTerm, "00:00:17");
    Execute("UPDATE SampledValues SET Time=NULL");
    Execute("UPDATE Overview SET Time='2020-01-01 10:00:00' WHERE Name='Measurement Begin'");
    OpenProject(App().sProjectPath);
    EXPECT_EQ(StoredDateText(App().dtMeasurementBegin), "2020-01-01 10:00:00");
}

TEST_F(RunAndFile, PlannedRecordingWithoutAValidSampleLeavesNoHeading)
{
    Open();
    App().dTrigger = {1000, 0};
    schedule.Add({StartMode::Manual, StopMode::Duration, {}, {}, 5}, 0);
    Start();
    Pass(10);
    EXPECT_FALSE(run.IsTicking());
    EXPECT_EQ(App().dtMeasurementBegin, ZeroDate());
    EXPECT_EQ(App().sMeasurementTerm, "");
}

TEST_F(RunAndFile, SaveLeavesTheHeadingThatAnotherProgramHasWritten)
{
    Open();
    ASSERT_TRUE(SaveProject());
    Execute("UPDATE Overview SET Decimal=5 WHERE Name='Measurement Interval'");
    Execute("UPDATE Overview SET Text='00:33:00' WHERE Name='Measurement Term'");
    App().sCompany = "Werk";
    App().bProjectDirty = true;
    ASSERT_TRUE(SaveProject());
    EXPECT_EQ(Interval(), "5.0");
    EXPECT_EQ(App().dInterval, 5);
    EXPECT_EQ(Heading("Term"), "00:33:00");
    EXPECT_EQ(Query("SELECT Text FROM Overview WHERE Name='Company'"), "Werk");
    App().dInterval = 7; // what the user has changed here counts
    ASSERT_TRUE(SaveProject());
    EXPECT_EQ(Interval(), "7.0");
}

} // namespace
} // namespace korvanel::test
