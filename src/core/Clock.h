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
};

/// The clock of the system.
class SystemClock : public Clock
{
public:
    QDateTime Now() const override { return QDateTime::currentDateTime(); }
};

/// Present local date and time, cut to whole seconds as the project file stores them: what the clock on the wall shows,
/// without a zone, so that an hour that daylight saving skips or repeats is a time like any other.
QDateTime PresentMoment();

} // namespace korvanel
