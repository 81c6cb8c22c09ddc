// A serial port in memory: a routine gives the reply to each request, and everything is recorded.
#pragma once

#include "instruments/SerialPort.h"

#include <functional>
#include <vector>

namespace korvanel::test {

class ScriptedPort : public SerialPort
{
public:
    /// Reply to a request; what it returns is in the receive buffer at once.
    std::function<QByteArray(const QByteArray&)> answer = [](const QByteArray&) { return QByteArray(); };
    std::string openError; ///< not empty: the port can't be opened

    std::vector<QByteArray> requests;
    PortSettings settings;
    int openings = 0;
    bool isOpen = false;
    QByteArray received; ///< what the next `Input` takes

    void Configure(const PortSettings& wanted) override { settings = wanted; }
    void Open() override
    {
        if (!openError.empty())
            throw PortError(openError);
        isOpen = true;
        ++openings;
    }
    void Close() override { isOpen = false; }
    bool IsOpen() const override { return isOpen; }
    void Output(const QByteArray& bytes) override
    {
        requests.push_back(bytes);
        received += answer(bytes);
    }
    QByteArray Input() override { return std::exchange(received, {}); }
};

} // namespace korvanel::test
