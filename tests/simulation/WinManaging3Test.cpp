// The texts of two machines side by side.
#include "simulation/WinManaging3.h"

#include "core/SettingsStore.h"
#include "core/clsProgSettings.h"
#include "support/MotorDbFixture.h"

#include <QSettings>

namespace korvanel::test {
namespace {

class WinManaging3 : public BlockTest
{
protected:
    WinManaging3()
    {
        QFile::remove(QSettings(QSettings::IniFormat, QSettings::UserScope, kSettingsApplication, kSettingsApplication)
                          .fileName());
        settings = std::make_unique<clsProgSettings>(folder.path());
        App().ProgSettings = settings.get();
        App().iNetConfIndex = 2;
        first.record = KnownMachine();
        second.record = RatedMachine();
        Fill(first.evaluation, 1);
        Fill(second.evaluation, 2);
    }
    /// Results that tell where they come from: multiples of the entry's number.
    static void Fill(EvaluationResults& results, double multiple)
    {
        results.lSets = 10;
        results.sCurrency = QStringLiteral("EUR");
        for (std::size_t i = 0; i < results.tEnergy.size(); ++i) {
            const double value = static_cast<double>(i + 1) * multiple;
            const bool isEnergy = i % 8 < 5;
            results.tEnergy[i] = {value * (isEnergy ? 3600 : 0.1), -value * (isEnergy ? 3600 : 0.1),
                                  value * (isEnergy ? 36000 : 0.01)};
        }
        for (std::size_t i = 0; i < results.tAsm.size(); ++i)
            results.tAsm[i] = {static_cast<double>(i + 1) * multiple, 0.1 * static_cast<double>(i + 1) * multiple, 3,
                               static_cast<qint32>(100 * multiple) + static_cast<qint32>(i), QStringLiteral("gut")};
    }
    static QStringList Lines(const ResultTable& table)
    {
        QStringList lines;
        for (const ResultRow& row : table.rows)
            lines << row.cells.join(u'|');
        return lines;
    }

