#include "instruments/YokogawaValues.h"

#include "core/NumberText.h"
#include "data/ElectricalFormulas.h"
#include "instruments/Frames.h"
#include "machine/MachineFormulas.h"

#include <array>
#include <cmath>
#include <numbers>

namespace korvanel {

namespace {

constexpr double kSqrt3 = std::numbers::sqrt3;
constexpr double kThreePhases = 3;

/// Places of the values in a block, counted from 1.
struct Places
{
    qsizetype voltage;
    qsizetype current;
    qsizetype power;
    qsizetype frequency;
    qsizetype blockLength;
};

constexpr qsizetype kWt130Field = 11;
constexpr std::array<Places, 3> kWt130Places{{
    {.voltage = 7, .current = 80, .power = 153, .frequency = 226, .blockLength = kWt130BlockLength},
    {.voltage = 61, .current = 134, .power = 207, .frequency = 226, .blockLength = kWt130BlockLength},
    {.voltage = 61, .current = 134, .power = 207, .frequency = 226, .blockLength = kWt130BlockLength},
}};
constexpr qsizetype kWt130Sign = 188;     // a value whose sign tells which way the current is shifted
constexpr qsizetype kWt130HasAngle = 242; // "O" where there is none
constexpr qsizetype kWt130Lag = 243;      // "G" where the current lags
constexpr qsizetype kWt130Angle = 244;

constexpr qsizetype k2535Field = 10;
constexpr std::array<Places, 3> k2535Places{{
    {.voltage = 7, .current = 25, .power = 43, .frequency = 78, .blockLength = 89},
    {.voltage = 41, .current = 93, .power = 145, .frequency = 180, .blockLength = 191},
    {.voltage = 58, .current = 127, .power = 196, .frequency = 231, .blockLength = 242},
}};
constexpr double kNoFrequency = 888888;

std::size_t At(YokogawaWiring wiring)
{
    return static_cast<std::size_t>(wiring);
}

/// Voltage, current, power and frequency as they stand in the block.
void FillMeasured(tMeasuredRow& row, const QByteArray& block, const Places& places, qsizetype field,
                  const YokogawaScale& scale)
{
    row.dU[kSum] = NumberAt(block, places.voltage, field) * scale.voltage;
    row.dI[kSum] = NumberAt(block, places.current, field) * scale.current;
    row.dP[kSum] = NumberAt(block, places.power, field) * scale.voltage * scale.current;
    row.df = NumberAt(block, places.frequency, field);
}

/// Angle in degrees, negative where the current leads.
double AngleOfWt130(const QByteArray& block, YokogawaWiring wiring)
{
    if (block[kWt130HasAngle - 1] == 'O')
        return 0;
    const double angle = NumberAt(block, kWt130Angle, kWt130Field);
    const bool isLeading = wiring == YokogawaWiring::SinglePhase ? block[kWt130Lag - 1] != 'G'
                                                                 : NumberAt(block, kWt130Sign, kWt130Field) < 0;
    return isLeading && angle != 0 ? -angle : angle;
}

} // namespace

qsizetype Y2535BlockLength(YokogawaWiring wiring)
{
    return k2535Places.at(At(wiring)).blockLength;
}

void FillFromWt130(tMeasuredRow& row, const QByteArray& block, YokogawaWiring wiring, const YokogawaScale& scale,
                   bool isSymmetricNet)
{
    FillMeasured(row, block, kWt130Places.at(At(wiring)), kWt130Field, scale);
    if (wiring == YokogawaWiring::FourWire)
        row.dU[kSum] *= kSqrt3;
    const double phi = AngleOfWt130(block, wiring);
    row.dPhi[kSum] = phi;
    row.dCosPhi[kSum] = std::cos(RadiansOf(phi));
    row.dS[kSum] = ApparentPower(row.dU[kSum], row.dI[kSum], wiring != YokogawaWiring::SinglePhase);
    row.dQ[kSum] = row.dS[kSum] * std::sin(RadiansOf(phi));
    if (wiring == YokogawaWiring::SinglePhase && isSymmetricNet) {
        row.dU[kSum] *= kSqrt3;
        for (double* power : {&row.dP[kSum], &row.dQ[kSum], &row.dS[kSum]})
            *power *= kThreePhases;
    }
}

void FillFrom2535(tMeasuredRow& row, const QByteArray& block, YokogawaWiring wiring, const YokogawaScale& scale,
                  bool isSymmetricNet)
{
    FillMeasured(row, block, k2535Places.at(At(wiring)), k2535Field, scale);
    if (row.df == kNoFrequency)
        row.df = 0;
    if (wiring == YokogawaWiring::FourWire)
        row.dU[kSum] *= kSqrt3;
    row.dS[kSum] = ApparentPower(row.dU[kSum], row.dI[kSum], wiring != YokogawaWiring::SinglePhase);
    if (wiring == YokogawaWiring::SinglePhase && isSymmetricNet) {
        row.dU[kSum] *= kSqrt3;
        row.dP[kSum] *= kThreePhases;
        row.dS[kSum] *= kThreePhases;
    }
    const double S = row.dS[kSum];
    const double P = row.dP[kSum];
    row.dCosPhi[kSum] = S == 0 ? 0 : P / S;
    // The instrument's own rounding may bring P above S. With four wires the signs count, and a power fed back beyond S
    // leaves no reactive one.
    if (wiring == YokogawaWiring::FourWire && P < S && P * P > S * S) {
        row.dQ[kSum] = 0;
        row.sValidMask = QStringLiteral("EEEE");
    } else {
        row.dQ[kSum] = wiring == YokogawaWiring::FourWire && P >= S ? 0 : ReactivePower(S, P);
    }
    row.dPhi[kSum] = AngleOfPowerFactor(row.dCosPhi[kSum]);
}

YokogawaScale ScaleOf2535(const QByteArray& setup)
{
    constexpr qsizetype kFactorLength = 5;
    const auto factor = [&setup](const char* name) {
        const qsizetype place = setup.indexOf(name);
        const double value =
            place < 0 ? 0
                      : LeadingNumber(QString::fromLatin1(setup.mid(place + qsizetype(qstrlen(name)), kFactorLength)));
        return value == 0 || !std::isfinite(value) ? 1 : value;
    };
    if (!setup.contains("SC1"))
        return {};
    return {.voltage = factor("KV"), .current = factor("KA")};
}

} // namespace korvanel
