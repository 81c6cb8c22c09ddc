// All time comes through here, so that tests can let hours pass in milliseconds.
#pragma once

#include <QDateTime>

namespace korvanel {

class Clock
{
public:
    virtual ~Clock() = default;
    /// Present local date and time.
    virtual QDateTime Now() const = 0;
    /// Seconds on the high-resolution clock, which nobody sets back.
    virtual double Seconds() const = 0;
    /// Lets a time pass exactly, and nothing else runs on this thread meanwhile. The processor is free for others until
    /// shortly before the end; only then is the high-resolution clock looked at all the while.
    virtual void BusyWait(double seconds) const = 0;
};

/// The clock of the system.
class SystemClock : public Clock
{
public:
    QDateTime Now() const override { return QDateTime::currentDateTime(); }
    double Seconds() const override;
    void BusyWait(double seconds) const override;
};

/// Present local date and time, cut to whole seconds as the project file stores them: what the clock on the wall shows,
/// without a zone, so that an hour that daylight saving skips or repeats is a time like any other.
QDateTime PresentMoment();

/// Begins the day clock: takes the seconds since local midnight from the system, this once.
void StartDayClock();

/// Seconds since midnight, 0 to 86400, in single precision. The steady clock carries it on from the program's start, so
/// that neither daylight saving nor a change of the system's time moves it.
float DayClock();

inline constexpr double kSecondsPerDay = 86400;

} // namespace korvanel
