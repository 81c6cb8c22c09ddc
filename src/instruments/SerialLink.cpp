#include "instruments/SerialLink.h"

#include "core/Clock.h"
#include "core/Common.h"
#include "instruments/SerialPort.h"

#include <cmath>

namespace korvanel {

void LinkSettings(int dataBits)
{
    App().ThePort->Configure({.number = App().lComPort, .dataBits = dataBits});
}

double LinkClock()
{
    constexpr double kSteps = 1e4;
    return std::floor(App().TheClock->Seconds() * kSteps) / kSteps;
}

void LinkWait(double seconds)
{
    App().TheClock->BusyWait(seconds);
}

QByteArray Exchange(const QByteArray& request, double wait)
{
    App().ThePort->Input();
    App().ThePort->Output(request);
    LinkWait(wait);
    return App().ThePort->Input();
}

} // namespace korvanel
