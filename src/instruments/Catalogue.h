// What can be measured with what: the seven net configurations with the instruments that each allows, and for every
// instrument entry its driver, its wiring, its intervals and its capabilities. The text of an entry is its key
// everywhere; case and blanks count. Whatever is special about an entry is told here and asked for nowhere by its name.
#pragma once

#include "core/NetConfigurations.h"
#include "core/Texts.h"

#include <QString>
#include <QStringList>

#include <array>
#include <optional>
#include <span>

namespace korvanel {

class InstrumentDriver;

/// Tabs of the net configuration page, by their keys A to D.
enum class NetTab
{
    SinglePhase,
    ThreePhase,
    Machine,
    Voltage
};

struct NetConfiguration
{
    NetTab tab;
    TextRef heading;
    std::span<const char* const> entries; ///< instruments in list order
};

/// The configuration of an index from 0 to 6; throws std::out_of_range beyond.
const NetConfiguration& NetConfigurationOf(int netConf);

/// Instrument entries of a net configuration, in list order.
QStringList InstrumentEntries(int netConf);

/// Net, U, I, P, wattmeter method.
using Wiring = std::array<TextRef, 5>;

/// A family of instruments that have an address on a bus.
struct BusFamily
{
    const char* name;       ///< as a list names it
    const char* basicEntry; ///< by which an instrument of any mode is reached
};

/// The one that there is.
const BusFamily& FamilyWithAddresses();

/// A row of the catalogue: an instrument in one of the ways in which it measures.
struct Instrument
{
    const char* entry;
    const InstrumentDriver* driver = nullptr;
    Wiring wiring;
    TextRef remark = nullptr;
    qint16 minInterval = 1; ///< s, for the user to choose
    /// s. A bound that a run has before `minInterval` and tells first; some have none.
    std::optional<double> leastRunInterval = std::nullopt;
    bool hasDeviceFunctions = false;      ///< transformers, counter reset and device info
    const BusFamily* busFamily = nullptr; ///< none: the instrument has no bus address
    /// Wiring of a single-phase meter in a three-phase net, which is `kNetThreePhase` alone.
    const Wiring* wiringInThreePhaseNet = nullptr;
};

/// All entries, each once.
std::span<const Instrument> Instruments();

/// The row of an entry; null for any other text.
const Instrument* FindInstrument(const QString& entry);

/// What the catalogue says of an instrument entry.
struct InstrumentFacts
{
    std::array<QString, 6> wiring;          ///< net, U, I, P, wattmeter method, remark
    qint16 minInterval = 1;                 ///< s
    std::optional<double> leastRunInterval; ///< s, as in the row
    bool hasDeviceFunctions = false;        ///< transformers, counter reset and device info
    bool hasBusAddress = false;
};

/// An unknown entry has empty texts, 1 s, no functions and no address.
InstrumentFacts FactsOf(const QString& entry, int netConf);

/// Looks an entry up for the net configuration of the block and puts the result there.
void LookUpInstrument(const QString& entry);

} // namespace korvanel
