// The system's serial port on pseudo-terminals: bytes, lines that can't be opened, lines that break off.
#include "instruments/SystemPort.h"

#include "instruments/SerialLink.h"
#include "simulator/PseudoTerminal.h"
#include "support/Fixture.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QThread>
#include <QTimer>

#include <ctime>

#include <sys/stat.h>
#include <unistd.h>

namespace korvanel::test {
namespace {

using simulator::Bytes;
using simulator::PseudoTerminal;

class SystemPortTest : public BlockTest
{
protected:
    SystemPortTest()
    {
        App().TheClock = &realClock;
        App().ThePort = &port;
    }
    ~SystemPortTest() override
    {
        port.Close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    void OpenLine()
    {
        line.emplace();
        device = QString::fromStdString(line->Device());
        port.Open();
    }
    /// What the port says when it is opened.
    QString Complaint()
    {
        try {
            port.Open();
        } catch (const PortError& error) {
            return QString::fromUtf8(error.what());
        }
        return {};
    }
    QByteArray Heard()
    {
        QByteArray all;
        for (int i = 0; i < 20; ++i) {
            const std::optional<Bytes> part = line->Read();
            for (const auto byte : part.value_or(Bytes()))
                all.append(static_cast<char>(byte));
            QThread::msleep(5);
        }
        return all;
    }
    void Say(const QByteArray& bytes) { line->Write(Bytes(bytes.begin(), bytes.end())); }
    /// Lets the event loop run, and gives the share of a processor that it took.
    static double LoadOfEventLoop(int milliseconds)
    {
        const std::clock_t before = std::clock();
        QEventLoop loop;
        QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
        loop.exec();
        return 1000.0 * static_cast<double>(std::clock() - before) / CLOCKS_PER_SEC / milliseconds;
    }

    SystemClock realClock;
    QString device;
    SystemPort port{[this](int) { return device; }};
    std::optional<PseudoTerminal> line;
};

QByteArray AllBytes()
{
    QByteArray all;
    for (int byte = 0; byte < 256; ++byte)
        all.append(static_cast<char>(byte));
    return all;
}

TEST_F(SystemPortTest, EveryByteGoesBothWays)
{
    OpenLine();
    port.Output(AllBytes());
    EXPECT_EQ(Heard(), AllBytes());
    Say(AllBytes());
    QThread::msleep(50);
    EXPECT_EQ(port.Input(), AllBytes());
    EXPECT_EQ(port.Input(), QByteArray()) << "reading empties the buffer";
}

TEST_F(SystemPortTest, PseudoTerminalWithoutControlWiresOpensWithSevenDataBitsToo)
{
    port.Configure({.number = 1, .dataBits = 7});
    OpenLine();
    EXPECT_TRUE(port.IsOpen());
    port.Output("abc");
    EXPECT_EQ(Heard(), "abc");
}

TEST_F(SystemPortTest, LateReply_IsNotTakenForTheAnswerToTheNextRequest)
{
    OpenLine();
    EXPECT_EQ(Exchange("first", 0.01), QByteArray());
    Say("late");
    QThread::msleep(50);
    EXPECT_EQ(Exchange("second", 0.05), QByteArray());
    Say("answer");
    EXPECT_EQ(Heard(), "firstsecond");
}

TEST_F(SystemPortTest, Exchange_TakesItsWaitAndNoMore)
{
    OpenLine();
    for (const double wait : {0.1, 0.15}) {
        QElapsedTimer timer;
        timer.start();
        Exchange("request", wait);
        EXPECT_GE(timer.nsecsElapsed(), static_cast<qint64>(wait * 1e9));
        EXPECT_LT(timer.elapsed(), 1000 * wait + 40);
    }
}

TEST_F(SystemPortTest, PeerThatDoesNotListen_DoesNotHoldTheProgram)
{
    OpenLine();
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < 2000; ++i)
        port.Output(QByteArray(64, 'x'));
    EXPECT_LT(timer.elapsed(), 3000);
}

TEST_F(SystemPortTest, FloodOfBytes_IsCutOff)
{
    OpenLine();
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < 50; ++i) {
        Say(QByteArray(4000, 'x'));
        port.Input();
    }
    Say(QByteArray(4000, 'x'));
    EXPECT_LE(port.Input().size(), 70000);
    EXPECT_LT(timer.elapsed(), 3000);
}

TEST_F(SystemPortTest, MissingDevice_IsTold)
{
    device = "/dev/no such port";
    EXPECT_EQ(Complaint(), "Der Anschluss /dev/no such port ist nicht vorhanden.");
    EXPECT_FALSE(port.IsOpen());
}

TEST_F(SystemPortTest, WhatIsNoSerialPort_IsTold)
{
    WriteContent("file", "text");
    for (const QString& path : {PathOf("file"), folder.path(), QStringLiteral("/dev/null")}) {
        device = path;
        EXPECT_EQ(Complaint(), "Der Anschluss " + path + " lässt sich nicht öffnen.");
    }
    EXPECT_EQ(ContentOf("file"), "text");
}

TEST_F(SystemPortTest, PortInUse_IsTold)
{
    OpenLine();
    SystemPort other([this](int) { return device; });
    try {
        other.Open();
        ADD_FAILURE() << "opened twice";
    } catch (const PortError& error) {
        EXPECT_EQ(QString::fromUtf8(error.what()),
                  "Der Anschluss " + device + " ist durch ein anderes Programm belegt.");
    }
    port.Close();
    other.Open();
    EXPECT_TRUE(other.IsOpen()) << "closing gives the port free";
}

TEST_F(SystemPortTest, PortWithoutPermission_IsTold)
{
    constexpr uid_t kNobody = 65534;
    line.emplace();
    device = QString::fromStdString(line->Device());
    ASSERT_EQ(chmod(line->Device().c_str(), 0), 0);
    const bool isRoot = getuid() == 0; // who may open everything
    if (isRoot) {
        ASSERT_EQ(setresuid(kNobody, kNobody, 0), 0);
    }
    const QString complaint = Complaint();
    if (isRoot) {
        ASSERT_EQ(setresuid(0, 0, 0), 0);
    }
    EXPECT_EQ(complaint, "Für den Anschluss " + device + " fehlen die Zugriffsrechte.");
}

TEST_F(SystemPortTest, LineThatBreaksOff_IsToldByTheNextRequestAndLeavesTheProcessorAlone)
{
    OpenLine();
    EXPECT_LT(LoadOfEventLoop(300), 0.3);
    line.reset();
    EXPECT_LT(LoadOfEventLoop(1000), 0.3) << "a device that has hung up is not asked again and again";
    EXPECT_THROW(port.Output("x"), PortError);
    EXPECT_FALSE(port.IsOpen());
    OpenLine(); // the line is there again
    port.Output("again");
    EXPECT_EQ(Heard(), "again");
}

TEST_F(SystemPortTest, LineThatBreaksOffDuringTheWait_GivesNoReply)
{
    OpenLine();
    port.Output("x");
    line.reset();
    EXPECT_EQ(port.Input(), QByteArray());
    EXPECT_THROW(Exchange("x", 0.01), PortError);
}

TEST_F(SystemPortTest, ClosedPort_RefusesToSend)
{
    EXPECT_THROW(port.Output("x"), PortError);
    EXPECT_THROW(port.Input(), PortError);
}

} // namespace
} // namespace korvanel::test
