// The replies of a power analyser at one bus address: model, number, transformers and the echo of what is written.
#pragma once

#include "instruments/Frames.h"

#include <QByteArray>

#include <functional>

namespace korvanel::test {

/// For `ScriptedPort::answer`. Model "MI7140", number 4711; transformers 20000 V / 100 V and 100 A / 5 A.
inline std::function<QByteArray(const QByteArray&)> IskraAtAddress(int address)
{
    return [address](const QByteArray& request) -> QByteArray {
        if (request.size() != 8 || static_cast<quint8>(request[0]) != address || !HasValidCrc(request))
            return {};
        if (request[1] == 6)
            return request;
        switch (request[3]) {
        case 1:
            return Crc16Append(request.left(2) + "\x06" + "MI7140");
        case 4:
            return Crc16Append(request.left(2) + QByteArray::fromHex("021267"));
        case 15:
            return Crc16Append(request.left(2) + QByteArray::fromHex("020032"));
        case 16:
            return Crc16Append(request.left(2) + QByteArray::fromHex("0287D0"));
        case 17:
            return Crc16Append(request.left(2) + QByteArray::fromHex("020064"));
        case 18:
            return Crc16Append(request.left(2) + QByteArray::fromHex("020014"));
        default:
            return {};
        }
    };
}

} // namespace korvanel::test
