#include "simulator/Simulator.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <sstream>
#include <system_error>

#include <poll.h>
#include <unistd.h>

namespace korvanel::simulator {

namespace {

constexpr double kLongestSleep = 0.5; // s; the counters run on and a locked line is freed

struct Words
{
    std::string first;
    std::string rest;
};

/// Cuts the first word off; the rest keeps its blanks but the one between.
Words Split(const std::string& text)
{
    const std::size_t end = text.find(' ');
    return {text.substr(0, end), end == std::string::npos ? std::string() : text.substr(end + 1)};
}

} // namespace

Simulator::Simulator(const Options& wanted, const Channels& endpoints)
    : options(wanted), channels(endpoints), instrument(MakeFamily(wanted.family, wanted.setup)), station(*instrument),
      commands(endpoints.commands), log(wanted.log)
{
    station.SetFault(options.fault);
    station.SetDelay(options.delay);
}

void Simulator::Run()
{
    OpenLine();
    while (!isStopped) {
        pollfd waiting[] = {
            {channels.stop, POLLIN, 0},
            {commands.Descriptor(), POLLIN, 0},
            {terminal ? terminal->Descriptor() : -1, POLLIN, 0},
        };
        if (poll(waiting, std::size(waiting), PollTimeout()) < 0 && errno != EINTR)
            throw std::system_error(errno, std::generic_category(), "poll");
        if (waiting[0].revents != 0)
            return;
        instrument->Advance(Now());
        ServeLine(waiting[2].revents != 0);
        if (waiting[1].revents != 0)
            ServeCommands();
        SendDue();
    }
}

double Simulator::Now() const
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

int Simulator::PollTimeout() const
{
    const double wait = station.NextEvent().value_or(INFINITY) - Now();
    return static_cast<int>(std::ceil(1000 * std::clamp(wait, 0.0, kLongestSleep)));
}

void Simulator::ServeLine(bool isReadable)
{
    if (!terminal)
        return;
    terminal->AllowOpening();
    if (!isReadable) {
        station.Idle(Now());
        return;
    }
    if (const std::optional<Bytes> bytes = terminal->Read())
        station.Receive(*bytes, Now());
    else
        CloseLine();
}

void Simulator::ServeCommands()
{
    for (const std::string& command : commands.Read()) {
        try {
            Obey(command);
            Say("ok");
        } catch (const std::exception& error) { // none of them is a reason to stop
            Say(std::string("error ") + error.what());
        }
    }
}

void Simulator::Obey(const std::string& command)
{
    struct Entry
    {
        const char* name;
        void (*obey)(Simulator&, const std::string& argument);
    };
    constexpr Entry kCommands[] = {
        {"fault", [](Simulator& own, const std::string& kind) { own.station.SetFault(FaultOf(kind)); }},
        {"delay", [](Simulator& own, const std::string& seconds) { own.station.SetDelay(ParseNumber(seconds)); }},
        {"address", [](Simulator& own, const std::string& n) { own.instrument->SetAddress(ParseInteger(n)); }},
        {"profile", [](Simulator& own, const std::string& name) { own.instrument->SetProfile(name, own.Now()); }},
        {"set",
         [](Simulator& own, const std::string& argument) {
             const auto [code, text] = Split(argument);
             own.instrument->SetText(ParseInteger(code), text);
         }},
        {"value",
         [](Simulator& own, const std::string& argument) {
             const auto [code, number] = Split(argument);
             own.instrument->SetValue(ParseInteger(code), ParseNumber(number));
         }},
        {"state",
         [](Simulator& own, const std::string& argument) {
             const auto [name, state] = Split(argument);
             own.instrument->SetState(name, state);
         }},
        {"close", [](Simulator& own, const std::string&) { own.CloseLine(); }},
        {"open", [](Simulator& own, const std::string&) { own.OpenLine(); }},
        {"quit", [](Simulator& own, const std::string&) { own.isStopped = true; }},
    };
    const Words words = Split(command);
    for (const Entry& entry : kCommands)
        if (words.first == entry.name)
            return entry.obey(*this, words.rest);
    throw std::invalid_argument("unknown command: " + words.first);
}

void Simulator::SendDue()
{
    for (const Exchange& exchange : station.TakeDue(Now())) {
        if (terminal)
            terminal->Write(exchange.answer.reply);
        log.Write(Now(), exchange);
        if (exchange.breaksLine)
            CloseLine();
    }
}

void Simulator::OpenLine()
{
    CloseLine();
    terminal.emplace();
    if (!options.link.empty())
        link.emplace(options.link, terminal->Device());
    Say("device " + terminal->Device());
}

void Simulator::CloseLine()
{
    link.reset(); // first, so that nobody finds the device that another program may get next
    terminal.reset();
    for (const Exchange& exchange : station.HangUp())
        log.Write(Now(), exchange);
}

void Simulator::Say(const std::string& line) const
{
    const std::string text = line + '\n';
    std::string_view rest = text;
    while (!rest.empty()) {
        const ssize_t count = write(channels.answers, rest.data(), rest.size());
        if (count > 0)
            rest.remove_prefix(static_cast<std::size_t>(count));
        else if (errno != EINTR)
            return; // nobody listens
    }
}

} // namespace korvanel::simulator
