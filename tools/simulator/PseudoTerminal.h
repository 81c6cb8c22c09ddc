// A pseudo-terminal that stands in for a serial line: the simulator has its master, a program opens its slave as it
// would open a serial port. A symbolic link gives the slave a name that stays the same from run to run.
#pragma once

#include "simulator/Bytes.h"

#include <optional>
#include <string>

namespace korvanel::simulator {

class FileDescriptor
{
public:
    explicit FileDescriptor(int opened) : number(opened) {}
    ~FileDescriptor();
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    int Number() const { return number; }

private:
    int number;
};

class PseudoTerminal
{
public:
    /// Throws std::system_error.
    PseudoTerminal();

    /// Path of the slave.
    const std::string& Device() const { return device; }
    /// Of the master, to poll.
    int Descriptor() const { return master.Number(); }
    /// What has arrived, possibly nothing; no value once the terminal is broken.
    std::optional<Bytes> Read();
    /// Bytes that find no room are lost, as on a line that nobody listens to.
    void Write(ByteView bytes);
    /// Lets programs open the line again after one was killed that had it for itself: that would end only with the
    /// last descriptor of the slave, which is ours.
    void AllowOpening();

private:
    FileDescriptor master;
    std::string device;
    FileDescriptor slave; ///< kept open, or else the master fails while no program has the line open
};

/// A symbolic link to a device, as long as the object lives.
class DeviceLink
{
public:
    /// Replaces a link, but nothing else: throws std::runtime_error if something else has that name or if the link
    /// can't be made.
    DeviceLink(std::string path, std::string device);
    ~DeviceLink();
    DeviceLink(const DeviceLink&) = delete;
    DeviceLink& operator=(const DeviceLink&) = delete;

private:
    std::string path;
    std::string device;
};

} // namespace korvanel::simulator
