// The catalogue: net configurations with their instruments, and what is known of each instrument entry.
#include "instruments/Catalogue.h"

#include "instruments/DevManaging.h"
#include "instruments/IskraDriver.h"
#include "instruments/NanovipDriver.h"
#include "instruments/NormaDriver.h"
#include "instruments/YokogawaDriver.h"
#include "support/Fixture.h"
#include "support/ScriptedPort.h"

#include <stdexcept>

namespace korvanel::test {

namespace {

// The wiring texts by the letters of their column: net, voltage, current, power, method, remark.
constexpr const char* N1 = "1 Phase, 2 Leiter (single phase: 1b)";
constexpr const char* N2 = "3 Phasen, 4 Leiter oder künstlicher Sternpunkt";
constexpr const char* N3 = "3 Phasen, 3 Leiter, ARON-Schaltung";
constexpr const char* N4 = "3 Phasen, 4 Leiter";
constexpr const char* N5 = "3 Phasen, 3 Leiter";
constexpr const char* V1 = "L1-N oder L1-L2";
constexpr const char* V2 = "L1-L2-L3-N oder L1-L2-L3-künstlicher Sternpunkt";
constexpr const char* V3 = "L1-L2-L3";
constexpr const char* V4 = "L1-L2-L3-N oder L1-L2-L3-künstlicher Sternpunkt(KS)";
constexpr const char* C1 = "L1-N oder L1-künstlicher Sternpunkt";
constexpr const char* C2 = "L1-L2, L3-L2";
constexpr const char* C3 = "L1-N, L2-N, L3-N oder L1-KS, L2-KS, L3-KS";
constexpr const char* C4 = "L1-L2, L3-L2, L1-L3";
constexpr const char* P1 = "L1";
constexpr const char* P2 = "L1, L3";
constexpr const char* P3 = "L1, L2, L3";
constexpr const char* W1 = "1-Wattmeter";
constexpr const char* W2 = "2-Wattmeter";
constexpr const char* W3 = "3-Wattmeter";
constexpr const char* R1 = "Einschränkung des Datentransfers lässt nur R/L - Messung zu!";
constexpr const char* R2 = "Unterstützte Geräte: MI 7130, MI 7131, MI 7140, MI 7150";

struct CatalogueRow
{
    const char* entry;
    std::array<const char*, 6> wiring;
    int minInterval;
    bool hasCaps;
};

// The two single-phase YOKOGAWA meters stand here as in every net but the three-phase net.
constexpr CatalogueRow kCatalogue[] = {
    {"ISKRA MI71XX 1Ø2W (1b)", {N1, V1, V1, P1, W1, R2}, 1, true},
    {"ISKRA MI71XX 1Ø2W (1b) Rec", {N1, V1, V1, P1, W1, R2}, 1, true},
    {"ISKRA MI71XX 3Ø3W (3u)", {N3, V3, C2, P2, W2, R2}, 1, true},
    {"ISKRA MI71XX 3Ø4W (4u)", {N4, V4, C3, P3, W3, R2}, 1, true},
    {"ISKRA MI71XX 3Ø3W (3b)", {N5, V2, C1, P1, W1, R2}, 1, true},
    {"ISKRA MI71XX 3Ø4W (4b)", {N2, V2, C1, P1, W1, R2}, 1, true},
    {"ISKRA MI71XX 3Ø4W (4u) Rec L-N", {N4, V4, C3, P3, W3, R2}, 5, true},
    {"ISKRA MI71XX 3Ø4W (4u) Rec L-L", {N4, V4, C4, P3, W3, R2}, 5, true},
    {"ISKRA MI71XX 3Ø4W U ", {N2, V2, C3, "-", "-", R2}, 1, true},
    {"NANOVIP-PLUS 1Ø2W", {N1, V1, V1, P1, W1, ""}, 2, false},
    {"NANOVIP-PLUS 3Ø3W", {N5, V3, V1, P1, W1, ""}, 2, false},
    {"NORMA D4355 1Ø2W", {N1, V1, V1, P1, W1, ""}, 2, false},
    {"NORMA D4355 3Ø4W", {N4, V4, C3, P3, W3, ""}, 2, false},
    {"YOKOGAWA WT130 1Ø2W", {N1, V1, V1, P1, W1, ""}, 1, false},
    {"YOKOGAWA WT130 3Ø3W", {N3, V3, C2, P2, W2, ""}, 1, false},
    {"YOKOGAWA WT130 3Ø4W", {N4, V4, C3, P3, W3, ""}, 1, false},
    {"YOKOGAWA 2535 1Ø2W", {N1, V1, V1, P1, W1, R1}, 1, false},
    {"YOKOGAWA 2535 3Ø3W", {N3, V3, C2, P2, W2, R1}, 1, false},
    {"YOKOGAWA 2535 3Ø4W", {N4, V4, C3, P3, W3, R1}, 1, false},
};
constexpr std::array<const char*, 6> kWt130InThreePhaseNet{N2, V2, C1, P1, W1, ""};
constexpr std::array<const char*, 6> k2535InThreePhaseNet{N2, V2, C1, P1, W1, R1};

const QStringList kSinglePhase{"ISKRA MI71XX 1Ø2W (1b)", "NANOVIP-PLUS 1Ø2W", "NORMA D4355 1Ø2W", "YOKOGAWA WT130 1Ø2W",
                               "YOKOGAWA 2535 1Ø2W"};
const QStringList kThreePhase{"ISKRA MI71XX 3Ø3W (3b)", "ISKRA MI71XX 3Ø4W (4b)", "ISKRA MI71XX 3Ø3W (3u)",
                              "ISKRA MI71XX 3Ø4W (4u)", "NANOVIP-PLUS 3Ø3W",      "NORMA D4355 3Ø4W",
                              "YOKOGAWA WT130 1Ø2W",    "YOKOGAWA WT130 3Ø3W",    "YOKOGAWA WT130 3Ø4W",
                              "YOKOGAWA 2535 1Ø2W",     "YOKOGAWA 2535 3Ø3W",     "YOKOGAWA 2535 3Ø4W"};

class CatalogueTest : public BlockTest
{
protected:
    static void ExpectWiring(const std::array<QString, 6>& actual, const std::array<const char*, 6>& expected,
                             const QString& entry)
    {
        for (std::size_t i = 0; i < expected.size(); ++i)
            EXPECT_EQ(actual[i], expected[i]) << entry.toStdString() << ", text " << i;
    }
};

} // namespace

TEST_F(CatalogueTest, InstrumentEntries_OfEachNetConfigurationInListOrder)
{
    EXPECT_EQ(InstrumentEntries(0), kSinglePhase);
    EXPECT_EQ(InstrumentEntries(1), kThreePhase);
    EXPECT_EQ(InstrumentEntries(2), kThreePhase);
    EXPECT_EQ(InstrumentEntries(3), QStringList{"ISKRA MI71XX 1Ø2W (1b) Rec"});
    EXPECT_EQ(InstrumentEntries(4), (QStringList{"ISKRA MI71XX 3Ø4W (4u) Rec L-N", "ISKRA MI71XX 3Ø4W (4u) Rec L-L"}));
    EXPECT_EQ(InstrumentEntries(5), QStringList{"ISKRA MI71XX 3Ø4W (4u) Rec L-L"});
    EXPECT_EQ(InstrumentEntries(6), QStringList{"ISKRA MI71XX 3Ø4W U "});
}

TEST_F(CatalogueTest, NetConfigurations_HaveTheirTabsAndHeadings)
{
    struct Case
    {
        NetTab tab;
        const char* heading;
    };
    const Case cases[] = {
        {NetTab::SinglePhase, "Semi-sequentielle Messung mit optimierter Abtastrate"},
        {NetTab::ThreePhase, "Semi-sequentielle Messung mit optimierter Abtastrate"},
        {NetTab::Machine, "Drehstromasynchronmaschine - (symmetrische Last)"},
        {NetTab::SinglePhase, "Sequentielle Messung (Rekorder-Funktion)"},
        {NetTab::ThreePhase, "Sequentielle Einzelphasenmessung (Rekorder-Funktion)"},
        {NetTab::Machine, "Drehstromasynchronmaschine - Einzelphasenmessung (symmetrische Last)"},
        {NetTab::Voltage, "3-Phasen Spannungsmessung"},
    };
    for (int i = 0; i < kNetConfCount; ++i) {
        EXPECT_EQ(NetConfigurationOf(i).tab, cases[i].tab) << i;
        EXPECT_EQ(TextOf(NetConfigurationOf(i).heading), cases[i].heading) << i;
    }
}

TEST_F(CatalogueTest, NetConfigurations_OfAnotherIndexAreRefused)
{
    for (const int netConf : {-1, 7, 32767}) {
        EXPECT_THROW(static_cast<void>(NetConfigurationOf(netConf)), std::out_of_range) << netConf;
        EXPECT_THROW(InstrumentEntries(netConf), std::out_of_range) << netConf;
    }
}

TEST_F(CatalogueTest, Facts_OfEachEntry)
{
    for (const CatalogueRow& row : kCatalogue) {
        const InstrumentFacts facts = FactsOf(row.entry, 0);
        ExpectWiring(facts.wiring, row.wiring, row.entry);
        EXPECT_EQ(facts.minInterval, row.minInterval) << row.entry;
        EXPECT_EQ(facts.hasDeviceFunctions, row.hasCaps) << row.entry;
    }
}

TEST_F(CatalogueTest, Facts_OfSinglePhaseMetersSwitchInTheThreePhaseNetAlone)
{
    for (int netConf = 0; netConf < kNetConfCount; ++netConf)
        for (const CatalogueRow& row : kCatalogue) {
            std::array<const char*, 6> expected = row.wiring;
            if (netConf == 1 && QString(row.entry) == "YOKOGAWA WT130 1Ø2W")
                expected = kWt130InThreePhaseNet;
            if (netConf == 1 && QString(row.entry) == "YOKOGAWA 2535 1Ø2W")
                expected = k2535InThreePhaseNet;
            const InstrumentFacts facts = FactsOf(row.entry, netConf);
            ExpectWiring(facts.wiring, expected, QString("%1 in %2").arg(row.entry).arg(netConf));
            EXPECT_EQ(facts.minInterval, row.minInterval) << row.entry << ' ' << netConf;
        }
}

TEST_F(CatalogueTest, Wt130SinglePhase_IsOfferedInNetConfigurationsZeroToTwo)
{
    for (int netConf = 0; netConf < kNetConfCount; ++netConf)
        EXPECT_EQ(InstrumentEntries(netConf).contains("YOKOGAWA WT130 1Ø2W"), netConf <= 2) << netConf;
}

TEST_F(CatalogueTest, PhaseRecorders_NeedFiveSecondsAndTheSinglePhaseRecorderOne)
{
    EXPECT_EQ(FactsOf("ISKRA MI71XX 3Ø4W (4u) Rec L-N", 4).minInterval, 5);
    EXPECT_EQ(FactsOf("ISKRA MI71XX 3Ø4W (4u) Rec L-L", 5).minInterval, 5);
    EXPECT_EQ(FactsOf("ISKRA MI71XX 1Ø2W (1b) Rec", 3).minInterval, 1);
}

TEST_F(CatalogueTest, VoltageMeter_ShowsADashForPowerAndMethod)
{
    const InstrumentFacts facts = FactsOf("ISKRA MI71XX 3Ø4W U ", 6);
    EXPECT_EQ(facts.wiring[3], "-");
    EXPECT_EQ(facts.wiring[4], "-");
}

TEST_F(CatalogueTest, Facts_OfAnyOtherTextAreEmpty)
{
    for (const char* entry : {"", "ISKRA MI71XX 3Ø4W U", "iskra mi71xx 1ø2w (1b)", "NORMA D4355 1Ø2W ", "FLUKE",
                              " NORMA D4355 3Ø4W", "NORMA D4355"}) {
        const InstrumentFacts facts = FactsOf(entry, 0);
        ExpectWiring(facts.wiring, {"", "", "", "", "", ""}, entry);
        EXPECT_EQ(facts.minInterval, 1) << entry;
        EXPECT_FALSE(facts.hasDeviceFunctions) << entry;
    }
}

TEST_F(CatalogueTest, EveryOfferedEntry_IsKnown)
{
    for (int netConf = 0; netConf < kNetConfCount; ++netConf)
        for (const QString& entry : InstrumentEntries(netConf))
            EXPECT_NE(FactsOf(entry, netConf).wiring[0], "") << entry.toStdString();
}

TEST_F(CatalogueTest, Instruments_AreTheEntriesEachOnce)
{
    QStringList entries;
    for (const Instrument& instrument : Instruments())
        entries << QString::fromUtf8(instrument.entry);
    QStringList expected;
    for (const CatalogueRow& row : kCatalogue)
        expected << QString::fromUtf8(row.entry);
    EXPECT_EQ(entries.size(), std::ssize(kCatalogue));
    EXPECT_EQ(QSet<QString>(entries.begin(), entries.end()), QSet<QString>(expected.begin(), expected.end()));
}

TEST_F(CatalogueTest, FindInstrument_IsTheRowOfExactlyThisText)
{
    for (const Instrument& instrument : Instruments())
        EXPECT_EQ(FindInstrument(QString::fromUtf8(instrument.entry)), &instrument) << instrument.entry;
    for (const char* entry : {"", "ISKRA MI71XX 3Ø4W U", "iskra mi71xx 1ø2w (1b)", "NORMA D4355 1Ø2W ", "NORMA D4355"})
        EXPECT_EQ(FindInstrument(QString::fromUtf8(entry)), nullptr) << entry;
}

/// The instrument of an entry, which the dispatcher asks on a line where nobody answers.
class CataloguedDriver : public CatalogueTest
{
protected:
    CataloguedDriver()
    {
        App().ThePort = &port;
        App().lModbusAddress = 33;
    }
    /// Error of an operation of an entry.
    static QString ErrorOf(const char* entry, quint8 command)
    {
        App().sDevice = QString::fromUtf8(entry);
        App().bConfigDue = true;
        DevCommand(command);
        return App().sDevError;
    }
    static QString UnknownCommand(int command) { return QString("Unbekanntes Gerätekommando: %1").arg(command); }

