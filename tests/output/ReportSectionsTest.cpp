// Which sections a report has, in which order, by what is switched on; read from the titles on its pages.
#include "core/texts/PrintExportTexts.h"
#include "output/ReportReading.h"

#include <set>

namespace korvanel::test {
namespace {

const QString kOverviewTitle = "Projektübersicht";
const QString kMachineTitle = "Maschinendaten";
const QString kBothOverviewTitle = "Übersicht Motor/Generator I und II";
const QString kExtremesTitle = "Extremwerte und Werte im Zeitfenster";
const QString kEnergyTitle = "Energie und Kosten";
const QString kUtilisationTitle = "ASM - Auslastung";
const QString kBothUtilisationTitle = "Auslastung Motor/Generator I und II";
const QString kSetsTitle = "Messtabelle";
const QString kMachineSetsTitle = "Messtabelle (ASM-Werte)";
const QString kFirstSetsTitle = "Messtabelle (Motor/Generator I)";
const QString kSecondSetsTitle = "Messtabelle (Motor/Generator II)";
const QString kRegistersTitle = "Messtabelle (Energien)";
const QString kPhase1Title = "Messtabelle (Phase 1)";
const QString kPhase2Title = "Messtabelle (Phase 2)";
const QString kPhase3Title = "Messtabelle (Phase 3)";
const QString kDiagramsTitle = "Diagramme";
const QStringList kTitles{kOverviewTitle,    kMachineTitle,     kBothOverviewTitle,    kExtremesTitle,
                          kEnergyTitle,      kUtilisationTitle, kBothUtilisationTitle, kSetsTitle,
                          kMachineSetsTitle, kFirstSetsTitle,   kSecondSetsTitle,      kRegistersTitle,
                          kPhase1Title,      kPhase2Title,      kPhase3Title,          kDiagramsTitle};

class ReportSectionsTest : public ReportTest
{
protected:
    void Open(int netConf, bool hasSecondMachine = false, int sets = 4)
    {
        if (!App().sProjectPath.isEmpty())
            QFile::remove(App().sProjectPath);
        App().bASMSim = false;
        OpenReportProject(netConf, sets);
        if (hasSecondMachine)
            TakeSecondMachine();
    }
    /// The titles with these sections and no others, or all but these.
    QStringList TitlesWith(std::initializer_list<int> sections)
    {
        App().PrintIt.fill(0);
        for (const int section : sections)
            App().PrintIt.at(static_cast<std::size_t>(section)) = 1;
        return Titles();
    }
    QStringList TitlesWithout(std::initializer_list<int> sections)
    {
        App().PrintIt.fill(1);
        for (const int section : sections)
            App().PrintIt.at(static_cast<std::size_t>(section)) = 0;
        return Titles();
    }
    QStringList Titles() { return TitlesOfReport(PrintedReport(), kTitles); }
};

TEST_F(ReportSectionsTest, SectionsStandInTheOrderOfTheirNetConfiguration)
{
    const struct
    {
        int netConf;
        bool hasSecondMachine;
        QStringList titles;
    } cases[] = {
        {0, false, {kOverviewTitle, kExtremesTitle, kEnergyTitle, kSetsTitle, kDiagramsTitle}},
        {1, false, {kOverviewTitle, kExtremesTitle, kEnergyTitle, kSetsTitle, kDiagramsTitle}},
        {2,
         false,
         {kOverviewTitle, kExtremesTitle, kEnergyTitle, kUtilisationTitle, kSetsTitle, kMachineSetsTitle,
          kDiagramsTitle}},
        {2,
         true,
         {kBothOverviewTitle, kExtremesTitle, kEnergyTitle, kBothUtilisationTitle, kSetsTitle, kFirstSetsTitle,
          kSecondSetsTitle, kDiagramsTitle}},
        {3, false, {kOverviewTitle, kExtremesTitle, kEnergyTitle, kSetsTitle, kRegistersTitle, kDiagramsTitle}},
        {4,
         false,
         {kOverviewTitle, kExtremesTitle, kEnergyTitle, kSetsTitle, kRegistersTitle, kPhase1Title, kPhase2Title,
          kPhase3Title, kDiagramsTitle}},
        {5,
         false,
         {kOverviewTitle, kExtremesTitle, kEnergyTitle, kUtilisationTitle, kSetsTitle, kMachineSetsTitle,
          kRegistersTitle, kPhase1Title, kPhase2Title, kPhase3Title, kDiagramsTitle}},
        {5,
         true,
         {kBothOverviewTitle, kExtremesTitle, kEnergyTitle, kBothUtilisationTitle, kSetsTitle, kFirstSetsTitle,
          kSecondSetsTitle, kRegistersTitle, kPhase1Title, kPhase2Title, kPhase3Title, kDiagramsTitle}},
    };
    for (const auto& [netConf, hasSecondMachine, titles] : cases) {
        Open(netConf, hasSecondMachine);
        EXPECT_EQ(Titles(), titles) << netConf << (hasSecondMachine ? " with two machines" : "");
    }
}

TEST_F(ReportSectionsTest, SectionThatIsOff_AppearsNowhere)
{
    const std::pair<int, QString> sections[] = {
        {kReportOverview, kOverviewTitle},
        {kReportExtremes, kExtremesTitle},
        {kReportEnergy, kEnergyTitle},
        {kReportUtilisation, kUtilisationTitle},
        {kReportSets, kSetsTitle},
        {kReportMachineSets, kMachineSetsTitle},
        {kReportRegisters, kRegistersTitle},
        {kReportPhase1, kPhase1Title},
        {kReportPhase1 + 1, kPhase2Title},
        {kReportPhase3, kPhase3Title},
        {kReportMachine, "Berechnete Größen"},
        {kReportAllCurves, "Gesamtdiagramm"},
        {kReportOneCurve, "Einzeldiagramm"},
    };
    Open(5);
    const auto rowsOf = [this] {
        std::set<QString> rows;
        for (const PdfPage& page : PrintedReport().pages)
            for (const WordRow& row : RowsOf(page, kEndOfHead, kBeginOfFoot))
                rows.insert(TextOfRow(row).remove(" U [V]")); // of an axis, beside the name of a diagram
        return rows;
    };
    const std::set<QString> all = rowsOf();
    for (const auto& [section, title] : sections) {
        ASSERT_TRUE(all.contains(title)) << title.toStdString();
        App().PrintIt.at(static_cast<std::size_t>(section)) = 0;
        const std::set<QString> rows = rowsOf();
        EXPECT_FALSE(rows.contains(title)) << title.toStdString();
        for (const auto& [other, otherTitle] : sections)
            EXPECT_EQ(rows.contains(otherTitle), other != section)
                << otherTitle.toStdString() << " without " << title.toStdString();
        App().PrintIt.at(static_cast<std::size_t>(section)) = 1;
    }
}

TEST_F(ReportSectionsTest, SectionsOfBothMachines_WithoutASecondOne_LeaveThoseOfTheFirstAlone)
{
    Open(2);
    const QStringList plain{kOverviewTitle, kExtremesTitle,    kEnergyTitle,  kUtilisationTitle,
                            kSetsTitle,     kMachineSetsTitle, kDiagramsTitle};
    EXPECT_EQ(Titles(), plain);
    const QStringList without = TitlesWithout({kReportBothOverview, kReportBothUtilisation, kReportSecondMachineSets});
    EXPECT_EQ(without, plain);
    EXPECT_EQ(TitlesWith({kReportBothOverview, kReportBothUtilisation, kReportSecondMachineSets, kReportExtremes}),
              QStringList{kExtremesTitle})
        << "alone they give nothing";
}

TEST_F(ReportSectionsTest, SectionsOfBothMachines_TakeThePlaceOfThoseOfTheFirst)
{
    Open(2, true);
    EXPECT_EQ(TitlesWith({kReportBothOverview, kReportOverview, kReportMachine}), QStringList{kBothOverviewTitle});
    EXPECT_EQ(TitlesWith({kReportBothOverview}), QStringList{kBothOverviewTitle});
    EXPECT_EQ(TitlesWith({kReportOverview, kReportMachine}), QStringList{kOverviewTitle});
    EXPECT_EQ(TitlesWith({kReportMachine}), QStringList{kMachineTitle});
    EXPECT_EQ(TitlesWith({kReportBothUtilisation, kReportUtilisation}), QStringList{kBothUtilisationTitle});
    EXPECT_EQ(TitlesWith({kReportUtilisation}), QStringList{kUtilisationTitle});
    EXPECT_EQ(TitlesWith({kReportMachineSets, kReportSecondMachineSets}),
              (QStringList{kFirstSetsTitle, kSecondSetsTitle}));
    EXPECT_EQ(TitlesWith({kReportMachineSets}), QStringList{kMachineSetsTitle});
    EXPECT_EQ(TitlesWith({kReportSecondMachineSets, kReportEnergy}), QStringList{kEnergyTitle});
}

TEST_F(ReportSectionsTest, SecondMachine_WhereThereIsNoFirst_ChangesNothing)
{
    Open(1);
    App().bASMSim = true;
    EXPECT_EQ(Titles(), (QStringList{kOverviewTitle, kExtremesTitle, kEnergyTitle, kSetsTitle, kDiagramsTitle}));
}

TEST_F(ReportSectionsTest, ProjectAndMachine_ShareAPage)
{
    Open(2);
    const PdfDocument report = PrintedReport();
    const QString text = report.pages.at(0).text;
    EXPECT_LT(text.indexOf("Allgemeine Daten"), text.indexOf("Messung"));
    EXPECT_LT(text.indexOf("Messung"), text.indexOf("Maschinendaten"));
    EXPECT_LT(text.indexOf("Maschinendaten"), text.indexOf("Berechnete Größen"));
    EXPECT_GE(text.indexOf("Allgemeine Daten"), 0);
    EXPECT_EQ(TitleOfPage(report.pages.at(1)), kExtremesTitle);
}

TEST_F(ReportSectionsTest, RecordingWithOneSet_PrintsNoDiagrams)
{
    Open(1, false, 1);
    EXPECT_EQ(Titles(), (QStringList{kOverviewTitle, kExtremesTitle, kEnergyTitle, kSetsTitle}));
    Open(1, false, 2);
    EXPECT_EQ(Titles().back(), kDiagramsTitle);
}

TEST_F(ReportSectionsTest, RecordingWithoutSets_HasNoTablesAndNoDiagrams)
{
    Open(1, false, 0);
    EXPECT_EQ(Titles(), (QStringList{kOverviewTitle, kExtremesTitle, kEnergyTitle}));
}

TEST_F(ReportSectionsTest, OneDiagramAlone_StandsOnAPageOfItsOwn)
{
    Open(0);
    EXPECT_EQ(TitlesWith({kReportOneCurve}), QStringList{kDiagramsTitle});
    EXPECT_EQ(TitlesWith({kReportAllCurves}), QStringList{kDiagramsTitle});
    EXPECT_EQ(TitlesWith({kReportAllCurves, kReportOneCurve}), QStringList{kDiagramsTitle});
    EXPECT_EQ(PrintedReport().pages.size(), 1U) << "both share a page";
}

TEST_F(ReportSectionsTest, VoltageMeasurement_PrintsNothing)
{
    Open(6);
    PdfOutput output(PathOf("none.pdf"));
    EXPECT_FALSE(PrintReport(output));
    EXPECT_EQ(shell.BoxTexts(), QStringList{texts::reportNothing});
    EXPECT_FALSE(QFile::exists(PathOf("none.pdf")));
    EXPECT_EQ(ReportOfProject().PageCount(), 0);
}

TEST_F(ReportSectionsTest, TableWithoutColumns_IsLeftOut)
{
    Open(5);
    for (const int quantity : {kU1, kI1, kP1, kQ1, kS1, kPhi1, kCosPhi1})
        App().PrChecks.at(static_cast<std::size_t>(quantity + 1)) = 0;
    const QStringList titles = Titles();
    EXPECT_TRUE(titles.contains(kPhase1Title));
    EXPECT_FALSE(titles.contains(kPhase2Title));
    EXPECT_TRUE(titles.contains(kPhase3Title));
    App().PrChecks.fill(0);
    EXPECT_EQ(Titles(), (QStringList{kOverviewTitle, kExtremesTitle, kEnergyTitle, kUtilisationTitle, kDiagramsTitle}));
}

} // namespace
} // namespace korvanel::test
