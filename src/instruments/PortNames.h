// Which device stands behind the number of a serial port. A project stores the number; the device is found anew on each
// machine.
#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace korvanel {

/// What decides over the device of a number.
struct PortSources
{
    bool isWindows = false;
    QStringList reported;                          ///< devices that the system reports, in its order
    std::vector<std::pair<int, QString>> assigned; ///< devices that the user has assigned to numbers
};

/// A serial port as a list shows it.
struct PortName
{
    int number = 1;
    QString device;
};

/// Present state of this machine: its ports, and the entries "COMn" of section "Ports" in the user's settings.
PortSources SystemPortSources();

/// On Windows "COMn". Elsewhere the device assigned to the number, else the n-th of the reported ones, else
/// "/dev/ttyS(n-1)". Numbers start from 1.
QString DeviceOfPort(int number, const PortSources& sources);

/// Ports to choose from, by number: the assigned and the reported ones.
std::vector<PortName> PortsOf(const PortSources& sources);

} // namespace korvanel
