// A MODBUS server that somebody else has written, at the other end of the program's line: what the two agree on is the
// standard, and not what one author thought of it.
#pragma once

#include "simulator/PseudoTerminal.h"

#include <QString>

#include <memory>
#include <mutex>
#include <thread>

#include <modbus.h>

namespace korvanel::test {

/// Serves input registers 1 to 4 (model "MI7140", number 4711) and holding registers 0 to 19, numbered as in the frame.
/// What fails throws std::runtime_error.
class ModbusPeer
{
public:
    explicit ModbusPeer(int address = 33);
    ~ModbusPeer() = default;
    ModbusPeer(const ModbusPeer&) = delete;
    ModbusPeer& operator=(const ModbusPeer&) = delete;

    /// What the program opens as its serial port.
    QString Device() const { return QString::fromStdString(programLine.Device()); }
    /// Throws std::out_of_range beyond 19.
    int Register(int number) const;
    void SetRegister(int number, int value);
    /// Requests that were answered.
    int Served() const;

private:
    void Bridge(const std::stop_token& stop);
    void Serve(const std::stop_token& stop);

    simulator::PseudoTerminal programLine;
    simulator::PseudoTerminal serverLine;
    mutable std::mutex guard; ///< of the registers and the count
    std::unique_ptr<modbus_mapping_t, void (*)(modbus_mapping_t*)> registers;
    std::unique_ptr<modbus_t, void (*)(modbus_t*)> server;
    int served = 0;
    // Last, so that they end before what they use goes.
    std::jthread bridge;
    std::jthread service;
};

} // namespace korvanel::test
