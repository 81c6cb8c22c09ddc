// A power analyser in memory, for a port in memory.
#pragma once

#include "instruments/Frames.h"

#include <QByteArray>

#include <map>

namespace korvanel::test {

/// An instrument by its protocol: registers, and a text for each value code.
class FakeInstrument
{
public:
    char address = 33;
    std::map<int, int> registers{{4, 4711}, {15, 50}, {16, 0x8000 | 2000}, {17, 100}, {18, 20}, {19, 0}};
    std::map<int, QByteArray> texts;

    QByteArray Reply(const QByteArray& request)
    {
        if (request.isEmpty() || request[0] != address || !HasValidCrc(request))
            return {};
        const int function = request[1];
        if (function == 'M')
            return Crc16Append(request.left(2) + QByteArray("\x01") + texts[static_cast<quint8>(request[2])]);
        const int reg = static_cast<quint8>(request[2]) << 8 | static_cast<quint8>(request[3]);
        if (function == 6) {
            registers[reg] = static_cast<quint8>(request[4]) << 8 | static_cast<quint8>(request[5]);
            return request;
        }
        if (reg == 1)
            return Crc16Append(request.left(2) + QByteArray("\x06") + "MI7140");
        const int value = registers[reg];
        QByteArray reply = request.left(2) + QByteArray("\x02");
        reply.append(static_cast<char>(value >> 8)).append(static_cast<char>(value & 0xFF));
        return Crc16Append(reply);
    }
};

} // namespace korvanel::test
