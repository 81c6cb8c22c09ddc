#include "acquisition/PollingGrid.h"

#include "core/Clock.h"

namespace korvanel {

namespace {

/// Half a tick: a poll may come early by this, so that the ticks don't shift it by a whole one.
constexpr double kEarliest = 0.0275;

} // namespace

/// The day clock, counted on past midnight.
double PollingGrid::Now() const
{
    return vDayCount * kSecondsPerDay + DayClock();
}

void PollingGrid::Start(double interval)
{
    vDayCount = 0;
    fTimerLast = static_cast<float>(DayClock() - interval); // so that the first poll is due at once
    Restart();
}

void PollingGrid::Restart()
{
    fTimerStart = static_cast<float>(Now());
}

bool PollingGrid::TakeDuePoll(double interval)
{
    // Only midnight takes the clock back behind the last poll: a poll lasts longer than the time by which it may be
    // early.
    if (Now() < fTimerLast)
        ++vDayCount;
    if (Now() - fTimerLast < interval - kEarliest)
        return false;
    fTimerLast = static_cast<float>(fTimerLast + interval); // the nominal time, so that a late poll doesn't shift it
    return true;
}

double PollingGrid::Elapsed() const
{
    return Now() - fTimerStart;
}

} // namespace korvanel
