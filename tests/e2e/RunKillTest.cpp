// The program is killed in the middle of recordings: what it had shown as stored is in the file.
#include "e2e/RecordingFixture.h"

#include <cstdio>
#include <random>

namespace korvanel::test {
namespace {

/// Fifty kills in five projects, which run side by side.
class RunKillTest : public RecordingTest, public ::testing::WithParamInterface<unsigned>
{
};

TEST_P(RunKillTest, KilledTenTimesDuringARun_LosesNoStoredRow)
{
    constexpr int kKills = 10;
    SimulatorProcess simulator(folder.path());
    AssignPort(simulator.Link());
    StartWithInstrument(0, "ISKRA MI71XX 1Ø2W (1b)");
    program.Trigger("mnuSave");
    program.Trigger("mnuClose");
    program.WaitUntilGone("FormF3");
    program.Kill();
    std::mt19937 random(4711 + GetParam()); // NOLINT(cert-msc51-cpp): the moments are to be the same in every run
    std::uniform_int_distribution<unsigned> moment(0, 1000);
    int reported = 0;
    int stored = 0;
    int lost = 0;
    for (int kill = 0; kill < kKills; ++kill) {
        ProgramDriver victim(folder.filePath("settings"));
        victim.Start();
        victim.WaitForWindow("MainForm");
        victim.Trigger("mnuOpen");
        victim.GivePath(project);
        victim.WaitForControl("FormF1");
        victim.Trigger("mnuOnlineDevice");
        victim.WaitForControl("FormF4");
        const bool hasRows = victim.IsEnabled("cmdDrop");
        victim.Trigger("cmdSTART");
        if (hasRows)
            victim.AnswerBox("Ja");
        victim.WaitForText("cmdSTART", "STOP Messung");
        while (victim.Text("lblCount_3").toInt() < 1)
            QThread::msleep(10);
        QThread::msleep(moment(random));
        const int shown = victim.Text("lblCount_3").toInt();
        victim.Kill();
        const int found = Count();
        lost += std::max(0, shown - found);
        ASSERT_EQ(Query("SELECT max([Set]) FROM SampledValues").toInt(), found);
        ASSERT_EQ(Query("SELECT count(*) FROM ComputedValues").toInt(), found);
        ASSERT_EQ(Query("PRAGMA integrity_check"), "ok");
        reported += shown;
        stored += found;
    }
    std::printf("killed %d times during a run: %d rows shown as stored, %d found, %d lost\n", kKills, reported, stored,
                lost);
    EXPECT_GE(reported, kKills);
    EXPECT_EQ(lost, 0);
}

INSTANTIATE_TEST_SUITE_P(Projects, RunKillTest, ::testing::Range(0U, 5U));

} // namespace
} // namespace korvanel::test
