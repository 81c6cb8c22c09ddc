#include "instruments/IskraDriver.h"

#include "core/Common.h"
#include "core/Texts.h"
#include "core/texts/Default.h"
#include "core/texts/FormH5.h"
#include "instruments/DevManaging.h"
#include "instruments/Frames.h"
#include "instruments/IskraSample.h"
#include "instruments/IskraValues.h"
#include "instruments/SerialLink.h"
#include "instruments/SerialPort.h"

#include <algorithm>
#include <iterator>
#include <optional>

namespace korvanel {

namespace {

constexpr double kRegisterWait = 0.15;
constexpr int kDataBits = 8;
constexpr const char* kBaseEntry = "ISKRA MI71XX 1Ø2W (1b)";

struct Mode
{
    const char* entry;
    quint16 connection; ///< value of the register of the connection mode
    TextRef refusal;
    IskraPlan plan;
};

constexpr Mode kModes[] = {
    {kBaseEntry, 1, &texts::devNotSinglePhase, IskraPlan::SinglePhase},
    {"ISKRA MI71XX 1Ø2W (1b) Rec", 1, &texts::devNotSinglePhase, IskraPlan::SinglePhaseRecorder},
    {"ISKRA MI71XX 3Ø3W (3u)", 5, &texts::devNotThreeWire, IskraPlan::ThreePhase},
    {"ISKRA MI71XX 3Ø4W (4u)", 7, &texts::devNotFourWire, IskraPlan::ThreePhase},
    {"ISKRA MI71XX 3Ø4W (4u) Rec L-N", 7, &texts::devNotFourWire, IskraPlan::PhaseRecorderToNeutral},
    {"ISKRA MI71XX 3Ø4W (4u) Rec L-L", 7, &texts::devNotFourWire, IskraPlan::PhaseRecorderToPhase},
    {"ISKRA MI71XX 3Ø3W (3b)", 9, &texts::devNotThreeWire, IskraPlan::ThreePhase},
    {"ISKRA MI71XX 3Ø4W (4b)", 25, &texts::devNotFourWire, IskraPlan::ThreePhase},
    {"ISKRA MI71XX 3Ø4W U ", 25, &texts::devNotFourWire, IskraPlan::Voltages},
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
    const QByteArray request = Request(kWriteRegister, reg, value);
    return Ask(request).chopped(2) == request;
}

/// A register of a reply to a read: the 16-bit value at a data position, or nothing if the head is not the request's.
std::optional<quint16> ReadRegister(Function function, quint16 reg)
{
    constexpr qsizetype kWithData = 5;
    const QByteArray request = Request(function, reg, 1);
    const QByteArray reply = Ask(request);
    if (reply.size() < kWithData || reply.left(2) != request.left(2))
        return std::nullopt;
    return static_cast<quint16>(static_cast<quint8>(reply[3]) << 8 | static_cast<quint8>(reply[4]));
}

/// Opens the port that the project names now, which may be another one than at the last connection.
void Open()
{
    constexpr qint32 kGreatestAddress = 247;
    if (App().lModbusAddress < 1 || App().lModbusAddress > kGreatestAddress) {
        App().sDevError = texts::modbusAddressRange;
        return;
    }
    LinkSettings(kDataBits);
    App().ThePort->Open();
}

void Identify(const Mode& mode)
{
    ApplicationBlock& app = App();
    app.bDevConnected = false;
    app.sDevFound.clear();
    app.bConfigDue = true;
    const QByteArray reply = Ask(Request(kReadInput, kModelText, 3));
    if (reply.isEmpty()) {
        app.sDevError = texts::devTimeout;
    } else if (HasValidCrc(reply) && reply.mid(3, 4) == "MI71") {
        app.bDevConnected = true;
        app.sDevFound = QString::fromUtf8(mode.entry);
    } else {
        app.sDevError = texts::devNotFound;
    }
}

void Configure(const Mode& mode)
{
    if (App().bConfigDue && !WriteRegister(kConnectionMode, mode.connection))
        App().sDevError = TextOf(mode.refusal);
}

void ReadTransformers()
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

void WriteTransformers()
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

void ResetCounters()
{
    constexpr quint16 kAll = 0xFFFF;
    if (!WriteRegister(kCounterReset, kAll))
        App().sDevError = texts::devResetFailed;
}

void ReadInfo()
{
    constexpr qsizetype kModelLength = 6;
    ApplicationBlock& app = App();
    const QByteArray request = Request(kReadInput, kModelText, 3);
    const QByteArray reply = Ask(request);
    const bool isModel = reply.size() >= 3 + kModelLength && reply.left(2) == request.left(2);
    // Asked whatever came before, so that an address without an instrument costs the same as one with it.
    const std::optional<quint16> number = ReadRegister(kReadInput, kDeviceNumber);
    if (!isModel || !number) {
        app.sDevError = texts::devInfoFailed;
        app.sDeviceId.clear();
        return;
    }
    app.sDeviceId = QString::fromLatin1(reply.mid(3, kModelLength)) + u' ' + QString::number(*number);
}

} // namespace

bool RunIskraDriver(const QString& entry, quint8 command)
{
    const auto* mode = std::find_if(std::begin(kModes), std::end(kModes),
                                    [&](const Mode& m) { return entry == QString::fromUtf8(m.entry); });
    if (mode == std::end(kModes))
        return false;
    switch (command) {
    case kDevSettings:
        LinkSettings(kDataBits);
        break;
    case kDevOpen:
        Open();
        break;
    case kDevIdentify:
        Identify(*mode);
        break;
    case kDevConfigure:
        Configure(*mode);
        break;
    case kDevPrepare:
        break;
    case kDevSample:
        TakeIskraSample(mode->plan);
        break;
    case kDevClose:
        App().ThePort->Close();
        break;
    case kDevReadTransformers:
        ReadTransformers();
        break;
    case kDevWriteTransformers:
        WriteTransformers();
        break;
    case kDevResetCounters:
        ResetCounters();
        break;
    case kDevInfo:
        ReadInfo();
        break;
    default:
        App().sDevError = texts::devUnknownCommand + QString::number(command);
    }
    return true;
}

} // namespace korvanel
