#include "instruments/IskraDriver.h"

#include "core/Common.h"
#include "core/Texts.h"
#include "core/texts/DefaultTexts.h"
#include "core/texts/FormH5Texts.h"
#include "instruments/EntryTable.h"
#include "instruments/Frames.h"
#include "instruments/IskraSample.h"
#include "instruments/IskraValues.h"
#include "instruments/SerialLink.h"

#include <optional>

namespace korvanel {

namespace {

constexpr double kRegisterWait = 0.15;

struct IskraMode
{
    const char* entry;
    quint16 connection; ///< value of the register of the connection mode
    TextRef refusal;
    IskraPlan plan;
};

using enum IskraPlan;

constexpr IskraMode kIskraModes[] = {
    {.entry = "ISKRA MI71XX 1Ø2W (1b)", .connection = 1, .refusal = &texts::devNotSinglePhase, .plan = SinglePhase},
    {.entry = "ISKRA MI71XX 1Ø2W (1b) Rec",
     .connection = 1,
     .refusal = &texts::devNotSinglePhase,
     .plan = SinglePhaseRecorder},
    {.entry = "ISKRA MI71XX 3Ø3W (3u)", .connection = 5, .refusal = &texts::devNotThreeWire, .plan = ThreePhase},
    {.entry = "ISKRA MI71XX 3Ø4W (4u)", .connection = 7, .refusal = &texts::devNotFourWire, .plan = ThreePhase},
    {.entry = "ISKRA MI71XX 3Ø4W (4u) Rec L-N",
     .connection = 7,
     .refusal = &texts::devNotFourWire,
     .plan = PhaseRecorderToNeutral},
    {.entry = "ISKRA MI71XX 3Ø4W (4u) Rec L-L",
     .connection = 7,
     .refusal = &texts::devNotFourWire,
     .plan = PhaseRecorderToPhase},
    {.entry = "ISKRA MI71XX 3Ø3W (3b)", .connection = 9, .refusal = &texts::devNotThreeWire, .plan = ThreePhase},
    {.entry = "ISKRA MI71XX 3Ø4W (4b)", .connection = 25, .refusal = &texts::devNotFourWire, .plan = ThreePhase},
    {.entry = "ISKRA MI71XX 3Ø4W U ", .connection = 25, .refusal = &texts::devNotFourWire, .plan = Voltages},
};

enum Function : quint8
{
    kReadHolding = 3,
    kReadInput = 4,
    kWriteRegister = 6
};

enum Register : quint16
{
    kModelText = 1,
    kDeviceNumber = 4,
    kCounterReset = 13,
    kCurrentSecondary = 15,
    kVoltagePrimary = 16,
    kVoltageSecondary = 17,
    kCurrentRatio = 18,
    kConnectionMode = 19,
};

/// Address, function, register and a value or count, without the CRC.
QByteArray Request(Function function, quint16 reg, quint16 value)
{
    QByteArray frame;
    for (const int byte : {static_cast<int>(App().lModbusAddress), static_cast<int>(function), reg >> 8, reg & 0xFF,
                           value >> 8, value & 0xFF})
        frame.append(static_cast<char>(byte));
    return frame;
}

QByteArray Ask(const QByteArray& request)
{
    return Exchange(Crc16Append(request), kRegisterWait);
}

/// Writes a register; true if the instrument echoes the request.
bool WriteRegister(quint16 reg, quint16 value)
{
    constexpr qsizetype kCrcBytes = 2;
    const QByteArray request = Request(kWriteRegister, reg, value);
    const QByteArray reply = Ask(request);
    return reply.size() == request.size() + kCrcBytes && reply.startsWith(request);
}

/// A register of a reply to a read: the 16-bit value at a data position, or nothing if the head is not the request's.
std::optional<quint16> ReadRegister(Function function, quint16 reg)
{
    constexpr qsizetype kWithData = 5;
    const QByteArray request = Request(function, reg, 1);
    const QByteArray reply = Ask(request);
    if (!IsAnswerTo(request, reply, kWithData))
        return std::nullopt;
    return static_cast<quint16>(static_cast<quint8>(reply[3]) << 8 | static_cast<quint8>(reply[4]));
}

} // namespace

const IskraDriver kIskraDriver{};

void IskraDriver::Open() const
{
    if (IsBusAddress(App().lModbusAddress))
        InstrumentDriver::Open();
    else
        App().sDevError = texts::modbusAddressRange;
}

InstrumentDriver::Identity IskraDriver::Identify() const
{
    const QByteArray reply = Ask(Request(kReadInput, kModelText, 3));
    return {.reply = reply, .isOfFamily = HasValidCrc(reply) && reply.mid(3, 4) == "MI71"};
}

void IskraDriver::Configure() const
{
    const IskraMode& mode = ChosenEntry(kIskraModes);
    if (!WriteRegister(kConnectionMode, mode.connection))
        App().sDevError = TextOf(mode.refusal);
}

void IskraDriver::Sample() const
{
    TakeIskraSample(ChosenEntry(kIskraModes).plan);
}

void IskraDriver::ReadTransformers() const
{
    ApplicationBlock& app = App();
    // A register that can't be read, or holds nothing to divide by, counts as 1; the message stands.
    const auto read = [&app](quint16 reg, auto decode) {
        const std::optional<quint16> value = ReadRegister(kReadHolding, reg);
        if (!value)
            app.sDevError = texts::devTransNotRead;
        const double decoded = value ? decode(*value) : 0;
        return decoded > 0 ? decoded : 1;
    };
    constexpr double kTenths = 10;
    const auto asItStands = [](quint16 value) { return static_cast<double>(value); };
    app.dDevTransPrimary[0] = read(kVoltagePrimary, DecodeVoltagePrimary);
    app.dDevTransSecondary[0] = read(kVoltageSecondary, asItStands);
    app.dDevTransSecondary[1] = read(kCurrentSecondary, [](quint16 value) { return value / kTenths; });
    app.dDevTransPrimary[1] = read(kCurrentRatio, asItStands) * app.dDevTransSecondary[1];
}

void IskraDriver::WriteTransformers() const
{
    constexpr double kWrittenSecondary = 5; // the instrument's own secondary current isn't written
    ApplicationBlock& app = App();
    app.dDevTransSecondary[1] = kWrittenSecondary;
    const std::pair<Register, quint16> writings[] = {
        {kVoltagePrimary, EncodeVoltagePrimary(app.dDevTransPrimary[0])},
        {kVoltageSecondary, EncodeVoltageSecondary(app.dDevTransSecondary[0])},
        {kCurrentRatio, EncodeCurrentRatio(app.dDevTransPrimary[1])},
    };
    for (const auto& [reg, value] : writings)
        if (!WriteRegister(reg, value))
            app.sDevError = texts::devTransNotWritten;
}

void IskraDriver::ResetCounters() const
{
    constexpr quint16 kAll = 0xFFFF;
    if (!WriteRegister(kCounterReset, kAll))
        App().sDevError = texts::devResetFailed;
}

void IskraDriver::ReadInfo() const
{
    constexpr qsizetype kModelLength = 6;
    ApplicationBlock& app = App();
    const QByteArray request = Request(kReadInput, kModelText, 3);
    const QByteArray reply = Ask(request);
    const bool isModel = IsAnswerTo(request, reply, 3 + kModelLength);
    // Asked whatever came before, so that an address without an instrument costs the same as one with it.
    const std::optional<quint16> number = ReadRegister(kReadInput, kDeviceNumber);
    if (!isModel || !number) {
        app.sDevError = texts::devInfoFailed;
        app.sDeviceId.clear();
        return;
    }
    app.sDeviceId = QString::fromLatin1(reply.mid(3, kModelLength)) + u' ' + QString::number(*number);
}

} // namespace korvanel
