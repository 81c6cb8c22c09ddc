#include "simulator/Faults.h"

#include <stdexcept>

namespace korvanel::simulator {

namespace {

constexpr std::size_t kExtraBytes = 40;

struct NamedFault
{
    const char* name;
    FaultKind kind;
};

constexpr NamedFault kFaults[] = {
    {"none", FaultKind::None},         {"silent", FaultKind::Silent},   {"truncated", FaultKind::Truncated},
    {"overlong", FaultKind::Overlong}, {"garbage", FaultKind::Garbage}, {"crc", FaultKind::Crc},
    {"head", FaultKind::Head},         {"late", FaultKind::Late},       {"closed", FaultKind::Closed},
};

Bytes RandomBytes(std::size_t count, std::mt19937& random)
{
    std::uniform_int_distribution<unsigned> any(0, 0xFF);
    Bytes bytes(count);
    for (Byte& byte : bytes)
        byte = static_cast<Byte>(any(random));
    return bytes;
}

} // namespace

FaultKind FaultOf(const std::string& name)
{
    for (const NamedFault& fault : kFaults)
        if (name == fault.name)
            return fault.kind;
    throw std::invalid_argument("unknown fault: " + name);
}

std::vector<std::string> FaultNames()
{
    std::vector<std::string> names;
    for (const NamedFault& fault : kFaults)
        names.emplace_back(fault.name);
    return names;
}

Bytes Spoil(Bytes reply, FaultKind fault, const InstrumentFamily& family, std::mt19937& random)
{
    if (reply.empty())
        return reply;
    switch (fault) {
    case FaultKind::None:
    case FaultKind::Late:
        break;
    case FaultKind::Silent:
    case FaultKind::Closed:
        reply.clear();
        break;
    case FaultKind::Truncated:
        reply.resize(reply.size() / 2);
        break;
    case FaultKind::Overlong: {
        const Bytes extra = RandomBytes(kExtraBytes, random);
        reply.insert(reply.end(), extra.begin(), extra.end());
        break;
    }
    case FaultKind::Garbage:
        reply = RandomBytes(reply.size(), random);
        break;
    case FaultKind::Crc:
        family.SpoilCheck(reply);
        break;
    case FaultKind::Head:
        family.SpoilHead(reply, std::uniform_int_distribution<std::size_t>(0, 1)(random));
        break;
    }
    return reply;
}

} // namespace korvanel::simulator
