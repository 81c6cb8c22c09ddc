#include "motor_db/TypicalData.h"

#include "core/Units.h"

#include <array>
#include <cmath>
#include <numbers>

namespace korvanel::motordb {

namespace {

constexpr double kSmallestPower = 0.75; // kW
constexpr double kLargestPower = 200;
constexpr int kTypicalDigits = 3;

/// From the smallest machine to the largest.
struct Range
{
    double smallest;
    double largest;

    double At(double size) const { return smallest + size * (largest - smallest); }
};

/// No-load power over the losses at rated load: iron, friction, ventilation and the little copper loss of the no-load
/// current. Two-pole machines ventilate more.
constexpr std::array kNoLoadShare{0.40, 0.33, 0.33};
/// Loss in the cold stator winding over the losses at rated load.
constexpr Range kStatorShare{0.42, 0.26};
/// No-load current over the reactive part of the rated current; the rest of that is leakage.
constexpr Range kNoLoadCurrentShare{0.95, 0.65};
/// Mass over that of a four-pole machine of the same power.
constexpr std::array kMassShare{0.95, 1.0, 1.35};

std::size_t PoleIndex(const MachineRecord& machine)
{
    return static_cast<std::size_t>(machine.Polpaarzahl - 1);
}

double ElectricalPower(const MachineRecord& machine)
{
    return std::numbers::sqrt3 * *machine.U * *machine.I * *machine.cosphi;
}

double RatedLosses(const MachineRecord& machine)
{
    return std::abs(ElectricalPower(machine) - *machine.Pmech);
}

double StrandCurrent(const MachineRecord& machine)
{
    return machine.Schaltungsart == QStringLiteral("D") ? *machine.I / std::numbers::sqrt3 : *machine.I;
}

void AddNoLoadData(MachineRecord& machine, double size)
{
    const double reactive = *machine.I * std::sqrt(1 - *machine.cosphi * *machine.cosphi);
    machine.Po = RoundedToDigits(kNoLoadShare[PoleIndex(machine)] * RatedLosses(machine), kTypicalDigits);
    machine.Uo = machine.U;
    machine.Io = RoundedToDigits(kNoLoadCurrentShare.At(size) * reactive, kTypicalDigits);
    machine.fo = machine.f;
}

double StatorResistance(const MachineRecord& machine, double size)
{
    constexpr int kStrands = 3;
    const double current = StrandCurrent(machine);
    return RoundedToDigits(kStatorShare.At(size) * RatedLosses(machine) / (kStrands * current * current),
                           kTypicalDigits);
}

double StallRatio(double kilowatts, bool isEfficient)
{
    const double size = std::log(kilowatts / kSmallestPower);
    return RoundedToDigits(isEfficient ? 3.4 - 0.08 * size : 2.4 + 0.03 * size, 2);
}

double Mass(const MachineRecord& machine, double kilowatts, bool isEfficient)
{
    return RoundedToDigits(kMassShare[PoleIndex(machine)] * (isEfficient ? 19 : 16) * std::pow(kilowatts, 0.77), 2);
}

double TimeConstant(double kilowatts)
{
    return std::round(18 * std::pow(kilowatts, 0.2)) * kSecondsPerMinute;
}

} // namespace

double RoundedToDigits(double value, int digits)
{
    const int exponent = digits - 1 - static_cast<int>(std::floor(std::log10(std::abs(value))));
    const double factor = std::pow(10.0, std::abs(exponent));
    return exponent >= 0 ? std::round(value * factor) / factor : std::round(value / factor) * factor;
}

double SizeOf(double kilowatts)
{
    return std::log(kilowatts / kSmallestPower) / std::log(kLargestPower / kSmallestPower);
}

void AddTypicalData(MachineRecord& machine, bool isEfficient)
{
    const double kilowatts = std::abs(*machine.Pmech) / kPerKilo;
    const double size = SizeOf(kilowatts);
    if (!machine.Po)
        AddNoLoadData(machine, size);
    if (!machine.Rs)
        machine.Rs = StatorResistance(machine, size);
    machine.Mkipp_Mn = StallRatio(kilowatts, isEfficient);
    machine.Tth = TimeConstant(kilowatts);
    machine.I_CL = QStringLiteral("F");
    machine.Masse = Mass(machine, kilowatts, isEfficient);
}

} // namespace korvanel::motordb
