#include "simulator/LineMeter.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace korvanel::simulator {

namespace {

constexpr Byte kLineEnd[] = {'\r', '\n'};
constexpr Byte kWrongCharacter = '?';

bool IsDigit(Byte byte)
{
    return byte >= '0' && byte <= '9';
}

} // namespace

LineMeter::LineMeter(const InstrumentSetup& setup, std::vector<int> codes)
    : ownCodes(std::move(codes)), profile(ProfileOf(setup.profile))
{}

std::optional<std::size_t> LineMeter::RequestLength(ByteView beginning) const
{
    const auto end = std::search(beginning.begin(), beginning.end(), std::begin(kLineEnd), std::end(kLineEnd));
    if (end == beginning.end())
        return std::nullopt;
    return static_cast<std::size_t>(end - beginning.begin()) + std::size(kLineEnd);
}

Answer LineMeter::Respond(ByteView request, double now)
{
    if (RequestLength(request) != request.size())
        return {};
    const ByteView line = request.first(request.size() - std::size(kLineEnd));
    return Obey(std::string(line.begin(), line.end()), now);
}

/// The first digit that counts, as it is the one that is missed most: of a model, of a state, or of a number.
void LineMeter::SpoilCheck(Bytes& reply) const
{
    auto victim = std::find_if(reply.begin(), reply.end(), [](Byte byte) { return IsDigit(byte) && byte != '0'; });
    if (victim == reply.end())
        victim = reply.begin();
    *victim = IsDigit(*victim) ? static_cast<Byte>('0' + (*victim - '0' + 1) % 10) : kWrongCharacter;
}

void LineMeter::SpoilHead(Bytes& reply, std::size_t part) const
{
    const std::size_t text = reply.size() - std::size(kLineEnd);
    if (text > 0)
        reply[std::min(part, text - 1)] = kWrongCharacter;
}

void LineMeter::SetAddress(int)
{
    throw std::invalid_argument("this instrument has no address to change");
}

void LineMeter::SetProfile(const std::string& name, double)
{
    profile = ProfileOf(name);
}

void LineMeter::SetText(int code, const std::string& text)
{
    RequireCode(code);
    setTexts[code] = Fit(text);
    setValues.erase(code);
}

void LineMeter::SetValue(int code, double value)
{
    RequireCode(code);
    if (!std::isfinite(value))
        throw std::invalid_argument("not a number");
    Format(code, value); // throws if there is no text for it
    setValues[code] = value;
    setTexts.erase(code);
}

double LineMeter::Measure(int code, const Readings& readings) const
{
    return ReadMeter(code, readings, Wiring());
}

const std::string* LineMeter::SetTextOf(int code) const
{
    const auto text = setTexts.find(code);
    return text == setTexts.end() ? nullptr : &text->second;
}

double LineMeter::ValueAt(int code, double now) const
{
    const auto value = setValues.find(code);
    return value == setValues.end() ? Measure(code, ReadNet(profile(now), 3)) : value->second;
}

std::string LineMeter::TextAt(int code, double now) const
{
    const std::string* text = SetTextOf(code);
    return text == nullptr ? Format(code, ValueAt(code, now)) : *text;
}

Bytes LineMeter::Line(const std::string& text)
{
    Bytes line(text.begin(), text.end());
    line.insert(line.end(), std::begin(kLineEnd), std::end(kLineEnd));
    return line;
}

void LineMeter::RequireCode(int code) const
{
    if (std::find(ownCodes.begin(), ownCodes.end(), code) == ownCodes.end())
        throw std::invalid_argument("unknown value code: " + std::to_string(code));
}

} // namespace korvanel::simulator
