#include "simulator/Iskra.h"

#include "simulator/IskraValues.h"
#include "simulator/Modbus.h"
#include "simulator/Texts.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace korvanel::simulator {

namespace {

constexpr Byte kReadSettings = 3;
constexpr Byte kReadIdentity = 4;
constexpr Byte kWriteOne = 6;
constexpr Byte kTextQuery = 'M';
constexpr std::size_t kFrameLength = 8; // address, function, two words, checksum
constexpr std::size_t kQueryLength = 5; // address, function, value code, checksum
constexpr int kMostRegisters = 125;     // that a reply of MODBUS has room for

enum Register : int
{
    kModel = 1, // and two more
    kDeviceNumber = 4,
    kCounterReset = 13,
    kCurrentSecondary = 15,
    kVoltagePrimary = 16,
    kVoltageSecondary = 17,
    kCurrentRatio = 18,
    kConnectionMode = 19,
};

constexpr std::size_t kModelRegisters = 3;
constexpr std::uint16_t kResetAll = 0xFFFF;
constexpr std::uint16_t kOnePhase = 1;
constexpr std::uint16_t kFourWireBalanced = 25;
constexpr std::uint16_t kModes[] = {kOnePhase, 5, 7, 9, kFourWireBalanced};

// Voltage primary: tenths of a volt in fourteen bits, a power of ten in the two above.
constexpr int kExponentShift = 14;
constexpr int kLargestExponent = 3;
constexpr double kLargestMantissa = 15999;

/// How registers are reached: the function that reads them (0: none) and the values that can be written.
struct RegisterRange
{
    int first;
    int last;
    Byte readBy;
    int least; ///< smallest value to write; above `most`: read only
    int most;
};

constexpr RegisterRange kRegisters[] = {
    {kModel, kDeviceNumber, kReadIdentity, 1, 0},
    {kCounterReset, kCounterReset, 0, kResetAll, kResetAll},
    {kCurrentSecondary, kCurrentSecondary, kReadSettings, 1, 0},
    {kVoltagePrimary, kVoltagePrimary, kReadSettings, 1, 0xFFFF},
    {kVoltageSecondary, kVoltageSecondary, kReadSettings, 10, 775},
    {kCurrentRatio, kCurrentRatio, kReadSettings, 1, 4000},
    {kConnectionMode, kConnectionMode, kReadSettings, kOnePhase, kFourWireBalanced},
};

const RegisterRange* FindRegister(int number)
{
    for (const RegisterRange& range : kRegisters)
        if (number >= range.first && number <= range.last)
            return &range;
    return nullptr;
}

bool CanWrite(const RegisterRange& range, std::uint16_t value)
{
    if (range.first == kConnectionMode)
        return std::find(std::begin(kModes), std::end(kModes), value) != std::end(kModes);
    return value >= range.least && value <= range.most;
}

std::uint16_t Whole(double value, double least, double most, const char* what)
{
    const double rounded = std::round(value);
    if (!(rounded >= least && rounded <= most) || std::abs(value - rounded) > 1e-6)
        throw std::invalid_argument(std::string("transformers: the instrument can't hold this ") + what);
    return static_cast<std::uint16_t>(rounded);
}

std::uint16_t EncodeVoltagePrimary(double volts)
{
    double mantissa = volts * 10;
    unsigned exponent = 0;
    for (; mantissa > kLargestMantissa && exponent < kLargestExponent; ++exponent)
        mantissa /= 10;
    const unsigned low = Whole(mantissa, 1, kLargestMantissa, "voltage primary");
    return static_cast<std::uint16_t>(exponent << kExponentShift | low);
}

void StoreTransformers(std::map<int, std::uint16_t>& registers, const Transformers& transformers)
{
    registers[kVoltagePrimary] = EncodeVoltagePrimary(transformers.voltagePrimary);
    registers[kVoltageSecondary] = Whole(transformers.voltageSecondary, 10, 775, "voltage secondary");
    registers[kCurrentSecondary] = Whole(transformers.currentSecondary * 10, 1, 0xFFFF, "current secondary");
    registers[kCurrentRatio] =
        Whole(transformers.currentPrimary / transformers.currentSecondary, 1, 4000, "current ratio");
}

void StoreModel(std::map<int, std::uint16_t>& registers, const std::string& model)
{
    if (model.size() != 2 * kModelRegisters || !IsPrintable(model))
        throw std::invalid_argument("model needs six characters: " + model);
    for (std::size_t index = 0; index < kModelRegisters; ++index)
        registers[kModel + static_cast<int>(index)] = static_cast<std::uint16_t>(
            static_cast<Byte>(model[2 * index]) << 8U | static_cast<Byte>(model[2 * index + 1]));
}

const IskraValue& ValueOf(int code)
{
    const IskraValue* value = FindIskraValue(code);
    if (value == nullptr)
        throw std::invalid_argument("unknown value code: " + std::to_string(code));
    return *value;
}

Answer Refuse(Answer answer, ByteView request, ModbusException exception)
{
    answer.reply = ExceptionReply(request[0], request[1], exception);
    return answer;
}

} // namespace

