// The promise of a recording: a row that was reported stored is there after the program has been killed.
#include "support/ProjectFixture.h"
#include "support/TestPaths.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QRandomGenerator>
#include <QThread>

#include <iostream>

namespace korvanel::test {
namespace {

constexpr int kKills = 200;

class Durability : public ProjectTest
{
protected:
    /// Lets the writer run for a moment and kills it; the number of the last row that it reported.
    qint32 WriteAndKill(QRandomGenerator& random)
    {
        QProcess writer;
        writer.start(QStringLiteral(KORVANEL_ROW_WRITER), {App().sProjectPath});
        EXPECT_TRUE(writer.waitForReadyRead()) << writer.readAllStandardError().toStdString();
        QThread::usleep(static_cast<unsigned long>(random.bounded(15000)));
        writer.kill();
        writer.waitForFinished();
        const QList<QByteArray> lines = writer.readAllStandardOutput().split('\n');
        // The last piece stands behind the last line break: it is empty, or a line cut off by the kill.
        return lines.size() < 2 ? 0 : lines[lines.size() - 2].toInt();
    }
};

TEST_F(Durability, EveryRowReportedStoredSurvivesTwoHundredKills)
{
    CreateProject(2);
    constexpr quint32 kSeed = 20260314;
    QRandomGenerator random(kSeed);
    int lost = 0;
    int ahead = 0;
    qint32 stored = 0;
    for (int kill = 0; kill < kKills; ++kill) {
        const qint32 reported = WriteAndKill(random);
        ASSERT_GT(reported, stored) << "the writer went on where the file ended, kill " << kill;
        stored = Query("SELECT count(*) FROM SampledValues INNER JOIN ComputedValues USING ([Set])").toInt();
        lost += std::max(0, reported - stored);
        ahead += stored - reported;
        ASSERT_LE(stored, reported + 1) << "at most the one row that was not reported any more";
        ASSERT_EQ(Query("SELECT max([Set]) FROM SampledValues").toInt(), stored) << "no gap";
        ASSERT_EQ(Query("SELECT max([Set]) FROM ComputedValues").toInt(), stored);
        ASSERT_EQ(Query("SELECT count(*) FROM ComputedValues").toInt(), stored) << "no half row";
    }
    EXPECT_EQ(Query("PRAGMA integrity_check"), "ok");
    EXPECT_EQ(lost, 0);
    std::cout << "killed " << kKills << " times while " << stored << " rows were written: " << lost << " rows lost, "
              << ahead << " stored but not yet reported\n";
}

} // namespace
} // namespace korvanel::test
