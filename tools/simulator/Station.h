// An instrument at the end of a line: puts requests together from the bytes that arrive, has them answered, and hands
// the replies out when they are due. It knows neither a protocol nor a device, and no clock but the times it is told.
#pragma once

#include "simulator/Faults.h"
#include "simulator/InstrumentFamily.h"

namespace korvanel::simulator {

/// A request and what became of it.
struct Exchange
{
    Bytes request;
    Answer answer; ///< with the reply as it goes onto the line
    double due = 0;
    bool breaksLine = false; ///< the line is to be closed in place of the reply
};

/// Times are seconds that never run backwards.
class Station
{
public:
    explicit Station(InstrumentFamily& instrument) : family(instrument) {}

    void SetFault(FaultKind kind) { fault = kind; }
    /// Seconds by which fault `Late` delays a reply; throws std::invalid_argument beyond 0 to 60.
    void SetDelay(double seconds);

    void Receive(ByteView bytes, double now);
    /// To be called while nothing arrives: a silence ends what can't be ended by its length.
    void Idle(double now);
    /// Exchanges that are due, in their order.
    std::vector<Exchange> TakeDue(double now);
    /// The line is gone: exchanges that were not due yet, without their replies, and nothing received any more.
    std::vector<Exchange> HangUp();
    /// When there is something to do even if nothing arrives.
    std::optional<double> NextEvent() const;

private:
    void Handle(double now);
    void Report(Answer answer, double now);

    InstrumentFamily& family;
    FaultKind fault = FaultKind::None;
    double delay = 0.5;
    Bytes received;
    bool isGarbage = false; ///< nothing is a request before the next silence
    double lastArrival = 0;
    std::vector<Exchange> pending;
    std::mt19937 random{20260314}; // NOLINT(cert-msc32-c,cert-msc51-cpp): a run can be repeated
};

} // namespace korvanel::simulator
