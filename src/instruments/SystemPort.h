// The serial port of the system. Requests are written and replies taken without waiting for the event loop, since the
// link waits by itself; a line that breaks off closes the port at once, so that nothing keeps asking a device that is
// gone.
#pragma once

#include "instruments/SerialPort.h"

#include <QString>

#include <functional>
#include <memory>

class QSerialPort;

namespace korvanel {

class SystemPort : public SerialPort
{
public:
    /// `deviceOf` gives the device of a port number, asked at each opening.
    explicit SystemPort(std::function<QString(int)> deviceOf);
    ~SystemPort() override;
    void Configure(const PortSettings& wanted) override { settings = wanted; }
    void Open() override;
    void Close() override;
    bool IsOpen() const override;
    void Output(const QByteArray& bytes) override;
    QByteArray Input() override;

private:
    void WatchForLoss();
    [[noreturn]] void ThrowLost();

    std::function<QString(int)> deviceOf;
    PortSettings settings;
    std::unique_ptr<QSerialPort> port;
    QString device; ///< of the open port
    bool isLost = false;
};

} // namespace korvanel
