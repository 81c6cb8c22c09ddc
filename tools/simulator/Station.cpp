#include "simulator/Station.h"

#include <algorithm>
#include <stdexcept>

namespace korvanel::simulator {

namespace {

constexpr double kSilence = 0.02; // s
constexpr double kLongestDelay = 60;
constexpr std::size_t kLongestRequest = 256;
constexpr std::size_t kMostPending = 256; // however fast requests come in while replies are late

} // namespace

void Station::SetDelay(double seconds)
{
    if (!(seconds >= 0 && seconds <= kLongestDelay))
        throw std::invalid_argument("delay is beyond 0 to 60 seconds");
    delay = seconds;
}

void Station::Receive(ByteView bytes, double now)
{
    Idle(now);
    lastArrival = now;
    for (const Byte byte : bytes) {
        received.push_back(byte);
        if (!isGarbage && family.RequestLength(received) == received.size())
            Handle(now);
        if (received.size() >= kLongestRequest) {
            Report({}, now);
            isGarbage = true;
        }
    }
}

void Station::Idle(double now)
{
    if (now - lastArrival < kSilence)
        return;
    if (!received.empty())
        Report(isGarbage ? Answer() : family.Respond(received, now), now);
    isGarbage = false;
}

void Station::Handle(double now)
{
    Answer answer = family.Respond(received, now);
    if (answer.kind == RequestKind::Bad && !family.MarksEnds())
        isGarbage = true; // where the next request begins can't be told any more
    else
        Report(std::move(answer), now);
}

void Station::Report(Answer answer, double now)
{
    Exchange exchange{std::move(received), std::move(answer), now, false};
    received.clear();
    if (pending.size() >= kMostPending)
        return;
    if (!exchange.answer.reply.empty()) {
        const std::size_t whole = exchange.answer.reply.size();
        exchange.answer.reply = Spoil(std::move(exchange.answer.reply), fault, family, random);
        if (exchange.answer.reply.size() != whole)
            exchange.answer.values.clear(); // nobody can tell where the values of a block stand that is cut or longer
        exchange.due += fault == FaultKind::Late ? delay : 0;
        exchange.breaksLine = fault == FaultKind::Closed;
    }
    pending.push_back(std::move(exchange));
}

std::vector<Exchange> Station::TakeDue(double now)
{
    const auto firstDue = std::stable_partition(pending.begin(), pending.end(),
                                                [now](const Exchange& exchange) { return exchange.due > now; });
    std::vector<Exchange> due(std::make_move_iterator(firstDue), std::make_move_iterator(pending.end()));
    pending.erase(firstDue, pending.end());
    return due;
}

std::vector<Exchange> Station::HangUp()
{
    std::vector<Exchange> lost = std::move(pending);
    pending.clear();
    for (Exchange& exchange : lost)
        exchange.answer.reply.clear();
    received.clear();
    isGarbage = false;
    return lost;
}

std::optional<double> Station::NextEvent() const
{
    std::optional<double> next;
    if (!received.empty() || isGarbage)
        next = lastArrival + kSilence;
    for (const Exchange& exchange : pending)
        next = std::min(next.value_or(exchange.due), exchange.due);
    return next;
}

} // namespace korvanel::simulator
