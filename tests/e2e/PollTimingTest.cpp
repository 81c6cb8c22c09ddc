// The polling grid on a real line: how late each poll is against its nominal time, and
// what a recording costs.
#include "e2e/RecordingFixture.h"

#include <QFile>

#include <unistd.h>

#include <algorithm>
#include <cstdio>

namespace korvanel::test {
namespace {

class PollTimingTest : public RecordingTest
{
protected:
    /// Processor time that the program has taken so far, in seconds.
    double ProcessorSeconds() const
    {
        constexpr int kUserTime = 11; // of what stands behind the name in brackets, from 0
        QFile file(QStringLiteral("/proc/%1/stat").arg(program.ProcessId()));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        const QByteArray text = file.readAll();
        const QList<QByteArray> fields = text.mid(text.lastIndexOf(')') + 2).split(' ');
        return (fields.at(kUserTime).toDouble() + fields.at(kUserTime + 1).toDouble()) /
               static_cast<double>(sysconf(_SC_CLK_TCK));
    }
};

TEST_F(PollTimingTest, AMinuteAtOneSecond_HoldsToTheGridAndLeavesTheProcessorFree)
{
    constexpr int kPolls = 60;
    constexpr int kFirstCode = 16; // of the queries of a sample
    SimulatorProcess simulator(folder.path());
    AssignPort(simulator.Link());
    StartWithInstrument(0, "ISKRA MI71XX 1Ø2W (1b)");
    Diagnose();
    OpenRun();
    program.Trigger("cmdSTART");
    const double processorBefore = ProcessorSeconds();
    QThread::sleep(kPolls);
    const double processorShare = (ProcessorSeconds() - processorBefore) / kPolls;
    ASSERT_TRUE(WaitForSamples(kPolls));
    StopRun();
    std::vector<double> polls;
    for (const LoggedExchange& exchange : simulator.Log())
        if (exchange.kind == "query" && exchange.code == kFirstCode)
            polls.push_back(exchange.seconds);
    ASSERT_GE(polls.size(), static_cast<std::size_t>(kPolls));
    std::vector<double> lateness;
    for (std::size_t i = 0; i < polls.size(); ++i)
        lateness.push_back(std::abs(polls[i] - polls[0] - static_cast<double>(i)));
    std::sort(lateness.begin(), lateness.end());
    const double median = lateness[lateness.size() / 2];
    const double worst = lateness.back();
    std::printf(
        "polls at 1 s on a pseudo-terminal, %zu polls: off the grid by %.1f ms in the median, %.1f ms at most\n",
        polls.size(), 1000 * median, 1000 * worst);
    std::printf("polls at 1 s: the program takes %.1f %% of a processor\n", 100 * processorShare);
    EXPECT_LT(processorShare, 0.05);
    EXPECT_LE(median, 0.050);
    EXPECT_LE(worst, 0.075);
}

} // namespace
} // namespace korvanel::test
