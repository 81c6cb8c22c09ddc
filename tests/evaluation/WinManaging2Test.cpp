// The result tables as texts, from results worked out by hand.
#include "evaluation/WinManaging2.h"

#include "core/SettingsStore.h"
#include "core/clsProgSettings.h"
#include "support/Fixture.h"

#include <QSettings>

namespace korvanel::test {
namespace {

class WinManaging2Test : public BlockTest
{
protected:
    WinManaging2Test()
    {
        QFile::remove(QSettings(QSettings::IniFormat, QSettings::UserScope, kSettingsApplication, kSettingsApplication)
                          .fileName());
        settings = std::make_unique<clsProgSettings>(folder.path());
        App().ProgSettings = settings.get();
        App().iNetConfIndex = 2;
        App().MachineI.record.n = 1460;
        App().MachineI.evaluation.lSets = 40;
        App().MachineI.evaluation.dWindowSpan = 9;
        App().MachineI.evaluation.sCurrency = QStringLiteral("€");
    }

    /// Rows of a table as lines, with bars between the cells; a heading in brackets, a head in braces.
    static QStringList Lines(const ResultTable& table)
    {
        QStringList lines;
        for (const ResultRow& row : table.rows) {
            const QString text = row.cells.join(u'|');
            lines << (row.kind == ResultRowKind::Heading ? u'[' + text + u']'
                      : row.kind == ResultRowKind::Head  ? u'{' + text + u'}'
                                                         : text);
        }
        return lines;
    }
    static QStringList Names(const ResultTable& table)
    {
        QStringList names;
        for (const ResultRow& row : table.rows)
            names << row.cells.first(row.kind == ResultRowKind::Heading ? 1 : 2).join(u'|');
        return names;
    }
    EvaluationResults& results = App().MachineI.evaluation;
    std::unique_ptr<clsProgSettings> settings;
};

TEST_F(WinManaging2Test, Heads_AreToldToTheLetter)
{
    EXPECT_EQ(ExtremTable(App().MachineI).heads, (QStringList{"Größe", "", "Minimum", "Satz", "Maximum", "Satz"}));
    EXPECT_EQ(EnergyTable(App().MachineI).heads, (QStringList{"Größe", "", "(+)", "(-)", "Gesamt"}));
    EXPECT_EQ(UtilisationTable(App().MachineI).heads,
              (QStringList{"Größe", "", "Maximum", "Realtiv", "Satz", "Eignung (S1-Betrieb)"}));
}

TEST_F(WinManaging2Test, WithoutSets_OnlyTheHeadsStand)
{
    results.lSets = 0;
    for (const ResultTable& table :
         {ExtremTable(App().MachineI), EnergyTable(App().MachineI), UtilisationTable(App().MachineI)}) {
        EXPECT_TRUE(table.rows.empty());
        EXPECT_FALSE(table.heads.isEmpty());
    }
}

TEST_F(WinManaging2Test, Extremes_HaveTheirRowsInOrder)
{
    const QStringList withMachine{"Satz mit dem global kleinsten/größten Zahlenwert",
                                  "U|",
                                  "I|",
                                  "f|",
                                  "Pel|",
                                  "S|",
                                  "Q|",
                                  "cosphi|",
                                  "Phi|",
                                  "n|",
                                  "M|",
                                  "Pmech|",
                                  "eta|",
                                  "Quadratischer Mittelwert (rms) im Zeitfenster",
                                  "U|rms",
                                  "I|rms",
                                  "Q|rms",
                                  "cosphi|rms",
                                  "Phi|rms",
                                  "n|rms",
                                  "M|rms",
                                  "Pmech|rms",
                                  "eta|rms",
                                  "Arithmetischer Mittelwert (avg) im Zeitfenster",
                                  "U|avg",
                                  "I|avg",
                                  "f|avg",
                                  "Pel|avg",
                                  "S|avg",
                                  "Q|avg",
                                  "cosphi|avg",
                                  "Phi|avg",
                                  "n|avg",
                                  "M|avg",
                                  "Pmech|avg",
                                  "eta|avg"};
    for (const int netConf : {2, 5}) {
        App().iNetConfIndex = static_cast<qint16>(netConf);
        EXPECT_EQ(Names(ExtremTable(App().MachineI)), withMachine) << netConf;
    }
}

TEST_F(WinManaging2Test, Extremes_LeaveTheShaftOutWithoutAMachine)
{
    for (const int netConf : {0, 1, 3, 4, 6}) {
        App().iNetConfIndex = static_cast<qint16>(netConf);
        const QStringList names = Names(ExtremTable(App().MachineI));
        EXPECT_EQ(names.size(), 3 + 8 + 5 + 8) << netConf;
        for (const char* name : {"n|", "M|avg", "Pmech|rms", "eta|"})
            EXPECT_FALSE(names.contains(QLatin1String(name))) << netConf << ' ' << name;
    }
}

TEST_F(WinManaging2Test, Extremes_ShowValueAndSet)
{
    results.tExtremMin[kU] = {398.4567, 7};
    results.tExtremMax[kU] = {12340, 31};
    results.tExtremMin[kF] = {49.996, 2};
    results.tExtremMax[kF] = {50.004, 3};
    results.tExtremMin[kCosPhi] = {0.8651, 4};
    results.tExtremMax[kCosPhi] = {1, 5};
    results.tExtremMin[kPmech] = {-20000, 6};
    results.tExtremMax[kPmech] = {9999.9996, 8};
    results.tExtremMin[kPhi] = {-36.869, 9};
    results.tExtremMax[kN] = {1459.5, 10};
    const QStringList lines = Lines(ExtremTable(App().MachineI));
    EXPECT_EQ(lines[1], "U||398,457 V|7|12,34 kV|31");
    EXPECT_EQ(lines[3], "f||50 Hz|2|50 Hz|3");
    EXPECT_EQ(lines[7], "cosphi||0,87 |4|1 |5") << "a quantity without a unit ends in its blank";
    EXPECT_EQ(lines[8], "Phi||-36,87 °|9|0 °|0");
    EXPECT_EQ(lines[9], "n||0 rpm|0|1460 rpm|10");
    EXPECT_EQ(lines[11], "Pmech||-20 kW|6|10000 W|8") << "the prefix goes by the value, not by what it is rounded to";
}

struct Prefixed
{
    double value;
    const char* text;
};

TEST_F(WinManaging2Test, Extremes_ChangeTheirPrefixAtTheLimits)
{
    const Prefixed cases[] = {
        {0, "0 A"},       {0.0005, "0,001 A"},     {0.001, "1 mA"},      {0.0099, "9,9 mA"},       {0.01, "0,01 A"},
        {9999, "9999 A"}, {10000, "10 kA"},        {-10000, "-10 kA"},   {9999999, "9999,999 kA"}, {1e7, "10 MA"},
        {1e10, "10 GA"},  {9999000000, "9999 MA"}, {-0.0025, "-2,5 mA"},
    };
    for (const Prefixed& c : cases) {
        results.tExtremMin[kI].dValue = c.value;
        EXPECT_EQ(ExtremTable(App().MachineI).rows[2].cells[2], c.text) << c.value;
    }
}

TEST_F(WinManaging2Test, NegativeAmounts_AreRoundedHalfUp)
{
    results.tExtremMin[kM].dValue = -2.505;
    results.tExtremMin[kN].dValue = -2.5;
    EXPECT_EQ(ExtremTable(App().MachineI).rows[10].cells[2], "-2,5 Nm");
    EXPECT_EQ(ExtremTable(App().MachineI).rows[9].cells[2], "-2 rpm");
}

TEST_F(WinManaging2Test, WindowSets_GoFromFirstToLast)
{
    results.tRmsMin[kU] = {230, 10};
    results.tRmsMax[kU] = {231, 45};
    results.dWindowSpan = 33;
    const QStringList lines = Lines(ExtremTable(App().MachineI));
    EXPECT_EQ(lines[14], "U|rms|230 V|1 - 10|231 V|12 - 45");
}

TEST_F(WinManaging2Test, WindowSets_BeginAtOneIfTheWindowReachesBeyondTheBeginning)
{
    results.dWindowSpan = 900;
    results.tAvgMin[kU] = {230, 17};
    EXPECT_EQ(Lines(ExtremTable(App().MachineI))[24], "U|avg|230 V|1 - 17|0 V|1 - 0");
}

TEST_F(WinManaging2Test, WindowSets_FollowTheResultsAndNotTheOptions)
{
    results.tRmsMin[kU] = {230, 40};
    settings->SetTWindowSize(5);
    App().dTWindow = 5;
    EXPECT_EQ(Lines(ExtremTable(App().MachineI))[14].section(u'|', 3, 3), "31 - 40");
}

TEST_F(WinManaging2Test, Energies_AreShownBySign)
{
    results.tEnergy[kEnergyActive] = {44445600, -34200, 44411400};
    results.tEnergy[kEnergyReactive] = {36000, -36000, 0};
    results.tEnergy[kEnergyCurrent] = {72000000, 1800, 72001800};
    results.tEnergy[kEnergyApparent] = {36003.6, 3600, 39603.6};
    results.tEnergy[kEnergyMechanical] = {40001040, -40500, 39960540};
    results.tEnergy[kEnergyEfficiency] = {0.9, 0.8444, 0};
    const QStringList lines = Lines(EnergyTable(App().MachineI));
    EXPECT_EQ(lines[0], "[Energie für 1 Messzyklus]");
    EXPECT_EQ(lines[1], "Wel|M/G|12,346 kWh|-9,5 Wh|12,337 kWh");
    EXPECT_EQ(lines[2], "Wq|L/C|10 varh|-10 varh|0 varh") << "exactly 10 stays without prefix";
    EXPECT_EQ(lines[3], "I|M/G|20000 Ah|0,5 Ah|20000,5 Ah") << "the current has no prefix";
    EXPECT_EQ(lines[4], "Ws|M/G|0,01 kVAh|1 VAh|0,011 kVAh");
    EXPECT_EQ(lines[5], "Wmech|M/G|11,111 kWh|-0,011 kWh|11,1 kWh");
    EXPECT_EQ(lines[6], "eta|M/G|0,9 |0,84 |0 ");
}

TEST_F(WinManaging2Test, Costs_HaveAHeadAndTheReactiveRowOneAmount)
{
    results.tEnergy[kCostsActive] = {0.455, 0.999, -0.375};
    results.tEnergy[kCostsReactive] = {1.005, 77, 78};
    results.sCurrency = QStringLiteral("SFr.");
    const QStringList lines = Lines(EnergyTable(App().MachineI));
    EXPECT_EQ(lines[7], "[Energiekosten für 1 Messzyklus]");
    EXPECT_EQ(lines[8], "{||Kosten|Vergütung|Gesamt}");
    EXPECT_EQ(lines[9], "Wel|M/G|0,46 SFr.|1 SFr.|-0,37 SFr.");
    EXPECT_EQ(lines[10].section(u'|', 0, 1), "Wq|L/C");
    EXPECT_EQ(lines[10].section(u'|', 3), "|") << "what is capacitive costs nothing";
}

TEST_F(WinManaging2Test, Costs_ShowTheCurrencyOfTheResultsAndTheHeadingsTheCyclesOfTheOptions)
{
    settings->SetUsedCurrency(QStringLiteral("$"));
    settings->SetCycles(250);
    const QStringList lines = Lines(EnergyTable(App().MachineI));
    EXPECT_EQ(lines[9], "Wel|M/G|0 €|0 €|0 €");
    EXPECT_TRUE(lines.contains("[Energie für 250 Messzyklen]"));
    EXPECT_TRUE(lines.contains("[Energiekosten für 250 Messzyklen]"));
}

TEST_F(WinManaging2Test, Cycles_ShowTheirOwnEntries)
{
    results.tEnergy[kEnergyOfCycles + kEnergyActive] = {360000, 0, 360000};
    results.tEnergy[kEnergyOfCycles + kEnergyMechanical] = {324000, 0, 324000};
    results.tEnergy[kEnergyOfCycles + kEnergyEfficiency] = {0.9, 0, 0.9};
    results.tEnergy[kEnergyOfCycles + kCostsActive] = {12, 2, 10};
    results.tEnergy[kEnergyOfCycles + kCostsReactive] = {3, 0, 0};
    const QStringList lines = Lines(EnergyTable(App().MachineI)).sliced(11);
    EXPECT_EQ(lines,
              (QStringList{"[Energie für 10 Messzyklen]", "Wel|M/G|0,1 kWh|0 Wh|0,1 kWh", "Wq|L/C|0 varh|0 varh|0 varh",
                           "I|M/G|0 Ah|0 Ah|0 Ah", "Ws|M/G|0 VAh|0 VAh|0 VAh", "Wmech|M/G|0,09 kWh|0 Wh|0,09 kWh",
                           "eta|M/G|0,9 |0 |0,9 ", "[Energiekosten für 10 Messzyklen]", "{||Kosten|Vergütung|Gesamt}",
                           "Wel|M/G|12 €|2 €|10 €", "Wq|L/C|3 €||"}));
}

TEST_F(WinManaging2Test, Cycles_TellOfTheShaftInTheSymmetricConfigurationAlone)
{
    struct Case
    {
        int netConf;
        int shaftRows;
    };
    for (const Case c : {Case{2, 2}, Case{5, 1}, Case{0, 0}, Case{1, 0}, Case{3, 0}, Case{4, 0}, Case{6, 0}}) {
        App().iNetConfIndex = static_cast<qint16>(c.netConf);
        EXPECT_EQ(Names(EnergyTable(App().MachineI)).count("Wmech|M/G"), c.shaftRows) << c.netConf;
        EXPECT_EQ(Names(EnergyTable(App().MachineI)).count("eta|M/G"), c.shaftRows) << c.netConf;
    }
}

TEST_F(WinManaging2Test, Utilisation_ShowsValueShareSetsAndVerdict)
{
    results.tAsm[kMostTorque] = {95.004, 0.2537, 17, 49152, QStringLiteral("gut")};
    results.tAsm[kWindowCurrent] = {26.7728, 0.815, 17, 49152, QStringLiteral("gut")};
    results.tAsm[kWindowPower] = {18500, 1, 9, 40443, QStringLiteral("mittel")};
    results.tAsm[kWindowPowerOfTorque] = {20000.4, 1.08111, 10, 192, QStringLiteral("schlecht")};
    results.tAsm[kWindowLoss] = {2000, 1.0325, 40, 192, QStringLiteral("schlecht")};
    results.tAsm[kWholeTorque] = {60, 0.4967, 40, 49152, QStringLiteral("gut")};
    const ResultTable table = UtilisationTable(App().MachineI);
    const QStringList lines = Lines(table);
    ASSERT_EQ(lines.size(), 14);
    EXPECT_EQ(lines[0], "[Maximal auftretendes Drehmoment]");
    EXPECT_EQ(lines[1], "M||95 Nm|25,37 % (M kipp)|17|gut");
    EXPECT_EQ(lines[2], "[Auslastungswerte im Zeitfenster]");
    EXPECT_EQ(lines[3], "I|rms|26,773 A|81,5 % (I n)|8 - 17|gut");
    EXPECT_EQ(lines[5], "Pmech|rms|18,5 kW|100 % (Pmech n)|1 - 9|mittel");
    EXPECT_EQ(lines[6], "'Pmech||20 kW|108,11 % (Pmech n)|1 - 10|schlecht");
    EXPECT_EQ(lines[7], "Pth|avg|2 kW|103,25 % (Pth n)|31 - 40|schlecht");
    EXPECT_EQ(lines[8], "[Auslastungswerte über die gesamte Messdauer]");
    EXPECT_EQ(lines[10], "M|rms|60 Nm|49,67 % (M n)|1 - 40|gut");
    EXPECT_EQ(table.rows[1].lastColour, 49152);
    EXPECT_EQ(table.rows[5].lastColour, 40443);
    EXPECT_EQ(table.rows[7].lastColour, 192);
    EXPECT_EQ(table.rows[0].lastColour, 0);
}

TEST_F(WinManaging2Test, Utilisation_ShowsDashesWhereNothingIsRated)
{
    for (UtilisationEntry& entry : results.tAsm)
        entry = {10, std::nullopt, 40, 0, QStringLiteral("-")};
    for (const ResultRow& row : UtilisationTable(App().MachineI).rows)
        if (row.kind == ResultRowKind::Values) {
            EXPECT_EQ(row.cells[3], "-");
            EXPECT_EQ(row.cells[5], "-");
            EXPECT_FALSE(row.cells[2].isEmpty());
        }
}

TEST_F(WinManaging2Test, Utilisation_LeavesThePowerOfTheTorqueOutWithoutARatedSpeed)
{
    EXPECT_EQ(Names(UtilisationTable(App().MachineI)).count("'Pmech|"), 2);
    App().MachineI.record.n.reset();
    EXPECT_EQ(Names(UtilisationTable(App().MachineI)).count("'Pmech|"), 0);
    EXPECT_EQ(Names(UtilisationTable(App().MachineI)).count("Pmech|rms"), 2);
}

TEST_F(WinManaging2Test, Utilisation_HasNoRowsWithoutAMachine)
{
    for (const int netConf : {0, 1, 3, 4, 6}) {
        App().iNetConfIndex = static_cast<qint16>(netConf);
        EXPECT_TRUE(UtilisationTable(App().MachineI).rows.empty()) << netConf;
    }
}

} // namespace
} // namespace korvanel::test
