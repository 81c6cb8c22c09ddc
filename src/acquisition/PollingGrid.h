// The time grid of the polls, as a run and a no-load test keep it: each poll has its nominal time, one interval behind
// the one before, however late it is taken. The day clock that it goes by falls back to 0 at midnight, which is
// counted.
#pragma once

#include <QtGlobal>

namespace korvanel {

/// A tick looks this often whether a poll is due.
inline constexpr int kTickMilliseconds = 50;

class PollingGrid
{
public:
    /// Begins a grid whose first poll is due at once; the interval in seconds.
    void Start(double interval);
    /// Lets the time that is shown begin anew.
    void Restart();
    /// Whether the next poll is due, which moves the grid on by an interval then. Polls that were missed follow one by
    /// one, until the grid is reached again.
    bool TakeDuePoll(double interval);
    /// Seconds since the last `Restart`.
    double Elapsed() const;

private:
    double Now() const;

    float fTimerStart = 0; ///< s of the day clock at the beginning, counted on past midnight
    float fTimerLast = 0;  ///< s, nominal time of the last poll, counted on past midnight
    qint32 vDayCount = 0;  ///< midnights since the beginning
};

} // namespace korvanel
