// The simulator on real pseudo-terminals, and its executable with everything that can be told to it.
#include "support/SimulatorProcess.h"
#include "simulator/PseudoTerminal.h"
#include "tools/SimulatorRequests.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QThread>

#include <gtest/gtest.h>

#include <csignal>
#include <optional>

#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

namespace korvanel::simulator::test {
namespace {

using korvanel::test::LoggedExchange;
using korvanel::test::SimulatorProcess;

constexpr int kPatienceMs = 30000;

/// The program's end of the line.
class OpenLine
{
public:
    explicit OpenLine(const QString& path) : descriptor(open(path.toUtf8().constData(), O_RDWR | O_NOCTTY | O_NONBLOCK))
    {}
    ~OpenLine() { Close(); }
    OpenLine(const OpenLine&) = delete;
    OpenLine& operator=(const OpenLine&) = delete;

    bool IsOpen() const { return descriptor >= 0; }
    int Descriptor() const { return descriptor; }
    void Close()
    {
        if (descriptor >= 0)
            close(descriptor);
        descriptor = -1;
    }
    void Write(const Bytes& bytes) const
    {
        ASSERT_EQ(write(descriptor, bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
    }
    /// That many bytes, or what has come when the time is over or the line breaks off.
    Bytes Read(std::size_t count, int milliseconds = kPatienceMs) const
    {
        Bytes all;
        QElapsedTimer timer;
        timer.start();
        while (all.size() < count && timer.elapsed() < milliseconds) {
            pollfd waiting = {descriptor, POLLIN, 0};
            poll(&waiting, 1, static_cast<int>(milliseconds - timer.elapsed()));
            Byte buffer[512];
            const ssize_t got = read(descriptor, buffer, std::min(sizeof buffer, count - all.size()));
            if (got > 0)
                all.insert(all.end(), buffer, buffer + got);
            else if (got == 0 || errno != EAGAIN)
                break;
        }
        return all;
    }
    /// True once the other end is gone.
    bool IsHungUp() const
    {
        pollfd waiting = {descriptor, 0, 0};
        return poll(&waiting, 1, kPatienceMs) == 1 && (waiting.revents & POLLHUP) != 0;
    }

private:
    int descriptor;
};

template <typename Condition>
bool Comes(Condition&& condition)
{
    QElapsedTimer timer;
    for (timer.start(); timer.elapsed() < kPatienceMs; QThread::msleep(5))
        if (condition())
            return true;
    return false;
}

std::string TextOf(const Bytes& reply)
{
    return reply.size() < 5 ? std::string() : std::string(reply.begin() + 3, reply.end() - 2);
}

class SimulatorProcessTest : public ::testing::Test
{
protected:
    void Start(const QStringList& options = {})
    {
        simulator.emplace(folder.path(), options);
        line.emplace(simulator->Link());
        ASSERT_TRUE(line->IsOpen());
    }
    Bytes Ask(const Bytes& request, std::size_t replyLength) const
    {
        line->Write(request);
        return line->Read(replyLength);
    }
    QString PathOf(const char* name) const { return folder.filePath(QLatin1String(name)); }
    /// Exit code of a simulator that isn't expected to run; what it complains about.
    int ExitCode(const QStringList& options)
    {
        QProcess process;
        process.start(QStringLiteral(KORVANEL_SIMULATOR), options);
        EXPECT_TRUE(process.waitForFinished(kPatienceMs));
        complaint = QString::fromUtf8(process.readAllStandardError());
        output = QString::fromUtf8(process.readAllStandardOutput());
        return process.exitCode();
    }

    QTemporaryDir folder;
    std::optional<SimulatorProcess> simulator;
    std::optional<OpenLine> line;
    QString complaint;
    QString output;
};

TEST_F(SimulatorProcessTest, PseudoTerminal_CarriesEveryByteBothWays)
{
    PseudoTerminal terminal;
    const OpenLine slave(QString::fromStdString(terminal.Device()));
    ASSERT_TRUE(slave.IsOpen());
    Bytes all;
    for (int value = 0; value < 256; ++value)
        all.push_back(static_cast<Byte>(value));
    slave.Write(all);
    Bytes arrived;
    EXPECT_TRUE(Comes([&] {
        const std::optional<Bytes> bytes = terminal.Read();
        arrived.insert(arrived.end(), bytes->begin(), bytes->end());
        return arrived.size() >= all.size();
    }));
    EXPECT_EQ(arrived, all);
    terminal.Write(all);
    EXPECT_EQ(slave.Read(all.size()), all);
}

TEST_F(SimulatorProcessTest, PseudoTerminal_LosesWhatNobodyReadsWithoutWaiting)
{
    PseudoTerminal terminal;
    for (int round = 0; round < 1000; ++round)
        terminal.Write(Bytes(1000, 'x'));
    EXPECT_TRUE(terminal.Read()->empty());
}

TEST_F(SimulatorProcessTest, PseudoTerminal_StaysUsableWhileAndAfterProgramsOpenIt)
{
    PseudoTerminal terminal;
    for (int round = 0; round < 3; ++round) {
        EXPECT_TRUE(terminal.Read()->empty());
        const OpenLine slave(QString::fromStdString(terminal.Device()));
        ASSERT_TRUE(slave.IsOpen());
        terminal.Write(Bytes{1});
        EXPECT_EQ(slave.Read(1), Bytes{1});
    }
}

TEST_F(SimulatorProcessTest, Link_ReplacesALinkButNothingElse)
{
    const std::string path = PathOf("link").toStdString();
    ASSERT_TRUE(QFile::link("/nowhere", PathOf("link")));
    {
        const DeviceLink link(path, "/dev/null");
        EXPECT_EQ(QFileInfo(PathOf("link")).symLinkTarget(), "/dev/null");
    }
    EXPECT_FALSE(QFileInfo(PathOf("link")).isSymLink());
    QFile file(PathOf("link"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_THROW(DeviceLink(path, "/dev/null"), std::runtime_error);
    EXPECT_TRUE(file.exists());
    EXPECT_THROW(DeviceLink(PathOf("missing/link").toStdString(), "/dev/null"), std::runtime_error);
}

TEST_F(SimulatorProcessTest, Link_OfSomebodyElseIsLeftAlone)
{
    const DeviceLink older(PathOf("link").toStdString(), "/dev/null");
    {
        const DeviceLink newer(PathOf("link").toStdString(), "/dev/zero");
        DeviceLink(PathOf("other").toStdString(), "/dev/null");
    }
    EXPECT_FALSE(QFileInfo(PathOf("link")).isSymLink());
    const DeviceLink newest(PathOf("link").toStdString(), "/dev/zero");
    {
        const DeviceLink passing(PathOf("passing").toStdString(), "/dev/full");
        QFile::remove(PathOf("passing"));
        ASSERT_TRUE(QFile::link("/dev/zero", PathOf("passing")));
    }
    EXPECT_EQ(QFileInfo(PathOf("passing")).symLinkTarget(), "/dev/zero");
}

TEST_F(SimulatorProcessTest, Options_SetTheInstrumentUp)
{
    Start({"--family", "iskra", "--address", "7", "--model", "MI7130", "--number", "99", "--profile", "constant",
           "--transformers", "20000,100,100,5"});
    EXPECT_EQ(QFileInfo(simulator->Link()).symLinkTarget(), simulator->Device());
    EXPECT_EQ(Ask(Frame(4, 1, 4, 7), 13), WithCrc({7, 4, 8, 'M', 'I', '7', '1', '3', '0', 0, 99}));
    EXPECT_EQ(Ask(Frame(3, 16, 1, 7), 7), WithCrc({7, 3, 2, 0x87, 0xD0}));
    const Bytes first = Ask(QueryOf(4, 7), 13);
    EXPECT_EQ(first, Ask(QueryOf(4, 7), 13));
    EXPECT_GT(ValueOf(TextOf(first)), 10000);
}

TEST_F(SimulatorProcessTest, Fault_IsInForceFromTheStart)
{
    Start({"--fault", "late", "--delay", "0.2"});
    QElapsedTimer timer;
    timer.start();
    EXPECT_EQ(Ask(Frame(3, 17, 1), 7).size(), 7U);
    EXPECT_GE(timer.elapsed(), 199);
}

TEST_F(SimulatorProcessTest, Commands_ChangeTheInstrument)
{
    Start();
    simulator->Tell("profile constant");
    simulator->Tell("set 8   1.500kvaC");
    EXPECT_EQ(TextOf(Ask(QueryOf(8), 17)), "   1.500kvaC");
    simulator->Tell("value 28 49.5");
    EXPECT_EQ(TextOf(Ask(QueryOf(28), 12)), "49.500H");
    simulator->Tell("address 12");
    EXPECT_EQ(Ask(QueryOf(28, 12), 12).size(), 12U);
    simulator->Tell("fault crc");
    EXPECT_FALSE(HasValidCrc(Ask(QueryOf(28, 12), 12)));
    simulator->Tell("delay 0.1");
    simulator->Tell("fault none");
    EXPECT_TRUE(HasValidCrc(Ask(QueryOf(28, 12), 12)));
    simulator->Tell("quit");
    EXPECT_EQ(simulator->WaitForEnd(), 0);
    EXPECT_FALSE(QFileInfo(simulator->Link()).isSymLink());
}

TEST_F(SimulatorProcessTest, BadCommands_AreAnsweredByAnErrorAndChangeNothing)
{
    Start();
    simulator->Tell("value 28 50");
    for (const char* command : {"", "bogus", "fault", "fault bogus", "delay -1", "delay x", "address 0", "address 248",
                                "address 1x", "profile bogus", "set 99 1", "set 28 12345678", "set", "value 28",
                                "value 28 nan", "value 28 1e99", "value x 1"})
        EXPECT_THROW(simulator->Tell(command), std::runtime_error) << command;
    EXPECT_THROW(simulator->Tell(QString(100000, 'x')), std::runtime_error);
    EXPECT_EQ(TextOf(Ask(QueryOf(28), 12)), "50.000H");
}

TEST_F(SimulatorProcessTest, CloseAndOpen_HangTheProgramUpAndRenewTheLink)
{
    Start();
    simulator->Tell("close");
    EXPECT_TRUE(line->IsHungUp());
    EXPECT_FALSE(QFileInfo(simulator->Link()).isSymLink());
    simulator->Tell("close");
    line->Close();
    simulator->Tell("open");
    EXPECT_EQ(QFileInfo(simulator->Link()).symLinkTarget(), simulator->Device());
    line.emplace(simulator->Link());
    EXPECT_EQ(Ask(Frame(3, 17, 1), 7).size(), 7U);
    simulator->Tell("open");
    EXPECT_TRUE(line->IsHungUp());
}

TEST_F(SimulatorProcessTest, FaultClosed_HangsUpInPlaceOfTheReply)
{
    Start();
    simulator->Tell("fault closed");
    EXPECT_TRUE(Ask(Frame(3, 17, 1), 7).empty());
    EXPECT_TRUE(line->IsHungUp());
    ASSERT_TRUE(Comes([this] { return simulator->Log().size() == 1; }));
    EXPECT_TRUE(simulator->Log()[0].reply.isEmpty());
}

TEST_F(SimulatorProcessTest, EndOfInput_IsNoReasonToStop)
{
    Start();
    simulator->CloseInput();
    EXPECT_EQ(Ask(Frame(3, 17, 1), 7).size(), 7U);
    QThread::msleep(100);
    EXPECT_EQ(Ask(Frame(3, 17, 1), 7).size(), 7U);
}

TEST_F(SimulatorProcessTest, Signals_RemoveTheLinkAndEndInOrder)
{
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        Start();
        ASSERT_TRUE(QFileInfo(simulator->Link()).isSymLink());
        kill(static_cast<pid_t>(simulator->ProcessId()), signal);
        EXPECT_EQ(simulator->WaitForEnd(), 0);
        EXPECT_FALSE(QFileInfo(simulator->Link()).isSymLink());
    }
}

TEST_F(SimulatorProcessTest, ProgramKilledWithTheLineForItself_DoesNotLockIt)
{
    Start();
    ASSERT_EQ(ioctl(line->Descriptor(), TIOCEXCL), 0);
    line->Close();
    int isExclusive = 1;
    line.emplace(simulator->Link()); // as a privileged user, who gets in all the same
    EXPECT_TRUE(Comes([&] {
        if (!line->IsOpen())
            line.emplace(simulator->Link());
        return line->IsOpen() && ioctl(line->Descriptor(), TIOCGEXCL, &isExclusive) == 0 && isExclusive == 0;
    }));
}

TEST_F(SimulatorProcessTest, Log_HasALineForEachExchange)
{
    Start({"--profile", "constant"});
    const Bytes query = QueryOf(28);
    const Bytes reply = Ask(query, 12);
    Ask(Frame(6, 17, 100), 8);
    Ask(Frame(3, 99, 1), 5);
    simulator->Tell("fault truncated");
    Ask(query, 6);
    line->Write(QueryOf(28, 99));
    line->Write({1, 2, 3});
    ASSERT_TRUE(Comes([this] { return simulator->Log().size() == 6; }));
    QFile file(simulator->LogPath());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readLine(), "seconds\trx\ttx\tkind\tcode\ttext\n");
    const std::vector<LoggedExchange> log = simulator->Log();
    EXPECT_EQ(log[0].request.toHex().toUpper().toStdString(), ToHex(query));
    EXPECT_EQ(log[0].reply.toHex().toUpper().toStdString(), ToHex(reply));
    EXPECT_EQ(log[0].text.toStdString(), TextOf(reply));
    const char* const kinds[] = {"query", "write", "read", "query", "query", "bad"};
    const int codes[] = {28, 17, 99, 28, 28, -1};
    const qsizetype lengths[] = {12, 8, 5, 6, 0, 0};
    for (std::size_t index = 0; index < log.size(); ++index) {
        EXPECT_EQ(log[index].kind, kinds[index]) << index;
        EXPECT_EQ(log[index].code, codes[index]) << index;
        EXPECT_EQ(log[index].reply.size(), lengths[index]) << index;
        EXPECT_EQ(log[index].text.isEmpty(), index != 0) << index;
        EXPECT_GE(log[index].seconds, index == 0 ? 0 : log[index - 1].seconds) << index;
    }
}

TEST_F(SimulatorProcessTest, HostileBytes_LeaveItAnswering)
{
    Start();
    std::mt19937 random(11);
    std::uniform_int_distribution<int> any(0, 255);
    QElapsedTimer timer;
    for (timer.start(); timer.elapsed() < 1000;) {
        Bytes bytes(200);
        for (Byte& byte : bytes)
            byte = static_cast<Byte>(any(random));
        const ssize_t written = write(line->Descriptor(), bytes.data(), bytes.size());
        ASSERT_TRUE(written > 0 || errno == EAGAIN);
    }
    QThread::msleep(100);
    EXPECT_TRUE(Comes([this] {
        tcflush(line->Descriptor(), TCIFLUSH);
        line->Write(Frame(4, 1, 3));
        return line->Read(11, 1000).size() == 11;
    }));
}

TEST_F(SimulatorProcessTest, BadOptions_AreToldAndEndWithTwo)
{
    struct Case
    {
        QStringList options;
        const char* complaint;
    };
    const Case cases[] = {
        {{"--bogus"}, "--bogus"},
        {{"stray"}, "stray"},
        {{"--link"}, "--link"},
        {{"--family", "bogus"}, "unknown family: bogus"},
        {{"--address", "0"}, "1 to 247"},
        {{"--address", "248"}, "1 to 247"},
        {{"--address", "12a"}, "not a number: 12a"},
        {{"--profile", "bogus"}, "unknown profile: bogus"},
        {{"--model", "MI71500"}, "six characters"},
        {{"--number", "-1"}, "0 to 65535"},
        {{"--number", "99999999999"}, "not a number"},
        {{"--transformers", "1,2,3"}, "four numbers"},
        {{"--transformers", "1,2,3,4,"}, "four numbers"},
        {{"--transformers", "a,b,c,d"}, "not a number: a"},
        {{"--transformers", ""}, "four numbers"},
        {{"--transformers", "400,400,5,0"}, "current secondary"},
        {{"--fault", "bogus"}, "unknown fault: bogus"},
        {{"--delay", "61"}, "0 to 60"},
        {{"--delay", "inf"}, "not a number: inf"},
    };
    for (const Case& each : cases) {
        EXPECT_EQ(ExitCode(each.options), 2) << each.complaint;
        EXPECT_TRUE(complaint.contains(QLatin1String(each.complaint))) << complaint.toStdString();
        EXPECT_TRUE(output.isEmpty());
    }
}

TEST_F(SimulatorProcessTest, PlacesThatCannotBeWritten_AreToldAndEndWithOne)
{
    EXPECT_EQ(ExitCode({"--log", PathOf("missing/log")}), 1);
    EXPECT_TRUE(complaint.contains("log can't be written"));
    EXPECT_EQ(ExitCode({"--link", PathOf("missing/link")}), 1);
    EXPECT_TRUE(complaint.contains("link can't be made"));
}

TEST_F(SimulatorProcessTest, Help_TellsEveryOption)
{
    EXPECT_EQ(ExitCode({"--help"}), 0);
    for (const char* option : {"--family", "--address", "--link", "--log", "--profile", "--model", "--number",
                               "--transformers", "--fault", "--delay", "--help"})
        EXPECT_TRUE(output.contains(QLatin1String(option))) << option;
}

} // namespace
} // namespace korvanel::simulator::test
