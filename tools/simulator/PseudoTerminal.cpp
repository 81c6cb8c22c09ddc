#include "simulator/PseudoTerminal.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <system_error>

#include <fcntl.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

namespace korvanel::simulator {

namespace {

int Checked(int result, const char* what)
{
    if (result < 0)
        throw std::system_error(errno, std::generic_category(), what);
    return result;
}

std::string UnlockSlave(int master)
{
    Checked(grantpt(master), "grantpt");
    Checked(unlockpt(master), "unlockpt");
    const char* const name = ptsname(master); // NOLINT(concurrency-mt-unsafe): one thread
    if (name == nullptr)
        throw std::system_error(errno, std::generic_category(), "ptsname");
    return name;
}

/// Every byte as it is: no echo, no lines, no signals.
void MakeRaw(int descriptor)
{
    termios settings{};
    Checked(tcgetattr(descriptor, &settings), "tcgetattr");
    cfmakeraw(&settings);
    Checked(tcsetattr(descriptor, TCSANOW, &settings), "tcsetattr");
}

} // namespace

FileDescriptor::~FileDescriptor()
{
    if (number >= 0)
        close(number);
}

PseudoTerminal::PseudoTerminal()
    : master(Checked(posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC), "posix_openpt")),
      device(UnlockSlave(master.Number())), slave(Checked(open(device.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC), "open"))
{
    MakeRaw(slave.Number());
}

std::optional<Bytes> PseudoTerminal::Read()
{
    std::array<Byte, 4096> buffer{};
    const ssize_t count = read(master.Number(), buffer.data(), buffer.size());
    if (count > 0)
        return Bytes(buffer.begin(), buffer.begin() + count);
    if (count < 0 && (errno == EAGAIN || errno == EINTR))
        return Bytes();
    return std::nullopt;
}

void PseudoTerminal::Write(ByteView bytes)
{
    while (!bytes.empty()) {
        const ssize_t count = write(master.Number(), bytes.data(), bytes.size());
        if (count > 0)
            bytes = bytes.subspan(static_cast<std::size_t>(count));
        else if (errno != EINTR)
            return;
    }
}

void PseudoTerminal::AllowOpening()
{
    ioctl(slave.Number(), TIOCNXCL);
}

DeviceLink::DeviceLink(std::string linkPath, std::string target) : path(std::move(linkPath)), device(std::move(target))
{
    namespace fs = std::filesystem;
    std::error_code error;
    const fs::file_status status = fs::symlink_status(path, error);
    if (fs::exists(status) && !fs::is_symlink(status))
        throw std::runtime_error("link would replace what isn't one: " + path);
    // Renaming replaces an old link in one step, so that the name is never missing.
    const std::string fresh = path + ".new";
    fs::remove(fresh, error);
    fs::create_symlink(device, fresh, error);
    if (!error)
        fs::rename(fresh, path, error);
    if (error)
        throw std::runtime_error("link can't be made: " + path + ": " + error.message());
}

DeviceLink::~DeviceLink()
{
    std::error_code error;
    if (std::filesystem::read_symlink(path, error) == device && !error)
        std::filesystem::remove(path, error);
}

} // namespace korvanel::simulator
