// instrument_simulator: a measuring instrument on a pseudo-terminal, for tests, for demonstrations and for trying the
// program without a machine. `instrument_simulator --help` tells the rest.
#include "simulator/Simulator.h"

#include <cerrno>
#include <csignal>
#include <cstdio>

#include <fcntl.h>
#include <unistd.h>

using namespace korvanel::simulator;

namespace {

constexpr int kExitFailure = 1;
constexpr int kExitUsage = 2;

int stopPipe[2] = {-1, -1};

extern "C" void RequestStop(int)
{
    const int error = errno;
    const char any = 0;
    [[maybe_unused]] const ssize_t written = write(stopPipe[1], &any, 1); // a full pipe has the request already
    errno = error;
}

/// The link is removed and the log complete however the simulator is told to end.
void CatchSignals()
{
    if (pipe(stopPipe) != 0 || fcntl(stopPipe[1], F_SETFL, O_NONBLOCK) != 0)
        throw std::runtime_error("no pipe for signals");
    struct sigaction action = {};
    action.sa_handler = RequestStop;
    for (const int signal : {SIGINT, SIGTERM, SIGHUP})
        sigaction(signal, &action, nullptr);
    action.sa_handler = SIG_IGN;
    sigaction(SIGPIPE, &action, nullptr);
}

void Complain(const std::exception& error)
{
    std::fprintf(stderr, "instrument_simulator: %s\n", error.what());
}

} // namespace

int main(int argc, char* argv[])
{
    try {
        const Options options = ParseOptions(argc, argv);
        if (options.isHelpWanted) {
            std::fputs(HelpText().c_str(), stdout);
            return 0;
        }
        CatchSignals();
        Simulator(options, {STDIN_FILENO, STDOUT_FILENO, stopPipe[0]}).Run();
        return 0;
    } catch (const std::invalid_argument& error) {
        Complain(error);
        std::fputs("instrument_simulator --help tells the options.\n", stderr);
        return kExitUsage;
    } catch (const std::exception& error) {
        Complain(error);
        return kExitFailure;
    }
}
