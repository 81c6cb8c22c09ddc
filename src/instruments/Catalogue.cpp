#include "instruments/Catalogue.h"

#include "core/Common.h"
#include "core/texts/DefaultTexts.h"
#include "core/texts/FormF2Texts.h"
#include "instruments/EntryTable.h"
#include "instruments/IskraDriver.h"
#include "instruments/NanovipDriver.h"
#include "instruments/NormaDriver.h"
#include "instruments/YokogawaDriver.h"

#include <algorithm>

namespace korvanel {

namespace {

constexpr const char* kSinglePhase[] = {"ISKRA MI71XX 1Ø2W (1b)", "NANOVIP-PLUS 1Ø2W", "NORMA D4355 1Ø2W",
                                        "YOKOGAWA WT130 1Ø2W", "YOKOGAWA 2535 1Ø2W"};
constexpr const char* kThreePhase[] = {"ISKRA MI71XX 3Ø3W (3b)", "ISKRA MI71XX 3Ø4W (4b)", "ISKRA MI71XX 3Ø3W (3u)",
                                       "ISKRA MI71XX 3Ø4W (4u)", "NANOVIP-PLUS 3Ø3W",      "NORMA D4355 3Ø4W",
                                       "YOKOGAWA WT130 1Ø2W",    "YOKOGAWA WT130 3Ø3W",    "YOKOGAWA WT130 3Ø4W",
                                       "YOKOGAWA 2535 1Ø2W",     "YOKOGAWA 2535 3Ø3W",     "YOKOGAWA 2535 3Ø4W"};
constexpr const char* kRecorder[] = {"ISKRA MI71XX 1Ø2W (1b) Rec"};
constexpr const char* kPhaseRecorder[] = {"ISKRA MI71XX 3Ø4W (4u) Rec L-N", "ISKRA MI71XX 3Ø4W (4u) Rec L-L"};
constexpr const char* kMachineRecorder[] = {"ISKRA MI71XX 3Ø4W (4u) Rec L-L"};
constexpr const char* kVoltageMeter[] = {"ISKRA MI71XX 3Ø4W U "};

constexpr std::array<NetConfiguration, kNetConfCount> kNetConfigurations{{
    {NetTab::SinglePhase, &texts::netConfSemiSequential, kSinglePhase},
    {NetTab::ThreePhase, &texts::netConfSemiSequential, kThreePhase},
    {NetTab::Machine, &texts::netConfMachine, kThreePhase},
    {NetTab::SinglePhase, &texts::netConfSequential, kRecorder},
    {NetTab::ThreePhase, &texts::netConfPhases, kPhaseRecorder},
    {NetTab::Machine, &texts::netConfMachinePhases, kMachineRecorder},
    {NetTab::Voltage, &texts::netConfVoltage, kVoltageMeter},
}};

constexpr Wiring kOnePhase{&texts::wiringN1, &texts::wiringV1, &texts::wiringV1, &texts::wiringP1, &texts::wiringW1};
constexpr Wiring kSymmetric{&texts::wiringN2, &texts::wiringV2, &texts::wiringC1, &texts::wiringP1, &texts::wiringW1};
constexpr Wiring kSymmetricThreeWire{&texts::wiringN5, &texts::wiringV2, &texts::wiringC1, &texts::wiringP1,
                                     &texts::wiringW1};
constexpr Wiring kNanovipThreeWire{&texts::wiringN5, &texts::wiringV3, &texts::wiringV1, &texts::wiringP1,
                                   &texts::wiringW1};
constexpr Wiring kAron{&texts::wiringN3, &texts::wiringV3, &texts::wiringC2, &texts::wiringP2, &texts::wiringW2};
constexpr Wiring kFourWire{&texts::wiringN4, &texts::wiringV4, &texts::wiringC3, &texts::wiringP3, &texts::wiringW3};
constexpr Wiring kPhaseToPhase{&texts::wiringN4, &texts::wiringV4, &texts::wiringC4, &texts::wiringP3,
                               &texts::wiringW3};
constexpr Wiring kVoltageOnly{&texts::wiringN2, &texts::wiringV2, &texts::wiringC3, &texts::wiringNone,
                              &texts::wiringNone};

constexpr const char* kIskraBasicEntry = "ISKRA MI71XX 1Ø2W (1b)";
constexpr BusFamily kIskraFamily{.name = "ISKRA MI71XX", .basicEntry = kIskraBasicEntry};

/// A row of the family ISKRA MI71XX, with what its entries have in common.
constexpr Instrument Iskra(Instrument row)
{
    row.driver = &kIskraDriver;
    row.remark = &texts::wiringR2;
    row.hasDeviceFunctions = true;
    row.busFamily = &kIskraFamily;
    return row;
}

// A sample of the phase recorders takes 34 requests one after the other, hence their 5 s.
constexpr qint16 kPhaseRecorderInterval = 5;
constexpr qint16 kSlowInterval = 2;

/// A row of the family NANOVIP-PLUS, which sends all values in one block of 1.5 s.
constexpr Instrument Nanovip(Instrument row)
{
    row.driver = &kNanovipDriver;
    row.minInterval = kSlowInterval;
    row.leastRunInterval = 1.5;
    return row;
}

/// A row of the family NORMA D4355, which takes one query after the other.
constexpr Instrument Norma(Instrument row)
{
    row.driver = &kNormaDriver;
    row.minInterval = kSlowInterval;
    return row;
}

constexpr Instrument Wt130(Instrument row)
{
    row.driver = &kWt130Driver;
    return row;
}

/// A row of the family YOKOGAWA 2535, whose block carries no phase angle.
constexpr Instrument Y2535(Instrument row)
{
    row.driver = &k2535Driver;
    row.remark = &texts::wiringR1;
    return row;
}

constexpr Instrument kInstruments[] = {
    Iskra({.entry = kIskraBasicEntry, .wiring = kOnePhase}),
    Iskra({.entry = "ISKRA MI71XX 1Ø2W (1b) Rec", .wiring = kOnePhase}),
    Iskra({.entry = "ISKRA MI71XX 3Ø3W (3u)", .wiring = kAron}),
    Iskra({.entry = "ISKRA MI71XX 3Ø4W (4u)", .wiring = kFourWire}),
    Iskra({.entry = "ISKRA MI71XX 3Ø3W (3b)", .wiring = kSymmetricThreeWire}),
    Iskra({.entry = "ISKRA MI71XX 3Ø4W (4b)", .wiring = kSymmetric}),
    Iskra({.entry = "ISKRA MI71XX 3Ø4W (4u) Rec L-N", .wiring = kFourWire, .minInterval = kPhaseRecorderInterval}),
    Iskra({.entry = "ISKRA MI71XX 3Ø4W (4u) Rec L-L", .wiring = kPhaseToPhase, .minInterval = kPhaseRecorderInterval}),
    Iskra({.entry = "ISKRA MI71XX 3Ø4W U ", .wiring = kVoltageOnly}),
    Nanovip({.entry = "NANOVIP-PLUS 1Ø2W", .wiring = kOnePhase}),
    Nanovip({.entry = "NANOVIP-PLUS 3Ø3W", .wiring = kNanovipThreeWire}),
    Norma({.entry = "NORMA D4355 1Ø2W", .wiring = kOnePhase}),
    Norma({.entry = "NORMA D4355 3Ø4W", .wiring = kFourWire}),
    Wt130({.entry = "YOKOGAWA WT130 1Ø2W", .wiring = kOnePhase, .wiringInThreePhaseNet = &kSymmetric}),
    Wt130({.entry = "YOKOGAWA WT130 3Ø3W", .wiring = kAron}),
    Wt130({.entry = "YOKOGAWA WT130 3Ø4W", .wiring = kFourWire}),
    Y2535({.entry = "YOKOGAWA 2535 1Ø2W", .wiring = kOnePhase, .wiringInThreePhaseNet = &kSymmetric}),
    Y2535({.entry = "YOKOGAWA 2535 3Ø3W", .wiring = kAron}),
    Y2535({.entry = "YOKOGAWA 2535 3Ø4W", .wiring = kFourWire}),
};

static_assert(std::ranges::all_of(kInstruments, [](const Instrument& row) { return row.driver != nullptr; }),
              "each entry can be asked");

} // namespace

const NetConfiguration& NetConfigurationOf(int netConf)
{
    return kNetConfigurations.at(static_cast<std::size_t>(netConf));
}

QStringList InstrumentEntries(int netConf)
{
    QStringList entries;
    for (const char* entry : NetConfigurationOf(netConf).entries)
        entries << QString::fromUtf8(entry);
    return entries;
}

const BusFamily& FamilyWithAddresses()
{
    return kIskraFamily;
}

std::span<const Instrument> Instruments()
{
    return kInstruments;
}

const Instrument* FindInstrument(const QString& entry)
{
    return FindEntry(kInstruments, entry);
}

InstrumentFacts FactsOf(const QString& entry, int netConf)
{
    const Instrument* instrument = FindInstrument(entry);
    InstrumentFacts facts;
    if (!instrument)
        return facts;
    const bool isInThreePhaseNet = instrument->wiringInThreePhaseNet && netConf == kNetThreePhase;
    const Wiring& wiring = isInThreePhaseNet ? *instrument->wiringInThreePhaseNet : instrument->wiring;
    std::transform(wiring.begin(), wiring.end(), facts.wiring.begin(), TextOf);
    if (instrument->remark)
        facts.wiring.back() = TextOf(instrument->remark);
    facts.minInterval = instrument->minInterval;
    facts.leastRunInterval = instrument->leastRunInterval;
    facts.hasDeviceFunctions = instrument->hasDeviceFunctions;
    facts.hasBusAddress = instrument->busFamily != nullptr;
    return facts;
}

void LookUpInstrument(const QString& entry)
{
    const InstrumentFacts facts = FactsOf(entry, App().iNetConfIndex);
    App().WiringTexts = facts.wiring;
    App().iMinInterval = facts.minInterval;
    App().bHasDevTrans = App().bHasCounterReset = App().bHasDeviceInfo = facts.hasDeviceFunctions;
}

} // namespace korvanel
