// The simulator's executable on a real pseudo-terminal, with everything that can be told to it.
#include "remote/SimulatorProcess.h"
#include "tools/LineRequests.h"
#include "tools/OpenLine.h"
#include "tools/SimulatorRequests.h"

#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QThread>

#include <gtest/gtest.h>

#include <csignal>
#include <optional>

#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

namespace korvanel::simulator::test {
namespace {

using korvanel::LoggedExchange;
using korvanel::SimulatorProcess;

std::string TextOf(const Bytes& reply)
{
    return reply.size() < 5 ? std::string() : std::string(reply.begin() + 3, reply.end() - 2);
}

class SimulatorProcessTest : public ::testing::Test
{
protected:
    void Start(const QStringList& options = {}) { StartFamily("iskra", options); }
    void StartFamily(const char* family, const QStringList& options)
    {
        simulator.emplace(folder.path(), QLatin1String(family), options);
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
                                "value 28 nan", "value 28 1e99", "value x 1", "state switch 1"})
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

TEST_F(SimulatorProcessTest, Family_IsTheUsualOneWithoutAnyName)
{
    simulator.emplace(folder.path());
    line.emplace(simulator->Link());
    EXPECT_EQ(Ask(Frame(3, 17, 1), 7).size(), 7U);
}

TEST_F(SimulatorProcessTest, Nanovip_HasASwitchAndStates)
{
    StartFamily("nanovip", {"--switch", "3", "--profile", "constant", "--address", "0"});
    simulator->Tell("state battery low");
    simulator->Tell("value 0 230");
    simulator->Tell("set 1 0285FE");
    for (const char* command : {"state", "state battery", "state switch 2", "address 1", "set 11 1"})
        EXPECT_THROW(simulator->Tell(command), std::runtime_error) << command;
    const std::string reply = PlainText(Ask(BytesOf(":010302020049AF\r\n"), 303));
    ASSERT_EQ(reply.size(), 303U);
    EXPECT_EQ(reply.substr(0, 19), ":0103923002000285FE");
    EXPECT_EQ(reply.substr(295, 2), "40");
    ASSERT_TRUE(Comes([this] { return simulator->Log().size() == 1; }));
    const LoggedExchange exchange = simulator->Log()[0];
    EXPECT_EQ(exchange.kind, "query");
    EXPECT_EQ(exchange.code, -1);
    EXPECT_EQ(exchange.Value("U"), "230");
    EXPECT_EQ(exchange.Value("I"), "-5.02");
    EXPECT_EQ(exchange.Value("f"), "50.0");
    EXPECT_TRUE(exchange.Value("cos").isNull());
}

TEST_F(SimulatorProcessTest, Yokogawa_IsSetUpByCommandsOfTheLine)
{
    StartFamily("wt130", {});
    line->Write(BytesOf("WR3\r\n"));
    EXPECT_EQ(Ask(BytesOf("OD\r\n"), 261).size(), 261U);
    ASSERT_TRUE(Comes([this] { return simulator->Log().size() == 2; }));
    EXPECT_EQ(simulator->Log()[0].kind, "write");
    EXPECT_FALSE(simulator->Log()[1].Value("sign").isNull());
    StartFamily("2535", {"--scale", "2,100"});
    EXPECT_EQ(PlainText(Ask(BytesOf("OS\r\n"), 33)), "MDL2535,WR1,SC1,KV2.000,KA100.0\r\n");
    EXPECT_EQ(Ask(BytesOf("OD\r\n"), 89).size(), 89U);
}

TEST_F(SimulatorProcessTest, Norma_AnswersValueByValue)
{
    StartFamily("norma", {});
    simulator->Tell("value 3 -1500");
    simulator->Tell("set 0 ");
    EXPECT_EQ(PlainText(Ask(BytesOf("*TST?\r\n"), 3)), "0\r\n");
    simulator->Tell("state selftest bad");
    EXPECT_EQ(PlainText(Ask(BytesOf("*TST?\r\n"), 3)), "1\r\n");
    line->Write(BytesOf("volt:rms?\r\n"));
    EXPECT_EQ(PlainText(Ask(BytesOf("pow:act?\r\n"), 13)), "-1.5000E+03\r\n");
    ASSERT_TRUE(Comes([this] { return simulator->Log().size() == 4; }));
    const std::vector<LoggedExchange> log = simulator->Log();
    EXPECT_EQ(log[2].code, 0);
    EXPECT_TRUE(log[2].reply.isEmpty() && log[2].text.isEmpty());
    EXPECT_EQ(log[3].code, 3);
    EXPECT_EQ(log[3].text, "-1.5000E+03");
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
        {{"--family", "nanovip", "--switch", "2"}, "unknown state: switch 2"},
        {{"--switch", "x"}, "not a number: x"},
        {{"--family", "2535", "--scale", "0,1"}, "0.01 to 99999"},
        {{"--scale", "1"}, "two numbers"},
        {{"--scale", "1,2,"}, "two numbers"},
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
    for (const char* option :
         {"--family", "--address", "--link", "--log", "--profile", "--model", "--number", "--transformers", "--switch",
          "--scale", "--fault", "--delay", "--help", "iskra|nanovip|wt130|2535|norma"})
        EXPECT_TRUE(output.contains(QLatin1String(option))) << option;
}

} // namespace
} // namespace korvanel::simulator::test
