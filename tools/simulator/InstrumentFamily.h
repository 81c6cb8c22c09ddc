// What the line asks of an instrument, whichever protocol it speaks: how long a request is, what the reply to it is,
// and how a reply of that protocol goes wrong.
#pragma once

#include "simulator/Bytes.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace korvanel::simulator {

enum class RequestKind
{
    Read,
    Write,
    Query,
    Bad ///< understood by nobody
};

/// One of the values in a block.
struct BlockValue
{
    std::string name;
    std::size_t position = 0; ///< within the reply, from 0
    std::string sent;         ///< what stands there
    std::string text;         ///< the same as a person reads it
};

struct Answer
{
    RequestKind kind = RequestKind::Bad;
    std::optional<int> code;          ///< register or value code that was asked for
    Bytes reply;                      ///< empty: none
    std::string text;                 ///< value text within the reply to a query of a single value
    std::vector<BlockValue> values{}; ///< of a reply that is a block
};

/// Ratios of the transformers before the instrument, as set in it.
struct Transformers
{
    double voltagePrimary = 230;   ///< V
    double voltageSecondary = 230; ///< V
    double currentPrimary = 5;     ///< A
    double currentSecondary = 5;   ///< A
};

/// Factors by which an instrument wants its values to be multiplied.
struct Scaling
{
    double voltage = 1;
    double current = 1;
};

/// What an instrument is born with. A family ignores what it doesn't have.
struct InstrumentSetup
{
    int address = 33;
    int number = 4711;
    std::string model = "MI7150";
    std::string profile = "duty";
    Transformers transformers;
    int netSwitch = 1;              ///< phases that the net-type switch stands at
    std::optional<Scaling> scaling; ///< none: switched off
};

/// Times are seconds since the start. What can't be done throws std::invalid_argument with the reason.
class InstrumentFamily
{
public:
    virtual ~InstrumentFamily() = default;

    /// Length of the request that begins with these bytes, never 0; nothing while they don't tell, or if only a
    /// silence on the line ends it.
    virtual std::optional<std::size_t> RequestLength(ByteView beginning) const = 0;
    /// True if a mark of its own ends each request, so that the next one begins there whatever the request was.
    virtual bool MarksEnds() const { return false; }
    /// Takes a request that its length or a silence has ended. Never throws, whatever the bytes.
    virtual Answer Respond(ByteView request, double now) = 0;
    /// Makes the checksum of a reply wrong; without one, a character that matters.
    virtual void SpoilCheck(Bytes& reply) const = 0;
    /// Makes the address (`part` 0) or the function (1) of a reply wrong under a checksum that fits it; without any,
    /// the first or the second character.
    virtual void SpoilHead(Bytes& reply, std::size_t part) const = 0;
    /// Lets the counters run up to now.
    virtual void Advance(double now) = 0;

    virtual void SetAddress(int address) = 0;
    virtual void SetProfile(const std::string& name, double now) = 0;
    /// Text that a value code answers from now on, filled up with blanks on its left.
    virtual void SetText(int code, const std::string& text) = 0;
    /// Value that a value code answers from now on, in V, A, W, Wh, degrees and so on.
    virtual void SetValue(int code, double value) = 0;
    /// Puts a switch or a condition of the instrument into a state; a family that has none refuses all.
    virtual void SetState(const std::string& name, const std::string& state);
};

/// Throws std::invalid_argument if there is no such family, or if it can't be set up so.
std::unique_ptr<InstrumentFamily> MakeFamily(const std::string& name, const InstrumentSetup& setup);

std::vector<std::string> FamilyNames();

} // namespace korvanel::simulator
