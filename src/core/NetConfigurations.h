// The seven net configurations: what each measures, as one table. Everybody who wants to know whether there is a
// machine, whether phases are recorded or where energies come from asks it here, by what is meant and not by a number.
#pragma once

#include "core/Quantities.h"

#include <QtGlobal>

#include <array>
#include <span>

namespace korvanel {

/// As stored in a project.
enum NetConf : qint16
{
    kNetSinglePhase = 0,
    kNetThreePhase = 1,
    kNetMachine = 2, ///< an asynchronous machine as a symmetric load
    kNetSinglePhaseRecorder = 3,
    kNetPhaseRecorder = 4,   ///< every phase by itself
    kNetMachineRecorder = 5, ///< an asynchronous machine, every phase by itself
    kNetVoltage = 6,         ///< three voltages and nothing else
};
inline constexpr int kNetConfCount = 7;

/// Where the energies of a recording come from.
enum class EnergySource
{
    None,
    Integrated, ///< the program integrates the powers
    Registers,  ///< the instrument counts them
};

/// Columns of the grids that belong together: numbers of quantities, and of columns without one.
using ColumnGroup = std::span<const qint16>;

struct NetConfTraits
{
    int netConf;             ///< its number, which is its place in the table
    bool hasPower = true;    ///< current and powers beside the voltages
    bool hasMachine = false; ///< speed, torque, shaft power and efficiency are estimated
    bool hasPhases = false;  ///< currents and powers of each phase are recorded
    bool isAron = false;     ///< three phases with S = sqrt(3) U I
    EnergySource energies = EnergySource::None;
    std::array<ColumnGroup, 6> layout; ///< of the grids, in order; empty groups at the end
};

namespace net_configurations {

inline constexpr std::array<qint16, 8> kSums{kU, kI, kF, kP, kQ, kS, kPhi, kCosPhi};
inline constexpr std::array<qint16, 4> kMachine{kN, kM, kPmech, kEta};
inline constexpr std::array<qint16, 4> kEnergies{kWp, kWpPlus, kWpMinus, kWq};
inline constexpr std::array<qint16, 8> kRegisters{kWpPlusAbs, kWpMinusAbs, kWqPlusAbs, kWqMinusAbs,
                                                  kWpPlusRel, kWpMinusRel, kWqPlusRel, kWqMinusRel};
inline constexpr std::array<qint16, 1> kNeutralCurrent{kINeutral};
inline constexpr std::array<qint16, 2> kMethodAndGrade{kColumnMethod, kColumnSuitability};
inline constexpr std::array<qint16, 2> kTimes{kColumnTime, kColumnTimeStamp};
inline constexpr std::array<qint16, 5> kVoltages{kU, kU1, kU1 + 1, kU1 + 2, kF};
/// Phase by phase.
inline constexpr std::array<qint16, 21> kPhases{kU1,     kI1,     kP1,     kQ1,     kS1,     kPhi1,     kCosPhi1,     //
                                                kU1 + 1, kI1 + 1, kP1 + 1, kQ1 + 1, kS1 + 1, kPhi1 + 1, kCosPhi1 + 1, //
                                                kU1 + 2, kI1 + 2, kP1 + 2, kQ1 + 2, kS1 + 2, kPhi1 + 2, kCosPhi1 + 2};

inline constexpr std::array<NetConfTraits, kNetConfCount> kTable{{
    {.netConf = kNetSinglePhase, .energies = EnergySource::Integrated, .layout = {kSums, kEnergies, kTimes}},
    {.netConf = kNetThreePhase,
     .isAron = true,
     .energies = EnergySource::Integrated,
     .layout = {kSums, kEnergies, kTimes}},
    {.netConf = kNetMachine,
     .hasMachine = true,
     .energies = EnergySource::Integrated,
     .layout = {kSums, kMachine, kEnergies, kMethodAndGrade, kTimes}},
    {.netConf = kNetSinglePhaseRecorder,
     .energies = EnergySource::Registers,
     .layout = {kSums, kNeutralCurrent, kRegisters, kTimes}},
    {.netConf = kNetPhaseRecorder,
     .hasPhases = true,
     .energies = EnergySource::Registers,
     .layout = {kSums, kNeutralCurrent, kPhases, kRegisters, kTimes}},
    {.netConf = kNetMachineRecorder,
     .hasMachine = true,
     .hasPhases = true,
     .energies = EnergySource::Registers,
     .layout = {kSums, kMachine, kPhases, kRegisters, kMethodAndGrade, kTimes}},
    {.netConf = kNetVoltage, .hasPower = false, .layout = {kVoltages, kTimes}},
}};

constexpr bool IsInOrder()
{
    for (int i = 0; i < kNetConfCount; ++i)
        if (kTable[static_cast<std::size_t>(i)].netConf != i)
            return false;
    return true;
}
static_assert(IsInOrder(), "each net configuration stands at its number");

} // namespace net_configurations

/// The traits of a net configuration, 0 to 6; throws std::out_of_range for any other number.
constexpr const NetConfTraits& TraitsOf(int netConf)
{
    return net_configurations::kTable.at(static_cast<std::size_t>(netConf));
}

constexpr bool HasMachine(int netConf)
{
    return TraitsOf(netConf).hasMachine;
}

constexpr bool IntegratesEnergy(int netConf)
{
    return TraitsOf(netConf).energies == EnergySource::Integrated;
}

constexpr bool HasRegisters(int netConf)
{
    return TraitsOf(netConf).energies == EnergySource::Registers;
}

/// Net configurations as bits: bit n is configuration n.
using ConfigMask = quint8;

constexpr bool IsIn(ConfigMask mask, int netConf)
{
    return (mask >> netConf & 1) != 0;
}

/// The net configurations whose traits meet a condition.
template <typename Condition>
constexpr ConfigMask ConfigurationsWhere(Condition&& condition)
{
    unsigned mask = 0;
    for (const NetConfTraits& traits : net_configurations::kTable)
        if (condition(traits))
            mask |= 1U << static_cast<unsigned>(traits.netConf);
    return static_cast<ConfigMask>(mask);
}

} // namespace korvanel
