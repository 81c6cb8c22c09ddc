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

bool IsSent(const BlockValue& value, const Bytes& reply)
{
    return value.position + value.sent.size() <= reply.size() &&
           std::equal(value.sent.begin(), value.sent.end(), reply.begin() + static_cast<std::ptrdiff_t>(value.position),
                      [](char letter, Byte byte) { return static_cast<Byte>(letter) == byte; });
}

/// "U=230.1 I=5.02" and so on; empty unless all of them went out.
std::string SentBlock(const Answer& answer)
{
    std::string text;
    for (const BlockValue& value : answer.values) {
        if (!IsSent(value, answer.reply))
            return {};
        text += (text.empty() ? "" : " ") + value.name + '=' + value.text;
    }
    return text;
}

std::string SentText(const Answer& answer)
{
    if (!answer.values.empty())
        return SentBlock(answer);
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
