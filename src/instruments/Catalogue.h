// What can be measured with what: the seven net configurations with the instruments that each allows, and for every
// instrument entry its driver, its wiring, its intervals and its capabilities. The text of an entry is its key
// everywhere; case and blanks count. Whatever is special about an entry is told here and asked for nowhere by its name.
#pragma once

#include "core/Quantities.h"
#include "core/Texts.h"

#include <QString>
#include <QStringList>

#include <array>
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

/// A row of the catalogue: an instrument in one of the ways in which it measures.
struct Instrument
{
    const char* entry;
    const InstrumentDriver* driver = nullptr; ///< none: the instrument can be chosen, but not yet be asked
    Wiring wiring;
    TextRef remark = nullptr;
    qint16 minInterval = 1;          ///< s
    bool hasDeviceFunctions = false; ///< transformers, counter reset and device info
    /// Wiring of a single-phase meter in a three-phase net, which is net configuration 1 alone.
    const Wiring* wiringInThreePhaseNet = nullptr;
};

/// All entries, each once.
std::span<const Instrument> Instruments();

/// The row of an entry; null for any other text.
const Instrument* FindInstrument(const QString& entry);

/// What the catalogue says of an instrument entry.
struct InstrumentFacts
{
    std::array<QString, 6> wiring;   ///< net, U, I, P, wattmeter method, remark
    qint16 minInterval = 1;          ///< s
    bool hasDeviceFunctions = false; ///< transformers, counter reset and device info
};

/// An unknown entry has empty texts, 1 s and no functions.
InstrumentFacts FactsOf(const QString& entry, int netConf);

/// Looks an entry up for the net configuration of the block and puts the result there.
void LookUpInstrument(const QString& entry);

} // namespace korvanel
