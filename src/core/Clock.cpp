#include "core/Clock.h"

#include "core/Common.h"

namespace korvanel {

QDateTime PresentMoment()
{
    const QDateTime now = App().TheClock ? App().TheClock->Now() : SystemClock().Now();
    return now.addMSecs(-now.time().msec());
}

} // namespace korvanel
