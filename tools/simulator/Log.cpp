#include "simulator/Log.h"

#include <algorithm>
#include <cstdio>
#include <stdexcept>

namespace korvanel::simulator {

namespace {

const char* WordOf(RequestKind kind)
{
    switch (kind) {
    case RequestKind::Read:
        return "read";
    case RequestKind::Write:
        return "write";
    case RequestKind::Query:
        return "query";
    case RequestKind::Bad:
        break;
    }
    return "bad";
}

std::string SentText(const Answer& answer)
{
    const auto found = std::search(answer.reply.begin(), answer.reply.end(), answer.text.begin(), answer.text.end());
    return found == answer.reply.end() ? std::string() : answer.text;
}

} // namespace

Log::Log(const std::string& path)
{
    if (path.empty())
        return;
    file.open(path, std::ios::trunc);
    file << "seconds\trx\ttx\tkind\tcode\ttext" << std::endl; // NOLINT(performance-avoid-endl): read along
    if (!file)
        throw std::runtime_error("log can't be written: " + path);
}

void Log::Write(double seconds, const Exchange& exchange)
{
    if (!file.is_open())
        return;
    const Answer& answer = exchange.answer;
    char time[32];
    std::snprintf(time, sizeof time, "%.3f", seconds);
    file << time << '\t' << ToHex(exchange.request) << '\t' << ToHex(answer.reply) << '\t' << WordOf(answer.kind)
         << '\t' << (answer.code ? std::to_string(*answer.code) : "") << '\t' << SentText(answer) << '\n'
         << std::flush;
    if (!file) {
        std::fputs("instrument_simulator: the log can't be written any more\n", stderr);
        file.close();
    }
}

} // namespace korvanel::simulator
