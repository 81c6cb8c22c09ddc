// The no-load test with an instrument, a port and a clock in memory. The instrument reports line voltage, the total of
// three currents, frequency and phase angle; P = sqrt(3) U I cos phi.
#include "motors/NoLoadMeasurement.h"

#include "core/Clock.h"
#include "support/FakeInstrument.h"
#include "support/Fixture.h"
#include "support/MovingClock.h"
#include "support/ScriptedPort.h"

#include <cmath>

namespace korvanel::test {
namespace {

const QString kFailed = QStringLiteral("Es sind Fehler bei der Leerlaufmessung aufgetreten.\n"
                                       "Wiederholen Sie Messung wenn möglich.");
const QString kScattered = QStringLiteral("Die gemessenen Werte schwankten zu stark.\n"
                                          "Wiederholen Sie Messung wenn möglich.");
const NoLoadTexts kDashes{"-", "-", "-", "-"};
const NoLoadTexts kEmpty{};
/// 400 V, 33 A / 3, 50 Hz, 85 degrees: 664.22 W by a pocket calculator.
const NoLoadTexts kSteady{"0,66422", "400", "11", "50"};

class RecordedNoLoad : public NoLoadDisplay
{
public:
    bool isTicking = false;
    bool isMeasuring = false;
    int restored = 0;
    std::vector<NoLoadTexts> shown;

    void EnableTicks(bool areEnabled) override { isTicking = areEnabled; }
    void ShowMeasuring(bool measuring) override { isMeasuring = measuring; }
    void ShowNoLoad(const NoLoadTexts& texts) override { shown.push_back(texts); }
    void RestoreNoLoad() override { ++restored; }
};

class NoLoadTest : public BlockTest
{
protected:
    NoLoadTest()
    {
        App().TheClock = &moving;
        App().ThePort = &port;
        StartDayClock();
        App().iNetConfIndex = 2;
        App().sDevice = QString::fromUtf8("ISKRA MI71XX 3Ø3W (3u)");
        App().lModbusAddress = 33;
        App().lComPort = 3;
        Show(400, 33, 50, 85);
        port.answer = [this](const QByteArray& request) {
            if (request.size() > 2 && request[1] == 'M' && request[2] == 40) {
                pollTimes.push_back(moving.seconds);
                atPoll(static_cast<int>(pollTimes.size()));
            }
            return isSilent ? QByteArray() : instrument.Reply(request);
        };
    }
    /// What the instrument shows: V, A in total, Hz, degrees.
    void Show(double U, double I, double f, double phi)
    {
        instrument.texts[40] = QByteArray::number(U, 'f', 1).rightJustified(6) + 'V';
        instrument.texts[12] = QByteArray::number(I, 'f', 3).rightJustified(6).left(6) + 'A';
        instrument.texts[28] = QByteArray::number(f, 'f', 2).rightJustified(5) + "Hz";
        instrument.texts[32] = QByteArray::number(phi, 'f', 2).rightJustified(7);
    }
    void Pass(double duration)
    {
        const double end = moving.seconds + duration;
        while (moving.seconds < end - 1e-9) {
            const double next = moving.seconds + 0.05;
            if (display.isTicking)
                test.Tick();
            moving.seconds = std::max(moving.seconds, next);
        }
    }
    void ExpectEnded()
    {
        EXPECT_FALSE(test.IsMeasuring());
        EXPECT_FALSE(display.isTicking);
        EXPECT_FALSE(display.isMeasuring);
        EXPECT_FALSE(port.isOpen);
    }

