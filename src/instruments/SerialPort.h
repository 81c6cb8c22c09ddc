// The serial port as the drivers see it: open, close, write bytes, take what has arrived. The real one is the system's;
// tests script one in memory.
#pragma once

#include <QByteArray>

#include <stdexcept>

namespace korvanel {

/// A port that can't be opened; `what` is the system's reason.
class PortError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// Line settings of a port. All instruments run at 9600 baud, without parity, with one stop bit and no handshake.
struct PortSettings
{
    int number = 1; ///< of the serial port
    int baud = 9600;
    int dataBits = 8;
    bool isDtrOn = true;
    bool isRtsOn = false;
};

class SerialPort
{
public:
    virtual ~SerialPort() = default;
    /// Takes effect with the next opening.
    virtual void Configure(const PortSettings& settings) = 0;
    /// Throws PortError.
    virtual void Open() = 0;
    virtual void Close() = 0;
    virtual bool IsOpen() const = 0;
    virtual void Output(const QByteArray& bytes) = 0;
    /// Reads and clears the receive buffer; may be empty.
    virtual QByteArray Input() = 0;
};

} // namespace korvanel
