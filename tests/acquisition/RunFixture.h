// A run without a page: an instrument and a port in memory, a real project file, a clock that moves only when told, and
// a display that remembers what it was told.
#pragma once

#include "acquisition/MeasurementRun.h"
#include "acquisition/clsTimeSchedule.h"
#include "core/NumberText.h"
#include "data/ValueTables.h"
#include "support/FakeInstrument.h"
#include "support/MovingClock.h"
#include "support/ProjectFixture.h"
#include "support/ScriptedPort.h"

namespace korvanel::test {

class RecordedDisplay : public RunDisplay
{
public:
    int marked = -2;
    bool isTimerShown = false;
    bool isTicking = false;
    bool isLocked = false;
    bool isRunning = false;
    QString countdown, begin, elapsed;
    std::vector<int> lamps;
    int stored = 0;
    int rejected = 0;
    int cleared = 0;
    int dropped = 0;
    qint32 shownRejected = -1;
    int shownStored = 0;
    qint32 shownKept = 0;
    qint32 mostKept = 0;
    std::function<void()> onSample = [] {};

    void MarkEntry(int index) override { marked = index; }
    void ShowTimerPicture(bool isShown) override { isTimerShown = isShown; }
    void ShowCountdown(const QString& text) override { countdown = text; }
    void EnableTicks(bool areEnabled) override { isTicking = areEnabled; }
    void LockPage(bool locked) override { isLocked = locked; }
    void ShowRunning(bool running) override { isRunning = running; }
    void ResetStartColour() override {}
    void UpdateOnline(OnlineMode mode) override
    {
        ++(mode == OnlineMode::Sample ? stored : cleared);
        if (mode == OnlineMode::Sample)
            onSample();
    }
    void ShowBadSample() override { ++rejected; }
    void ShowBegin(const QString& text) override { begin = text; }
    void ShowElapsed(const QString& text) override { elapsed = text; }
    void ShowLamp(int colour) override { lamps.push_back(colour); }
    void ShowInstrument() override {}
    void ShowDropped() override { ++dropped; }
    void ShowRejected(qint32 count) override { shownRejected = count; }
    void ShowStored() override { ++shownStored; }
    void ShowKept(qint32 count) override
    {
        shownKept = count;
        mostKept = std::max(mostKept, count);
    }
};

class RunTest : public ProjectTest
{
protected:
    RunTest()
    {
        App().TheClock = &moving;
        App().ThePort = &port;
        App().TimeSchedule = &schedule;
        StartDayClock();
        port.answer = [this](const QByteArray& request) { return AnswerTo(request); };
        for (const int voltage : {16, 40})
            instrument.texts[voltage] = " 230.0V";
        for (const int current : {12, 13})
            instrument.texts[current] = " 2.000A";
        instrument.texts[28] = "50.00Hz";
        instrument.texts[32] = "  60.00";
    }

    virtual QByteArray AnswerTo(const QByteArray& request)
    {
        if (request.size() > 2 && request[1] == 'M' && request[2] == 16)
            pollTimes.push_back(moving.seconds);
        return isSilent ? QByteArray() : instrument.Reply(request);
    }

    ~RunTest() override { run.End(); }

    /// A project of the single-phase net with the instrument chosen.
    void Open(double interval = 1)
    {
        CreateProject(0);
        App().sDevice = QStringLiteral("ISKRA MI71XX 1Ø2W (1b)");
        App().lModbusAddress = 33;
        App().dInterval = interval;
    }

    /// Lets time pass in ticks of 50 ms; a tick that takes longer is followed by the next one at once. After a start by
    /// hand the time counts from the first poll, which follows on the reading of the instrument's identity.
    void Pass(double duration)
    {
        const double end = moving.seconds + duration + std::exchange(opening, 0);
        while (moving.seconds < end - 1e-9) {
            const double next = moving.seconds + kTick;
            if (display.isTicking)
                run.Tick();
            moving.seconds = std::max(moving.seconds, next);
        }
    }
    void Start()
    {
        run.StartOrStop();
        ASSERT_TRUE(run.IsTicking());
        if (!schedule.Entry(schedule.CurrentSet()).HasStartTime())
            opening = kIdentity;
    }

    QString Sets() const { return Query("SELECT group_concat([Set]) FROM SampledValues"); }
    QString Times() const { return Query("SELECT group_concat(t) FROM SampledValues"); }
    int Count() const { return Query("SELECT count(*) FROM SampledValues").toInt(); }
    QDateTime After(double duration) const
    {
        const QDateTime at = moving.Now().addMSecs(static_cast<qint64>(duration * 1000));
        return {at.date(), QTime(at.time().hour(), at.time().minute(), at.time().second()), Qt::UTC};
    }
    static ScheduleEntry Timed(const QDateTime& begin, const QDateTime& stop)
    {
        return {StartMode::Timed, StopMode::Timed, begin, stop, static_cast<qint32>(begin.secsTo(stop))};
    }

    static constexpr double kTick = 0.05;
    static constexpr double kIdentity = 0.3; ///< two requests of 0.15 s
    double opening = 0;
    MovingClock moving;
    FakeInstrument instrument;
    ScriptedPort port;
    clsTimeSchedule schedule;
    RecordedDisplay display;
    MeasurementRun run{schedule, display};
    bool isSilent = false;
    std::vector<double> pollTimes; ///< of the first query of each sample
};

} // namespace korvanel::test
