// A record of everything that went over the line: one line for each exchange, its columns separated by tabs.
#pragma once

#include "simulator/Station.h"

#include <fstream>

namespace korvanel::simulator {

class Log
{
public:
    /// An empty path keeps no log. Throws std::runtime_error if the file can't be written.
    explicit Log(const std::string& path);
    /// Written at once, so that another process can read along. The text of a query is told only if it went out.
    void Write(double seconds, const Exchange& exchange);

private:
    std::ofstream file;
};

} // namespace korvanel::simulator
