// A clock that moves only when told, wall time and steady time together.
#pragma once

#include "core/Clock.h"

#include <functional>

namespace korvanel::test {

/// Wall time and steady time move together but for what a test does to one of them.
class MovingClock : public Clock
{
public:
    QDateTime start{QDate(2026, 3, 14), QTime(15, 9, 26, 300), Qt::UTC};
    mutable double seconds = 1000;
    double wallOffset = 0; ///< s by which the wall clock was set
    QDateTime Now() const override { return start.addMSecs(static_cast<qint64>((seconds - 1000 + wallOffset) * 1000)); }
    double Seconds() const override { return seconds; }
    void BusyWait(double wait) const override
    {
        seconds += wait;
        onWait();
    }
    std::function<void()> onWait = [] {}; ///< what happens elsewhere meanwhile
};

} // namespace korvanel::test
