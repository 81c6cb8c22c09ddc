#include "core/Clock.h"

#include "core/Common.h"

namespace korvanel {

QDateTime PresentMoment()
{
    const QDateTime now = App().TheClock ? App().TheClock->Now() : SystemClock().Now();
    const QTime time = now.time();
    return {now.date(), QTime(time.hour(), time.minute(), time.second()), Qt::UTC};
}

} // namespace korvanel
