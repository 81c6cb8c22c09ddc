// Reports that can't be written into a file, or are stopped: what is told, and that nothing is left behind.
#include "core/texts/DefaultTexts.h"
#include "core/texts/PrintExportTexts.h"
#include "output/ReportFixture.h"
#include "support/FullDisk.h"

namespace korvanel::test {
namespace {

using ::testing::HasSubstr;

class ReportFailures : public ReportTest
{
protected:
    ReportFailures() { EXPECT_TRUE(QDir(folder.path()).mkdir("out")); }

    QString Target() const { return PathOf("out/bericht.pdf"); }
    QStringList Files() const
    {
        return QDir(PathOf("out")).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }
    bool Print(const ReportWatch& watch = {})
    {
        shell.boxes.clear();
        PdfOutput output(Target());
        return PrintReport(output, watch);
    }
    /// Nothing but what was there before.
    void ExpectFormerFile() const
    {
        EXPECT_EQ(ContentOf("out/bericht.pdf"), "former");
        EXPECT_EQ(Files(), QStringList{"bericht.pdf"});
    }
    std::string Told() const
    {
        EXPECT_EQ(shell.boxes.size(), 1U);
        return shell.BoxTexts().join("\n---\n").toStdString();
    }
    /// Does something when the report has come so far.
    static ReportProgress At(double share, std::function<void()> happening)
    {
        return [share, happening = std::move(happening), isDone = false](double now) mutable {
            if (now >= share && !isDone) {
                isDone = true;
                happening();
            }
            return true;
        };
    }
};

TEST_F(ReportFailures, TargetsThatCannotBeWritten_AreToldWithTheirPath)
{
    OpenReportProject(0, 10);
    WriteContent("file", "no folder");
    for (const QString& path :
         {PathOf("keiner/bericht.pdf"), PathOf("file/bericht.pdf"), QString("/proc/bericht.pdf"), PathOf("out"),
          QString("/dev/full/x.pdf"), PathOf(QString(300, u'x') + ".pdf"), PathOf("file/../out/")}) {
        shell.boxes.clear();
        PdfOutput output(path);
        EXPECT_FALSE(PrintReport(output)) << path.toStdString();
        EXPECT_THAT(Told(), HasSubstr((texts::reportNoFile + '\n' + path).toStdString()));
        EXPECT_TRUE(!shell.boxes.empty() && shell.boxes[0].text.count('\n') >= 2) << "with a reason";
        EXPECT_FALSE(QFileInfo(path).isFile()) << path.toStdString();
    }
    EXPECT_EQ(Files(), QStringList{});
    EXPECT_EQ(ContentOf("file"), "no folder");
}

TEST_F(ReportFailures, FullDisk_LeavesTheFormerFileAndNoOther)
{
    OpenReportProject(2, 130);
    ASSERT_TRUE(Print());
    const auto size = static_cast<rlim_t>(QFileInfo(Target()).size());
    ASSERT_GT(size, 10'000U);
    for (const rlim_t room : {rlim_t{0}, rlim_t{100}, size / 3, size - 5000, size - 1}) {
        WriteContent("out/bericht.pdf", "former");
        {
            const FullDisk disk(room);
            EXPECT_FALSE(Print()) << room;
        }
        EXPECT_THAT(Told(), HasSubstr((texts::reportNoFile + '\n' + Target()).toStdString())) << room;
        ExpectFormerFile();
    }
    const FullDisk disk(size + 1);
    EXPECT_TRUE(Print()) << "what fits is written";
}

TEST_F(ReportFailures, FullDisk_LeavesNoHalfFileWhereNoneWas)
{
    OpenReportProject(0, 130);
    {
        const FullDisk disk(20'000);
        EXPECT_FALSE(Print());
    }
    EXPECT_EQ(Files(), QStringList{});
    EXPECT_TRUE(Print()) << "with room again";
    EXPECT_GT(ReadPdf(Target()).pages.size(), 4U);
}

TEST_F(ReportFailures, Progress_GoesFromTheBeginToTheEnd)
{
    OpenReportProject(2, 130);
    std::vector<double> shares;
    ASSERT_TRUE(Print({.progress = [&](double share) {
        shares.push_back(share);
        return true;
    }}));
    EXPECT_EQ(shares.front(), 0);
    EXPECT_EQ(shares.back(), 1);
    EXPECT_TRUE(std::is_sorted(shares.begin(), shares.end()));
    EXPECT_GE(shares.size(), ReadPdf(Target()).pages.size());
    EXPECT_EQ(shell.BoxTexts(), QStringList{});
}

TEST_F(ReportFailures, ReportThatIsStopped_LeavesTheFormerFile_WheneverItIs)
{
    OpenReportProject(2, 60);
    for (const double end : {0.0, 0.01, 0.4, 0.9, 1.0}) {
        WriteContent("out/bericht.pdf", "former");
        EXPECT_FALSE(Print({.progress = [end](double share) { return share < end; }})) << end;
        EXPECT_EQ(Told(), texts::reportStopped.toStdString()) << end;
        ExpectFormerFile();
        EXPECT_FALSE(IsProjectDbOpen()) << end;
    }
    EXPECT_TRUE(Print());
}

TEST_F(ReportFailures, EndOfTheWork_IsToldBeforeAnythingIsTold)
{
    OpenReportProject(0, 30);
    int ends = 0;
    shell.onBox = [&] { EXPECT_EQ(ends, 1); };
    const auto atEnd = [&] { ++ends; };
    EXPECT_FALSE(Print({.progress = [](double) { return false; }, .atEnd = atEnd}));
    EXPECT_EQ(ends, 1);
    EXPECT_EQ(shell.boxes.size(), 1U);
    ends = 0;
    EXPECT_FALSE(Print({.progress = At(0.5, [&] { Execute("DROP TABLE SampledValues"); }), .atEnd = atEnd}));
    EXPECT_EQ(ends, 1);
    EXPECT_EQ(shell.boxes.size(), 1U);
}

TEST_F(ReportFailures, TableThatGoesWhilePagesAreDrawn_IsToldAndTheFormerFileStays)
{
    OpenReportProject(5, 130);
    WriteContent("out/bericht.pdf", "former");
    EXPECT_FALSE(Print({.progress = At(0.6, [&] { Execute("DROP TABLE SampledValues"); })}));
    EXPECT_THAT(Told(), HasSubstr(texts::cannotReadFile.toStdString()));
    ExpectFormerFile();
    EXPECT_FALSE(IsProjectDbOpen());
}

TEST_F(ReportFailures, FileThatIsLockedWhilePagesAreDrawn_IsToldAndTheFormerFileStays)
{
    OpenReportProject(1, 130);
    WriteContent("out/bericht.pdf", "former");
    std::optional<SQLite::Database> other;
    EXPECT_FALSE(Print({.progress = At(0.5, [&] {
                            other.emplace(App().sProjectPath.toStdString(), SQLite::OPEN_READWRITE);
                            other->exec("BEGIN EXCLUSIVE");
                        })}));
    EXPECT_THAT(Told(), HasSubstr((texts::fileInUse + ":\n" + App().sProjectPath).toStdString()));
    ExpectFormerFile();
    other.reset();
    EXPECT_TRUE(Print()) << "when it is free again";
}

TEST_F(ReportFailures, FileThatIsNoneAnyMore_IsTold)
{
    OpenReportProject(1, 130);
    WriteContent("out/bericht.pdf", "former");
    EXPECT_FALSE(Print({.progress = At(0.5, [&] { WriteContent("test.MDB", QByteArray(50'000, 'x')); })}));
    EXPECT_THAT(Told(), HasSubstr(texts::cannotReadFile.toStdString()));
    ExpectFormerFile();
}

TEST_F(ReportFailures, ReportWithoutPages_IsToldAndWritesNothing)
{
    OpenReportProject(1, 30);
    App().PrintIt.fill(0);
    EXPECT_FALSE(Print());
    EXPECT_EQ(Told(), texts::reportNothing.toStdString());
    EXPECT_EQ(Files(), QStringList{});
}

TEST_F(ReportFailures, OutputOntoItself_IsReplacedWhenItIsComplete)
{
    OpenReportProject(1, 30);
    ASSERT_TRUE(Print());
    const std::size_t pages = ReadPdf(Target()).pages.size();
    App().PrintIt[kReportExtremes] = 0;
    ASSERT_TRUE(Print());
    EXPECT_EQ(ReadPdf(Target()).pages.size(), pages - 1);
    EXPECT_EQ(Files(), QStringList{"bericht.pdf"});
}

} // namespace
} // namespace korvanel::test
