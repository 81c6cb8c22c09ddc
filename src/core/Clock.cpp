#include "core/Clock.h"

#include "core/Common.h"

#include <chrono>
#include <cmath>

namespace korvanel {

double SystemClock::Seconds() const
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

void SystemClock::BusyWait(double seconds) const
{
    const double start = Seconds();
    while (Seconds() - start < seconds) {
    }
}

QDateTime PresentMoment()
{
    const QDateTime now = App().TheClock ? App().TheClock->Now() : SystemClock().Now();
    const QTime time = now.time();
    return {now.date(), QTime(time.hour(), time.minute(), time.second()), Qt::UTC};
}

void StartDayClock()
{
    constexpr double kMillisecondsPerSecond = 1000;
    ApplicationBlock& app = App();
    app.dDayClockStart = app.TheClock->Now().time().msecsSinceStartOfDay() / kMillisecondsPerSecond;
    app.dDayClockSteady = app.TheClock->Seconds();
}

float DayClock()
{
    const ApplicationBlock& app = App();
    return static_cast<float>(
        std::fmod(app.dDayClockStart + app.TheClock->Seconds() - app.dDayClockSteady, kSecondsPerDay));
}

} // namespace korvanel
