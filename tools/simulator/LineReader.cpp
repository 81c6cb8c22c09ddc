#include "simulator/LineReader.h"

#include <array>
#include <cerrno>
#include <utility>

#include <unistd.h>

namespace korvanel::simulator {

namespace {

constexpr std::size_t kLongestLine = 4096;

} // namespace

std::vector<std::string> LineReader::Read()
{
    std::array<char, 1024> buffer{};
    const ssize_t count = read(descriptor, buffer.data(), buffer.size());
    if (count < 0 && (errno == EAGAIN || errno == EINTR))
        return {};
    if (count <= 0)
        descriptor = -1;
    std::vector<std::string> lines;
    for (ssize_t index = 0; index < count; ++index) {
        const char letter = buffer[static_cast<std::size_t>(index)];
        if (letter == '\n')
            lines.push_back(std::exchange(partial, {}));
        else if (letter != '\r' && partial.size() < kLongestLine)
            partial += letter;
    }
    return lines;
}

} // namespace korvanel::simulator
