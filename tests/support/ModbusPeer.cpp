#include "support/ModbusPeer.h"

#include <array>
#include <cerrno>
#include <stdexcept>
#include <string>

#include <poll.h>

namespace korvanel::test {

namespace {

constexpr int kHoldingRegisters = 20;
constexpr int kFirstInput = 1;
constexpr int kLookForEndMs = 50;

modbus_mapping_t* NewRegisters()
{
    constexpr std::array<std::uint16_t, 4> kIdentity = {'M' << 8 | 'I', '7' << 8 | '1', '4' << 8 | '0', 4711};
    modbus_mapping_t* mapping =
        modbus_mapping_new_start_address(0, 0, 0, 0, 0, kHoldingRegisters, kFirstInput, kIdentity.size());
    if (mapping != nullptr)
        std::copy(kIdentity.begin(), kIdentity.end(), mapping->tab_input_registers);
    return mapping;
}

void CloseServer(modbus_t* server)
{
    modbus_close(server);
    modbus_free(server);
}

void Check(bool isDone, const char* what)
{
    if (!isDone)
        throw std::runtime_error(std::string(what) + ": " + modbus_strerror(errno));
}

void CheckNumber(int number)
{
    if (number < 0 || number >= kHoldingRegisters)
        throw std::out_of_range("no holding register " + std::to_string(number));
}

} // namespace

ModbusPeer::ModbusPeer(int address)
    : registers(NewRegisters(), modbus_mapping_free),
      server(modbus_new_rtu(serverLine.Device().c_str(), 9600, 'N', 8, 1), CloseServer)
{
    Check(registers != nullptr, "registers");
    Check(server != nullptr, "server");
    Check(modbus_set_slave(server.get(), address) == 0, "address");
    Check(modbus_set_indication_timeout(server.get(), 0, kLookForEndMs * 1000) == 0, "timeout");
    Check(modbus_connect(server.get()) == 0, "connection");
    bridge = std::jthread([this](const std::stop_token& stop) { Bridge(stop); });
    service = std::jthread([this](const std::stop_token& stop) { Serve(stop); });
}

int ModbusPeer::Register(int number) const
{
    CheckNumber(number);
    const std::lock_guard lock(guard);
    return registers->tab_registers[number];
}

void ModbusPeer::SetRegister(int number, int value)
{
    CheckNumber(number);
    const std::lock_guard lock(guard);
    registers->tab_registers[number] = static_cast<std::uint16_t>(value);
}

int ModbusPeer::Served() const
{
    const std::lock_guard lock(guard);
    return served;
}

void ModbusPeer::Bridge(const std::stop_token& stop)
{
    struct Way
    {
        simulator::PseudoTerminal& from;
        simulator::PseudoTerminal& to;
    };
    const Way ways[] = {{programLine, serverLine}, {serverLine, programLine}};
    while (!stop.stop_requested()) {
        std::array<pollfd, 2> waiting{};
        for (std::size_t way = 0; way < waiting.size(); ++way)
            waiting[way] = {ways[way].from.Descriptor(), POLLIN, 0};
        if (poll(waiting.data(), waiting.size(), kLookForEndMs) <= 0)
            continue;
        for (const Way& way : ways)
            if (const auto bytes = way.from.Read())
                way.to.Write(*bytes);
    }
}

void ModbusPeer::Serve(const std::stop_token& stop)
{
    std::array<std::uint8_t, MODBUS_RTU_MAX_ADU_LENGTH> request{};
    while (!stop.stop_requested()) {
        const int length = modbus_receive(server.get(), request.data());
        if (length <= 0) // nothing for a while, or nothing for this address
            continue;
        const std::lock_guard lock(guard);
        if (modbus_reply(server.get(), request.data(), length, registers.get()) > 0)
            ++served;
    }
}

} // namespace korvanel::test