    ScriptedPort port;
};

TEST_F(CataloguedDriver, OfEachRow_IsThatOfItsFamily)
{
    const std::pair<const char*, const InstrumentDriver*> families[] = {{"ISKRA", &kIskraDriver},
                                                                        {"NANOVIP", &kNanovipDriver},
                                                                        {"NORMA", &kNormaDriver},
                                                                        {"YOKOGAWA WT130", &kWt130Driver},
                                                                        {"YOKOGAWA 2535", &k2535Driver}};
    for (const Instrument& instrument : Instruments())
        for (const auto& [name, driver] : families)
            EXPECT_EQ(instrument.driver == driver, QString::fromUtf8(instrument.entry).startsWith(name))
                << instrument.entry;
}

TEST_F(CataloguedDriver, IsReachedByTheTextOfItsRow)
{
    for (const Instrument& instrument : Instruments())
        EXPECT_EQ(ErrorOf(instrument.entry, 11), UnknownCommand(11)) << instrument.entry;
}

TEST_F(CataloguedDriver, CanConfigureAndSampleEveryEntryThatNamesIt)
{
    for (const Instrument& instrument : Instruments()) {
        for (const quint8 command : {kDevConfigure, kDevSample}) {
            port.requests.clear();
            EXPECT_NE(ErrorOf(instrument.entry, command), UnknownCommand(command)) << instrument.entry;
            EXPECT_FALSE(port.requests.empty()) << instrument.entry << ' ' << int{command};
        }
    }
}

TEST_F(CataloguedDriver, HasTheFunctionsThatTheRowPromisesAndNoOthers)
{
    for (const Instrument& instrument : Instruments()) {
        for (const quint8 command : {kDevReadTransformers, kDevWriteTransformers, kDevResetCounters, kDevInfo})
            EXPECT_EQ(ErrorOf(instrument.entry, command) != UnknownCommand(command), instrument.hasDeviceFunctions)
                << instrument.entry << ' ' << int{command};
    }
}

TEST_F(CatalogueTest, LeastRunInterval_IsOfTheBlockInstrumentsAlone)
{
    for (const CatalogueRow& row : kCatalogue) {
        const bool isBlock = QString::fromUtf8(row.entry).startsWith("NANOVIP");
        EXPECT_EQ(FactsOf(row.entry, 0).leastRunInterval, isBlock ? std::optional(1.5) : std::nullopt) << row.entry;
    }
    EXPECT_EQ(FactsOf("FLUKE", 0).leastRunInterval, std::nullopt);
}

TEST_F(CatalogueTest, BusAddresses_AreOfOneFamilyWhoseBasicEntryIsAmongThem)
{
    EXPECT_STREQ(FamilyWithAddresses().name, "ISKRA MI71XX");
    EXPECT_STREQ(FamilyWithAddresses().basicEntry, "ISKRA MI71XX 1Ø2W (1b)");
    EXPECT_TRUE(FactsOf(FamilyWithAddresses().basicEntry, 0).hasBusAddress);
    for (const CatalogueRow& row : kCatalogue)
        EXPECT_EQ(FactsOf(row.entry, 0).hasBusAddress, QString::fromUtf8(row.entry).startsWith("ISKRA")) << row.entry;
    EXPECT_FALSE(FactsOf("ISKRA MI71XX", 0).hasBusAddress) << "the family is no entry";
}

TEST_F(CatalogueTest, LookUpInstrument_PutsTheResultIntoTheBlock)
{
    App().iNetConfIndex = 4;
    LookUpInstrument("ISKRA MI71XX 3Ø4W (4u) Rec L-L");
    ExpectWiring(App().WiringTexts, {N4, V4, C4, P3, W3, R2}, "Rec L-L");
    EXPECT_EQ(App().iMinInterval, 5);
    EXPECT_TRUE(App().bHasDevTrans);
    EXPECT_TRUE(App().bHasCounterReset);
    EXPECT_TRUE(App().bHasDeviceInfo);
}

TEST_F(CatalogueTest, LookUpInstrument_RewritesTheWholeResult)
{
    LookUpInstrument("ISKRA MI71XX 3Ø4W (4u) Rec L-L");
    LookUpInstrument("FLUKE");
    ExpectWiring(App().WiringTexts, {"", "", "", "", "", ""}, "FLUKE");
    EXPECT_EQ(App().iMinInterval, 1);
    EXPECT_FALSE(App().bHasDevTrans);
    EXPECT_FALSE(App().bHasCounterReset);
    EXPECT_FALSE(App().bHasDeviceInfo);
}

TEST_F(CatalogueTest, LookUpInstrument_FollowsTheNetConfigurationOfTheBlock)
{
    App().iNetConfIndex = 1;
    LookUpInstrument("YOKOGAWA 2535 1Ø2W");
    ExpectWiring(App().WiringTexts, k2535InThreePhaseNet, "net 1");
    App().iNetConfIndex = 2;
    LookUpInstrument("YOKOGAWA 2535 1Ø2W");
    ExpectWiring(App().WiringTexts, {N1, V1, V1, P1, W1, R1}, "net 2");
}

} // namespace korvanel::test
