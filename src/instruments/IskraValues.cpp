#include "instruments/IskraValues.h"

#include "core/NumberText.h"
#include "core/Units.h"
#include "instruments/Frames.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace korvanel {

namespace {

constexpr unsigned kExponentShift = 14;
constexpr unsigned kValueMask = 0x3FFF;
constexpr unsigned kMostExponent = 3;
constexpr double kTenths = 10;

struct Treatment
{
    IskraValueKind kind;
    int length;
    bool hasPrefix = true;
    double factor = 1;
};

constexpr std::array<Treatment, 10> kTreatments{{
    {IskraValueKind::Voltage, 7},
    {IskraValueKind::Current, 7},
    {IskraValueKind::Frequency, 7},
    {IskraValueKind::ActivePower, 8},
    {IskraValueKind::ApparentPower, 7},
    {IskraValueKind::ReactivePower, 12},
    {IskraValueKind::PowerFactor, 8},
    {IskraValueKind::PhaseAngle, 7, false},
    {IskraValueKind::ActiveEnergy, 15, true, kSecondsPerHour},
    {IskraValueKind::ReactiveEnergy, 15, true, kSecondsPerHour},
}};

const Treatment& TreatmentOf(IskraValueKind kind)
{
    return *std::find_if(kTreatments.begin(), kTreatments.end(), [kind](const Treatment& t) { return t.kind == kind; });
}

/// Limited first, so that a number beyond any register and one that is none do no harm.
quint16 Limited(double value, double low, double high)
{
    return static_cast<quint16>(std::nearbyint(std::isnan(value) ? low : std::clamp(value, low, high)));
}

} // namespace

quint16 EncodeVoltagePrimary(double volts)
{
    constexpr double kTooLarge = 16000;
    constexpr double kMost = 15999;
    double value = std::nearbyint(volts * kTenths);
    unsigned exponent = 0;
    for (; exponent < kMostExponent && value >= kTooLarge; ++exponent)
        value = std::trunc(value / 10);
    return static_cast<quint16>(Limited(value, 1, kMost) | exponent << kExponentShift);
}

double DecodeVoltagePrimary(quint16 reg)
{
    const unsigned exponent = static_cast<unsigned>(reg) >> kExponentShift;
    return (reg & kValueMask) * std::pow(10.0, exponent) / kTenths;
}

quint16 EncodeVoltageSecondary(double volts)
{
    return Limited(volts, 10, 775);
}

quint16 EncodeCurrentRatio(double primaryAmperes)
{
    constexpr double kSecondaryAmperes = 5;
    return Limited(std::trunc(primaryAmperes / kSecondaryAmperes), 1, 4000);
}

int IskraTextLength(IskraValueKind kind)
{
    return TreatmentOf(kind).length;
}

double ReadIskraText(const QByteArray& text, IskraValueKind kind)
{
    const Treatment& treatment = TreatmentOf(kind);
    const QString shown = QString::fromLatin1(text.left(treatment.length));
    const double prefix = treatment.hasPrefix ? UnitPrefixFactor(shown) : 1;
    const bool isCapacitive = kind == IskraValueKind::ReactivePower && shown.endsWith(u'C');
    return LeadingNumber(shown) * prefix * treatment.factor * (isCapacitive ? -1 : 1);
}

} // namespace korvanel
