#include "core/Clock.h"

#include "core/Common.h"

#include <chrono>
#include <cmath>
#include <thread>

namespace korvanel {

double SystemClock::Seconds() const
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

void SystemClock::BusyWait(double seconds) const
{
    using std::chrono::duration;
    using std::chrono::steady_clock;
    constexpr duration<double> kSpinning(0.002); // a sleeping thread is woken later than it asked for
    const auto end =
        steady_clock::now() + std::chrono::duration_cast<steady_clock::duration>(duration<double>(seconds));
    std::this_thread::sleep_until(end - std::chrono::duration_cast<steady_clock::duration>(kSpinning));
    while (steady_clock::now() < end) {
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
