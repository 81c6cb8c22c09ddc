// Lines from a descriptor that is read as it has something to give. The end of the input is no event of its own: there
// are just no more lines.
#pragma once

#include <string>
#include <vector>

namespace korvanel::simulator {

class LineReader
{
public:
    explicit LineReader(int source) : descriptor(source) {}

    /// To poll; -1 at the end of the input.
    int Descriptor() const { return descriptor; }
    /// Reads once, which waits if there is nothing; the lines that are complete with it, without their ends. A line
    /// beyond 4096 characters is cut there.
    std::vector<std::string> Read();

private:
    int descriptor;
    std::string partial;
};

} // namespace korvanel::simulator
