#include "instruments/PortNames.h"

#include "core/SettingsStore.h"

#include <QSerialPortInfo>

#include <algorithm>
#include <map>

namespace korvanel {

namespace {

const QString kPrefix = QStringLiteral("COM");

/// Number of a key "COMn"; 0 for any other key.
int NumberOfKey(const QString& key)
{
    return key.startsWith(kPrefix, Qt::CaseInsensitive) ? std::max(0, key.mid(kPrefix.size()).toInt()) : 0;
}

} // namespace

PortSources SystemPortSources()
{
    PortSources sources;
#ifdef Q_OS_WIN
    sources.isWindows = true;
#endif
    for (const QSerialPortInfo& port : QSerialPortInfo::availablePorts())
        sources.reported << port.systemLocation();
    for (const auto& [key, device] : ReadSection(kSettingsApplication, kPortsSection))
        if (const int number = NumberOfKey(key); number > 0 && !device.trimmed().isEmpty())
            sources.assigned.emplace_back(number, device.trimmed());
    return sources;
}

QString DeviceOfPort(int number, const PortSources& sources)
{
    if (sources.isWindows)
        return kPrefix + QString::number(number);
    for (const auto& [assignedNumber, device] : sources.assigned)
        if (assignedNumber == number)
            return device;
    if (number >= 1 && number <= sources.reported.size())
        return sources.reported[number - 1];
    return QStringLiteral("/dev/ttyS%1").arg(number - 1);
}

std::vector<PortName> PortsOf(const PortSources& sources)
{
    std::map<int, QString> byNumber;
    for (qsizetype i = 0; i < sources.reported.size(); ++i) {
        const QString& device = sources.reported[i];
        // Where the system numbers its ports itself, its number counts.
        const int number = sources.isWindows ? NumberOfKey(device.section(u'\\', -1)) : static_cast<int>(i) + 1;
        if (number > 0)
            byNumber[number] = device;
    }
    if (!sources.isWindows)
        for (const auto& [number, device] : sources.assigned)
            byNumber[number] = device;
    std::vector<PortName> ports;
    ports.reserve(byNumber.size());
    for (const auto& [number, device] : byNumber)
        ports.push_back({number, device});
    return ports;
}

} // namespace korvanel