    std::unique_ptr<clsProgSettings> settings;
    MachineInUse first;
    MachineInUse second;
};

TEST_F(WinManaging3, RatingPlate_HasItsUnits)
{
    EXPECT_EQ(RatedPowerText(first.record), "18,5 kW");
    EXPECT_EQ(RatedSpeedText(first.record), "1462,5 rpm");
    EXPECT_EQ(RatedVoltageText(first.record), "400 V");
    for (const QString& text : {RatedPowerText({}), RatedSpeedText({}), RatedVoltageText({})})
        EXPECT_EQ(text, "-");
}

TEST_F(WinManaging3, Classes_AreCountedWithTheirShares)
{
    EvaluationResults results;
    EXPECT_EQ(GoodShareText(results), "0 %");
    EXPECT_EQ(ClassesText(results), "gut: \t0  (0 %)\nmittel: \t0  (0 %)\nschlecht: \t0  (0 %)");
    results.lSets = 1600;
    results.lRowClassCount = {1, 1, 4, 1594};
    EXPECT_EQ(GoodShareText(results), "0,1 %");
    EXPECT_EQ(ClassesText(results), "gut: \t1  (0,1 %)\nmittel: \t4  (0,2 %)\nschlecht: \t1594  (99,6 %)")
        << "a half goes to the even digit";
}

TEST_F(WinManaging3, Energies_StandSideBySide)
{
    const ResultTable table = ComparedEnergyTable(first, second);
    EXPECT_EQ(table.heads, (QStringList{"Größe", "", "(+)", "(-)", "Gesamt", "(+)", "(-)", "Gesamt"}));
    EXPECT_EQ(Lines(table),
              (QStringList{
                  "||Motor/Generator I   18,5 kW    1462,5 rpm|||Motor/Generator II   7,5 kW    1472 rpm||",
                  "Energie für 1 Messzyklus",
                  "Wel|M/G|1 Wh|-1 Wh|10 Wh|2 Wh|-2 Wh|0,02 kWh",
                  "Wmech|M/G|5 Wh|-5 Wh|0,05 kWh|10 Wh|-10 Wh|0,1 kWh",
                  "eta|M/G|0,6 |-0,6 |0,06 |1,2 |-1,2 |0,12 ",
                  "Wq|L/C|2 varh|-2 varh|0,02 kvarh|-|-|-",
                  "Energiekosten für 1 Messzyklus",
                  "||Kosten|Vergütung|Gesamt|Kosten|Vergütung|Gesamt",
                  "Wel|M/G|0,7 EUR|-0,7 EUR|0,07 EUR|1,4 EUR|-1,4 EUR|0,14 EUR",
                  "Wq|L/C|0,8 EUR|||-||",
                  "Energie für 10 Messzyklen",
                  "Wel|M/G|9 Wh|-9 Wh|0,09 kWh|0,018 kWh|-0,018 kWh|0,18 kWh",
                  "Wmech|M/G|0,013 kWh|-0,013 kWh|0,13 kWh|0,026 kWh|-0,026 kWh|0,26 kWh",
                  "eta|M/G|1,4 |-1,4 |0,14 |2,8 |-2,8 |0,28 ",
                  "Wq|L/C|10 varh|-10 varh|0,1 kvarh|-|-|-",
                  "Energiekosten für 10 Messzyklen",
                  "||Kosten|Vergütung|Gesamt|Kosten|Vergütung|Gesamt",
                  "Wel|M/G|1,5 EUR|-1,5 EUR|0,15 EUR|3 EUR|-3 EUR|0,3 EUR",
                  "Wq|L/C|1,6 EUR|||-||",
              }));
    EXPECT_EQ(table.rows[0].kind, ResultRowKind::Spanned);
    EXPECT_EQ(table.rows[1].kind, ResultRowKind::Heading);
    EXPECT_EQ(table.rows[7].kind, ResultRowKind::Head);
}

TEST_F(WinManaging3, EnergiesOfManyCycles_TellTheShaftOfTheSymmetricLoadAlone)
{
    App().iNetConfIndex = 5;
    const QString all = Lines(ComparedEnergyTable(first, second)).join(u'\n');
    EXPECT_EQ(all.count("Wmech"), 1);
    EXPECT_EQ(all.count("Wel"), 4);
}

TEST_F(WinManaging3, Utilisation_HasBothSharesInTheirColours)
{
    const ResultTable table = ComparedUtilisationTable(first, second);
    EXPECT_EQ(table.heads, (QStringList{"Größe", "", "Bezug", "Motor/Generator I   18,5 kW    1462,5 rpm",
                                        "Motor/Generator II   7,5 kW    1472 rpm"}));
    EXPECT_EQ(Lines(table), (QStringList{
                                "Maximal auftretendes Drehmoment",
                                "M||M kipp|1 Nm:   (10 %)|2 Nm:   (20 %)",
                                "Auslastungswerte im Zeitfenster",
                                "I|rms|I n|2 A:   (20 %)|-",
                                "M|rms|M n|3 Nm:   (30 %)|6 Nm:   (60 %)",
                                "Pmech|rms|Pmech n|0,004 kW:   (40 %)|0,008 kW:   (80 %)",
                                "'Pmech||Pmech n|0,005 kW:   (50 %)|0,01 kW:   (100 %)",
                                "Pth|avg|Pth n|0,006 kW:   (60 %)|0,012 kW:   (120 %)",
                                "Auslastungswerte über die gesamte Messdauer",
                                "I|rms|I n|7 A:   (70 %)|-",
                                "M|rms|M n|8 Nm:   (80 %)|16 Nm:   (160 %)",
                                "Pmech|rms|Pmech n|0,009 kW:   (90 %)|0,018 kW:   (180 %)",
                                "'Pmech||Pmech n|0,01 kW:   (100 %)|0,02 kW:   (200 %)",
                                "Pth|avg|Pth n|0,011 kW:   (110 %)|0,022 kW:   (220 %)",
                            }));
    EXPECT_EQ(table.rows[1].colours, (std::vector<qint32>{0, 0, 0, 100, 200}));
    EXPECT_EQ(table.rows[3].colours, (std::vector<qint32>{0, 0, 0, 101, 0}));
    EXPECT_EQ(table.rows[13].colours, (std::vector<qint32>{0, 0, 0, 110, 210}));
}

TEST_F(WinManaging3, WhatIsNotKnown_IsADash)
{
    second.record.n.reset();
    second.record.Pmech.reset();
    for (UtilisationEntry& entry : second.evaluation.tAsm)
        entry.vRatio.reset();
    const ResultTable table = ComparedUtilisationTable(first, second);
    EXPECT_EQ(table.heads.last(), "Motor/Generator II   - kW    - rpm");
    EXPECT_EQ(table.rows[1].cells.last(), "2 Nm: -");
    EXPECT_EQ(table.rows[6].cells, (QStringList{"'Pmech", "", "Pmech n", "0,005 kW:   (50 %)", "-"}));
    first.record.n.reset();
    EXPECT_EQ(Lines(ComparedUtilisationTable(first, second)).filter("'Pmech").size(), 0);
}

TEST_F(WinManaging3, AMachineWithoutSets_HasDashes)
{
    second.evaluation = {};
    EXPECT_EQ(Lines(ComparedEnergyTable(first, second))[2], "Wel|M/G|1 Wh|-1 Wh|10 Wh|-|-|-");
    EXPECT_EQ(Lines(ComparedUtilisationTable(first, second))[1], "M||M kipp|1 Nm:   (10 %)|-");
    first.evaluation = {};
    EXPECT_TRUE(ComparedEnergyTable(first, second).rows.empty());
    EXPECT_TRUE(ComparedUtilisationTable(first, second).rows.empty());
}

} // namespace
} // namespace korvanel::test
