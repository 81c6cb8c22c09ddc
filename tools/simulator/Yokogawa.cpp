#include "simulator/Yokogawa.h"

#include "simulator/Texts.h"

#include <algorithm>

namespace korvanel::simulator {

namespace {

constexpr char kTellSetup[] = "OS";
constexpr char kTellValues[] = "OD";
constexpr char kReset[] = "RC";
constexpr std::size_t kHeadLength = 6;
constexpr char kItemEnd = ',';
constexpr char kBlockLineEnd[] = "\r\n";

struct WiringCommand
{
    const char* command;
    MeterWiring wiring;
};

constexpr WiringCommand kWiringCommands[] = {
    {"WR1", MeterWiring::OnePhase},
    {"WR3", MeterWiring::ThreeWire},
    {"WR4", MeterWiring::FourWire},
};

/// Filter, ranges and display, scaling and averaging, and which values the block is made of: they would change how the
/// values look or settle, not what the net gives.
constexpr const char* kSetupCommands[] = {"FL", "DB", "DC", "OF", "EA", "EB", "EC", "AV", "AA"};

/// A quantity that has a line of the block.
struct ElementLine
{
    const char* unit;
    int code;
};

constexpr ElementLine kElementLines[] = {{"V", kMeterVoltage}, {"A", kMeterCurrent}, {"W", kMeterActive}};

bool IsSetupCommand(const std::string& line)
{
    constexpr std::size_t kLetters = 2;
    return line.size() > kLetters && line.find_first_not_of("0123456789,", kLetters) == std::string::npos &&
           std::find(std::begin(kSetupCommands), std::end(kSetupCommands), line.substr(0, kLetters)) !=
               std::end(kSetupCommands);
}

} // namespace

std::size_t YokogawaBlock::Add(const std::string& head, const std::string& value)
{
    if (!block.empty() && block.back() != kBlockLineEnd[1])
        block += kItemEnd;
    block += head + std::string(kHeadLength - head.size(), ' ') + value;
    return block.size() - value.size();
}

void YokogawaBlock::EndLine()
{
    block += kBlockLineEnd;
}

void YokogawaBlock::Name(const char* name, std::size_t position, std::size_t length)
{
    places.push_back({name, position, length});
}

Answer YokogawaBlock::Tell() const
{
    Answer answer{RequestKind::Query, std::nullopt, Bytes(block.begin(), block.end()), {}};
    for (const Place& place : places) {
        const std::string sent = block.substr(place.position, place.length);
        answer.values.push_back({place.name, place.position, sent, Trimmed(sent)});
    }
    return answer;
}

Yokogawa::Yokogawa(const InstrumentSetup& setup, std::vector<int> codes, std::size_t length)
    : LineMeter(setup, std::move(codes)), fieldLength(length)
{}

Answer Yokogawa::Obey(const std::string& line, double now)
{
    if (line == kTellSetup)
        return {RequestKind::Read, std::nullopt, Line(SetupText()), {}};
    if (line == kTellValues)
        return Block(now).Tell();
    return {Set(line) ? RequestKind::Write : RequestKind::Bad, std::nullopt, {}, {}};
}

bool Yokogawa::Set(const std::string& line)
{
    if (line == kReset) {
        wiring = MeterWiring::OnePhase;
        return true;
    }
    for (const WiringCommand& each : kWiringCommands)
        if (line == each.command) {
            wiring = each.wiring;
            return true;
        }
    return IsSetupCommand(line);
}

std::string Yokogawa::Fit(const std::string& text) const
{
    return FieldText(text, fieldLength);
}

void Yokogawa::AddValue(YokogawaBlock& block, const std::string& head, int code, double now) const
{
    block.Name(MeterName(code), block.Add(head, TextAt(code, now)), fieldLength);
}

void Yokogawa::AddElements(YokogawaBlock& block, const std::vector<std::string>& elements, std::size_t measured,
                           double now) const
{
    for (const ElementLine& line : kElementLines) {
        for (std::size_t index = 0; index < elements.size(); ++index) {
            const std::string head = line.unit + elements[index];
            if (index == measured)
                AddValue(block, head, line.code, now);
            else
                block.Add(head, Format(line.code, 0));
        }
        block.EndLine();
    }
}

std::string Yokogawa::WiringText() const
{
    const auto* command = std::find_if(std::begin(kWiringCommands), std::end(kWiringCommands),
                                       [this](const WiringCommand& each) { return each.wiring == wiring; });
    return command->command;
}

} // namespace korvanel::simulator