    MovingClock moving;
    FakeInstrument instrument;
    ScriptedPort port;
    RecordedNoLoad display;
    NoLoadMeasurement test{display};
    bool isSilent = false;
    std::function<void(int)> atPoll = [](int) {};
    std::vector<double> pollTimes;
};

TEST_F(NoLoadTest, Start_LocksThePageShowsDashesAndOpensThePort)
{
    test.StartOrStop(1);
    EXPECT_TRUE(test.IsMeasuring());
    EXPECT_TRUE(display.isMeasuring);
    EXPECT_TRUE(display.isTicking);
    EXPECT_EQ(display.shown, std::vector{kDashes});
    EXPECT_TRUE(port.isOpen);
    EXPECT_EQ(port.settings.number, 3);
}

TEST_F(NoLoadTest, SteadyValues_SevenSamplesOneEachIntervalAndTheirMeans)
{
    test.StartOrStop(1);
    Pass(20);
    ASSERT_EQ(pollTimes.size(), 7U);
    for (std::size_t i = 0; i < pollTimes.size(); ++i)
        EXPECT_NEAR(pollTimes[i] - pollTimes[0], static_cast<double>(i), 0.0275 + 1e-9) << i;
    ASSERT_EQ(display.shown.size(), 8U);
    for (std::size_t i = 1; i < display.shown.size(); ++i)
        EXPECT_EQ(display.shown[i], kSteady) << i;
    ExpectEnded();
    EXPECT_EQ(display.restored, 0);
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(NoLoadTest, Means_AreThoseOfTheSevenSamples)
{
    const double volts[] = {400, 401, 402, 403, 404, 405, 406};
    atPoll = [&](int poll) { Show(volts[poll - 1], 33, 50, 85); };
    test.StartOrStop(1);
    Pass(20);
    EXPECT_EQ(display.shown[1][1], "400");
    EXPECT_EQ(display.shown[6][1], "405");
    EXPECT_EQ(display.shown.back()[1], "403");
    // 664.22 W / 400 V * 403 V
    EXPECT_EQ(display.shown.back()[0], "0,6692");
}

TEST_F(NoLoadTest, Interval_IsKeptAlsoAboveOneSecond)
{
    test.StartOrStop(5);
    Pass(4);
    EXPECT_EQ(pollTimes.size(), 1U);
    Pass(40);
    ASSERT_EQ(pollTimes.size(), 7U);
    EXPECT_NEAR(pollTimes[6] - pollTimes[0], 30, 0.0275 + 1e-9);
}

TEST_F(NoLoadTest, Midnight_MakesNoDifference)
{
    moving.start = QDateTime(QDate(2026, 3, 14), QTime(23, 59, 56, 200), Qt::UTC);
    StartDayClock();
    test.StartOrStop(1);
    Pass(20);
    ASSERT_EQ(pollTimes.size(), 7U);
    for (std::size_t i = 0; i < pollTimes.size(); ++i)
        EXPECT_NEAR(pollTimes[i] - pollTimes[0], static_cast<double>(i), 0.05) << i;
    EXPECT_EQ(display.shown.back(), kSteady);
}

TEST_F(NoLoadTest, Transformers_ScaleVoltageAndCurrent)
{
    App().dTransPrimary = {1000, 100};
    App().dTransSecondary = {100, 5};
    test.StartOrStop(1);
    Pass(20);
    EXPECT_EQ(display.shown.back(), (NoLoadTexts{"132,84", "4000", "220", "50"}));
}

TEST_F(NoLoadTest, Transformers_NothingIsDividedByZero)
{
    App().dTransSecondary = {0, 0};
    test.StartOrStop(1);
    Pass(20);
    EXPECT_EQ(display.shown.back(), kSteady);
}

TEST_F(NoLoadTest, OutlierOfMoreThanFivePercent_FailsWithMessageSeven)
{
    for (const int at : {1, 4, 7}) {
        for (const double current : {28.0, 38.0}) {
            shell.boxes.clear();
            pollTimes.clear();
            atPoll = [&](int poll) { Show(400, poll == at ? current : 33, 50, 85); };
            test.StartOrStop(1);
            Pass(20);
            EXPECT_EQ(shell.BoxTexts(), QStringList{kScattered}) << at;
            EXPECT_EQ(shell.boxes[0].title, "Fehlermeldung");
            EXPECT_EQ(display.shown.back(), kEmpty);
            ExpectEnded();
        }
    }
}

TEST_F(NoLoadTest, Tolerance_IsTakenFromTheSampleAndNotFromTheMean)
{
    const auto agree = [](double outlier) {
        std::vector<NoLoadSample> samples(6, NoLoadSample{100, 100, 100, 100});
        samples.push_back({100, 100, outlier, 100});
        return MeanOfAgreeing(samples).has_value();
    };
    // By hand: x agrees from 600 / 6.35 = 94.488 to 600 / 5.65 = 106.195; with 5 % of the mean it would be from 94.215
    // to 105.882.
    EXPECT_FALSE(agree(94.4));
    EXPECT_TRUE(agree(94.5));
    EXPECT_TRUE(agree(106.1));
    EXPECT_FALSE(agree(106.3));
}

TEST_F(NoLoadTest, ZeroAgreesOnlyWithZeros)
{
    EXPECT_TRUE(MeanOfAgreeing(std::vector<NoLoadSample>(7, NoLoadSample{0, 400, 0, 50})));
    std::vector<NoLoadSample> samples(7, NoLoadSample{1, 400, 1, 50});
    samples[2][0] = 0;
    EXPECT_FALSE(MeanOfAgreeing(samples));
    samples.assign(7, NoLoadSample{0, 400, 0, 50});
    samples[2][0] = 1e-9;
    EXPECT_FALSE(MeanOfAgreeing(samples));
}

TEST_F(NoLoadTest, SilentInstrument_EndsAtTheThirteenthTickWithMessageSix)
{
    isSilent = true;
    test.StartOrStop(1);
    Pass(30);
    EXPECT_EQ(pollTimes.size(), 13U);
    EXPECT_EQ(shell.BoxTexts(), QStringList{kFailed});
    EXPECT_EQ(display.shown.back(), kEmpty);
    EXPECT_EQ(display.shown.size(), 1U + 13 + 1);
    ExpectEnded();
}

TEST_F(NoLoadTest, RejectedSamples_ShowDashesAndAreMadeUpFor)
{
    atPoll = [this](int poll) { isSilent = poll % 2 == 1; };
    test.StartOrStop(1);
    Pass(30);
    // Every second one is accepted: the sixth good sample at the 12th poll, and the 13th is rejected.
    EXPECT_EQ(pollTimes.size(), 13U);
    EXPECT_EQ(display.shown[1], kDashes);
    EXPECT_EQ(display.shown[2], kSteady);
    EXPECT_EQ(shell.BoxTexts(), QStringList{kFailed});
}

TEST_F(NoLoadTest, SixRejectedSamples_LeaveRoomForSevenGoodOnes)
{
    atPoll = [this](int poll) { isSilent = poll <= 6; };
    test.StartOrStop(1);
    Pass(30);
    EXPECT_EQ(pollTimes.size(), 13U);
    EXPECT_EQ(display.shown.back(), kSteady);
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(NoLoadTest, AfterThirteenTicks_GoodSamplesGoOnAndTheNextBadOneEnds)
{
    atPoll = [this](int poll) { isSilent = poll <= 12 || poll == 15; };
    test.StartOrStop(1);
    Pass(30);
    EXPECT_EQ(pollTimes.size(), 15U);
    EXPECT_EQ(shell.BoxTexts(), QStringList{kFailed});
    pollTimes.clear();
    shell.boxes.clear();
    atPoll = [this](int poll) { isSilent = poll <= 12; };
    test.StartOrStop(1);
    Pass(30);
    EXPECT_EQ(pollTimes.size(), 19U);
    EXPECT_TRUE(shell.boxes.empty());
    EXPECT_EQ(display.shown.back(), kSteady);
}

TEST_F(NoLoadTest, NegativePower_IsNoSample)
{
    Show(400, 33, 50, 100);
    test.StartOrStop(1);
    Pass(30);
    EXPECT_EQ(shell.BoxTexts(), QStringList{kFailed});
    EXPECT_EQ(display.shown[3], kDashes);
}

TEST_F(NoLoadTest, NegativeVoltageOrCurrent_IsNoSample)
{
    for (const int code : {40, 12}) { // voltage and current in total
        Show(400, 33, 50, 85);
        display.shown.clear();
        shell.boxes.clear();
        atPoll = [&](int poll) {
            if (poll == 3)
                instrument.texts[code] = code == 40 ? "-400.0V" : "-33.00A";
        };
        test.StartOrStop(1);
        Pass(30);
        ASSERT_GT(display.shown.size(), 3U) << code;
        EXPECT_EQ(display.shown[2], kSteady) << code;
        EXPECT_EQ(display.shown[3], kDashes) << code;
        EXPECT_EQ(shell.BoxTexts(), QStringList{kFailed}) << code;
        pollTimes.clear();
    }
}

TEST_F(NoLoadTest, Poll_MayComeEarlyByHalfATickAndNoMore)
{
    for (const double early : {0.021, 0.034}) { // the clock resolves 4 ms in the afternoon
        pollTimes.clear();
        test.StartOrStop(1);
        const double nominal = moving.seconds + 1; // the first poll is due at once
        moving.seconds += 0.05;
        test.Tick();
        ASSERT_EQ(pollTimes.size(), 1U);
        moving.seconds = nominal - early;
        test.Tick();
        EXPECT_EQ(pollTimes.size(), early < 0.0275 ? 2U : 1U) << early;
        test.Stop();
    }
}

TEST_F(NoLoadTest, PowerOfZero_IsAccepted)
{
    Show(400, 0, 50, 60);
    test.StartOrStop(1);
    Pass(30);
    EXPECT_EQ(display.shown.back(), (NoLoadTexts{"0", "400", "0", "50"}));
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(NoLoadTest, Pressed_AgainEndsAndBringsTheFormerValuesBack)
{
    test.StartOrStop(1);
    Pass(2.5);
    test.StartOrStop(1);
    ExpectEnded();
    EXPECT_EQ(display.restored, 1);
    EXPECT_TRUE(shell.boxes.empty());
    const std::size_t polls = pollTimes.size();
    Pass(5);
    EXPECT_EQ(pollTimes.size(), polls);
}

TEST_F(NoLoadTest, Restart_CountsFromZero)
{
    isSilent = true;
    test.StartOrStop(1);
    Pass(9.5);
    test.StartOrStop(1);
    isSilent = false;
    pollTimes.clear();
    atPoll = [this](int poll) { isSilent = poll <= 5; };
    test.StartOrStop(1);
    Pass(30);
    EXPECT_EQ(pollTimes.size(), 12U);
    EXPECT_EQ(display.shown.back(), kSteady);
}

TEST_F(NoLoadTest, PortThatCantBeOpened_IsToldAndNothingIsMeasured)
{
    port.openError = "busy";
    test.StartOrStop(1);
    EXPECT_EQ(shell.BoxTexts(), QStringList{"COM3: busy"});
    ExpectEnded();
    EXPECT_EQ(display.restored, 1);
    EXPECT_TRUE(pollTimes.empty());
}

TEST_F(NoLoadTest, UnknownInstrument_IsToldAndNothingIsMeasured)
{
    App().sDevice = QStringLiteral("NORMA D4355 3Ø5W");
    test.StartOrStop(1);
    EXPECT_EQ(shell.boxes.size(), 1U);
    ExpectEnded();
}

TEST_F(NoLoadTest, PortThatFailsDuringThePoll_IsToldAndEndsTheMeasurement)
{
    atPoll = [](int poll) {
        if (poll == 3)
            throw PortError("unplugged");
    };
    test.StartOrStop(1);
    Pass(10);
    EXPECT_EQ(pollTimes.size(), 3U);
    EXPECT_EQ(shell.BoxTexts(), QStringList{"COM3: unplugged"});
    ExpectEnded();
    EXPECT_EQ(display.restored, 1);
}

TEST_F(NoLoadTest, PendingDeviceError_IsToldOnceAndEndsTheStart)
{
    App().sDevError = QStringLiteral("Kann eingestelltes Messgerät nicht finden!");
    test.StartOrStop(1);
    EXPECT_EQ(shell.BoxTexts(), QStringList{"Kann eingestelltes Messgerät nicht finden!"});
    ExpectEnded();
    EXPECT_EQ(port.openings, 0);
    test.StartOrStop(1);
    EXPECT_TRUE(test.IsMeasuring()) << "it was told, and the next start is free of it";
}

TEST_F(NoLoadTest, PollsSlowerThanTheInterval_FollowWithoutAPause)
{
    atPoll = [this](int) { moving.seconds += 2; };
    test.StartOrStop(1);
    Pass(40);
    EXPECT_EQ(pollTimes.size(), 7U);
    EXPECT_EQ(display.shown.back(), kSteady);
}

TEST_F(NoLoadTest, Texts_HaveFiveSignificantDigits)
{
    EXPECT_EQ(TextsOfNoLoad({664.2249, 400.00449, 11.00009, 49.98765}),
              (NoLoadTexts{"0,66422", "400", "11", "49,988"}));
    EXPECT_EQ(TextsOfNoLoad({1234567.8, 123456.7, 0.000123456, 50}),
              (NoLoadTexts{"1234,6", "123460", "0,00012346", "50"}));
}

} // namespace
} // namespace korvanel::test