Iskra::Iskra(const InstrumentSetup& setup) : profile(ProfileOf(setup.profile))
{
    SetAddress(setup.address);
    if (setup.number < 0 || setup.number > 0xFFFF)
        throw std::invalid_argument("device number is beyond 0 to 65535: " + std::to_string(setup.number));
    StoreModel(registers, setup.model);
    registers[kDeviceNumber] = static_cast<std::uint16_t>(setup.number);
    StoreTransformers(registers, setup.transformers);
    registers[kConnectionMode] = kFourWireBalanced;
}

std::optional<std::size_t> Iskra::RequestLength(ByteView beginning) const
{
    if (beginning.size() < 2)
        return std::nullopt;
    switch (beginning[1]) {
    case kReadSettings:
    case kReadIdentity:
    case kWriteOne:
        return kFrameLength;
    case kTextQuery:
        return kQueryLength;
    default:
        return std::nullopt;
    }
}

Answer Iskra::Respond(ByteView request, double now)
{
    if (!HasValidCrc(request))
        return {};
    const bool isKnown = RequestLength(request) == request.size();
    if (!isKnown)
        return request[0] == ownAddress ? Refuse({}, request, ModbusException::IllegalFunction) : Answer();
    Advance(now);
    Answer answer;
    const bool isOwn = request[0] == ownAddress;
    if (request[1] == kTextQuery)
        answer = Query(request, now);
    else if (request[1] == kWriteOne)
        answer = isOwn ? Write(request) : Answer{RequestKind::Write, WordAt(request, 2), {}, {}};
    else
        answer = Read(request);
    if (!isOwn) { // a stranger on the bus is none of ours, though it is worth a line in the log
        answer.reply.clear();
        answer.text.clear();
    }
    return answer;
}

Answer Iskra::Read(ByteView request) const
{
    const int first = WordAt(request, 2);
    const int count = WordAt(request, 4);
    Answer answer{RequestKind::Read, first, {}, {}};
    if (count < 1 || count > kMostRegisters)
        return Refuse(answer, request, ModbusException::IllegalValue);
    Bytes reply = {request[0], request[1], static_cast<Byte>(2 * count)};
    for (int number = first; number < first + count; ++number) {
        const RegisterRange* range = FindRegister(number);
        if (range == nullptr || range->readBy != request[1])
            return Refuse(answer, request, ModbusException::IllegalAddress);
        AppendWord(reply, registers.at(number));
    }
    answer.reply = WithCrc(std::move(reply));
    return answer;
}

Answer Iskra::Write(ByteView request)
{
    const int number = WordAt(request, 2);
    const std::uint16_t value = WordAt(request, 4);
    Answer answer{RequestKind::Write, number, {}, {}};
    const RegisterRange* range = FindRegister(number);
    if (range == nullptr || range->least > range->most)
        return Refuse(answer, request, ModbusException::IllegalAddress);
    if (!CanWrite(*range, value))
        return Refuse(answer, request, ModbusException::IllegalValue);
    if (number == kCounterReset)
        counters.Reset();
    else
        registers[number] = value;
    answer.reply.assign(request.begin(), request.end());
    return answer;
}

Answer Iskra::Query(ByteView request, double now) const
{
    const int code = request[2];
    Answer answer{RequestKind::Query, code, {}, {}};
    if (FindIskraValue(code) == nullptr)
        return Refuse(answer, request, ModbusException::IllegalAddress);
    answer.text = ValueText(code, now);
    Bytes reply = {request[0], kTextQuery, ' '};
    reply.insert(reply.end(), answer.text.begin(), answer.text.end());
    answer.reply = WithCrc(std::move(reply));
    return answer;
}

std::string Iskra::ValueText(int code, double now) const
{
    if (const auto text = setTexts.find(code); text != setTexts.end())
        return text->second;
    const IskraValue& value = ValueOf(code);
    const Readings readings = ReadNet(profile(now), ConnectedPhases());
    return FormatValue(value.kind, value.read(readings, counters, static_cast<std::size_t>(code - value.first)));
}

void Iskra::SpoilCheck(Bytes& reply) const
{
    reply.back() = static_cast<Byte>(~reply.back());
}

void Iskra::SpoilHead(Bytes& reply, std::size_t part) const
{
    reply[part] = static_cast<Byte>(~reply[part]);
    reply.resize(reply.size() - 2);
    reply = WithCrc(std::move(reply));
}

int Iskra::ConnectedPhases() const
{
    return registers.at(kConnectionMode) == kOnePhase ? 1 : 3;
}

void Iskra::Advance(double now)
{
    counters.Advance(profile, ConnectedPhases(), now);
}

void Iskra::SetAddress(int address)
{
    if (address < 1 || address > 247)
        throw std::invalid_argument("address is beyond 1 to 247: " + std::to_string(address));
    ownAddress = static_cast<Byte>(address);
}

void Iskra::SetProfile(const std::string& name, double now)
{
    const LoadProfile next = ProfileOf(name);
    Advance(now);
    profile = next;
}

void Iskra::SetText(int code, const std::string& text)
{
    setTexts[code] = FieldText(text, TextLength(ValueOf(code).kind));
}

void Iskra::SetValue(int code, double value)
{
    setTexts[code] = FormatValue(ValueOf(code).kind, value);
}

} // namespace korvanel::simulator
