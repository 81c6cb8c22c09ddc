// The running simulator: waits for whatever comes first (bytes on the line, a command, the time of a late reply, a
// signal to stop) and lets the station, the log and the link follow.
#pragma once

#include "simulator/LineReader.h"
#include "simulator/Log.h"
#include "simulator/Options.h"
#include "simulator/PseudoTerminal.h"
#include "simulator/Station.h"

#include <chrono>

namespace korvanel::simulator {

/// Descriptors that the simulator listens and talks to; -1 where there is nothing to read.
struct Channels
{
    int commands = -1;
    int answers = 1;
    int stop = -1; ///< the simulator ends when there is something to read
};

class Simulator
{
public:
    /// Throws std::invalid_argument if the instrument can't be as wanted.
    Simulator(const Options& options, const Channels& channels);

    /// Offers the instrument until told to stop. Throws std::runtime_error if the line, the link or the log can't be
    /// made.
    void Run();
    /// Carries out a command; throws std::invalid_argument if it can't be.
    void Obey(const std::string& command);

private:
    double Now() const;
    int PollTimeout() const;
    void ServeLine(bool isReadable);
    void ServeCommands();
    void SendDue();
    void OpenLine();
    void CloseLine();
    void Say(const std::string& line) const;

    Options options;
    Channels channels;
    std::chrono::steady_clock::time_point start = std::chrono::steady_clock::now();
    std::unique_ptr<InstrumentFamily> instrument;
    Station station;
    LineReader commands;
    Log log;
    std::optional<PseudoTerminal> terminal;
    std::optional<DeviceLink> link;
    bool isStopped = false;
};

} // namespace korvanel::simulator
