#include "instruments/NanovipValues.h"

#include "data/ElectricalFormulas.h"

#include <cmath>
#include <cstdlib>

namespace korvanel {

namespace {

// Places of the values in the reply, counted from 1.
enum NanovipPosition
{
    kVoltage = 8,
    kCurrent = 14,
    kActivePower = 20,
    kPowerFactor = 26,
    kReactivePower = 32,
    kApparentPower = 38,
    kFrequency = 44,
    kStatus = 296
};

constexpr qsizetype kValueLength = 6;

/// Whole number of the digits in front, to a base of 10 or 16; 0 without any.
int LeadingDigits(const QByteArray& text, int base)
{
    int number = 0;
    for (const char c : text) {
        const QByteArray digit(1, c);
        bool isDigit = false;
        const int value = digit.toInt(&isDigit, base);
        if (!isDigit)
            break;
        number = number * base + value;
    }
    return number;
}

int SignOf(double value)
{
    return value > 0 ? 1 : value < 0 ? -1 : 0;
}

} // namespace

double DecodeNanovipValue(const QByteArray& reply, qsizetype position)
{
    constexpr int kDecimal = 10;
    constexpr int kHexadecimal = 16;
    constexpr int kMostPositive = 127;
    const QByteArray field = reply.mid(position - 1, kValueLength);
    if (field.size() < kValueLength)
        return 0;
    const int mantissa = LeadingDigits(QByteArray(1, field[3]) + field.left(2), kDecimal);
    const int byte = LeadingDigits(field.mid(4), kHexadecimal);
    const int exponent = byte > kMostPositive ? byte - 256 : byte;
    const double sign = field[2] == '8' && mantissa != 0 ? -1 : 1;
    return static_cast<float>(sign * mantissa * std::pow(10.0, exponent));
}

unsigned NanovipStatusOf(const QByteArray& reply)
{
    constexpr int kHexadecimal = 16;
    return static_cast<unsigned>(LeadingDigits(reply.mid(kStatus - 1, 2), kHexadecimal));
}

void FillFromNanovip(tMeasuredRow& row, const QByteArray& reply, const std::array<double, 2>& ratio)
{
    const double power = ratio[0] * ratio[1];
    row.dU[kSum] = DecodeNanovipValue(reply, kVoltage) * ratio[0];
    row.dI[kSum] = DecodeNanovipValue(reply, kCurrent) * ratio[1];
    row.dP[kSum] = DecodeNanovipValue(reply, kActivePower) * power;
    row.dQ[kSum] = DecodeNanovipValue(reply, kReactivePower) * power;
    row.dS[kSum] = DecodeNanovipValue(reply, kApparentPower) * power;
    row.df = DecodeNanovipValue(reply, kFrequency);
    const double powerFactor = DecodeNanovipValue(reply, kPowerFactor);
    const bool isCapacitive = powerFactor < 0;
    const double cosPhi = std::abs(powerFactor) * SignOf(row.dP[kSum]);
    row.dCosPhi[kSum] = cosPhi == 0 ? 0 : cosPhi; // never the negative zero
    const double phi = AngleOfPowerFactor(row.dCosPhi[kSum]);
    row.dPhi[kSum] = isCapacitive && phi != 0 ? -phi : phi;
}

} // namespace korvanel
