// The tables of a report as they stand on its pages: every cell, its place, and which sets and columns there are.
#include "core/clsSymbols.h"
#include "data/RowQuantities.h"
#include "data/SetReader.h"
#include "evaluation/WinManaging2.h"
#include "output/ReportReading.h"
#include "simulation/WinManaging3.h"

namespace korvanel::test {
namespace {

const QString kSets = "Messtabelle";
const QString kCorrectedSign = "*";

class ReportTables : public ReportTest
{
protected:
    void OnlySection(int section)
    {
        App().PrintIt.fill(0);
        App().PrintIt.at(static_cast<std::size_t>(section)) = 1;
    }
    static std::vector<WordRow> BodyRows(const PdfPage& page) { return RowsOf(page, kEndOfTitle, kBeginOfFoot); }

    /// The sets of a source as the file has them.
    static std::map<int, tValueRow> StoredSets(SetSource source)
    {
        std::map<int, tValueRow> sets;
        const ProjectDbScope scope;
        SetReader reader(ProjectDb(), App().iNetConfIndex, SetRange::All, source);
        while (reader.Next())
            sets[reader.Set()] = reader.Row();
        return sets;
    }
    /// What a page of sets has to show, by its heads: the columns that stand there, from the next one of the table on.
    static std::vector<int> ColumnsOfPage(const WordRow& heads, const std::vector<int>& columns, std::size_t& next)
    {
        const QString shown = TextOfRow(heads);
        QString expected = "Satz " + ColumnHeading(kColumnTime);
        std::vector<int> found;
        while (expected.size() < shown.size() && next < columns.size()) {
            expected += ' ' + ColumnHeading(columns[next]);
            found.push_back(columns[next++]);
        }
        EXPECT_EQ(shown.simplified(), expected.simplified());
        return found;
    }
    /// What the sets of a source don't hold. Of a second machine they have what its model tells.
    static bool IsUnknown(int column, SetSource source)
    {
        constexpr int kSimulated[] = {kU, kF, kP, kN, kM, kPmech, kEta, kWp, kWpPlus, kWpMinus};
        const std::vector<int> measured = StoredQuantities(App().iNetConfIndex);
        return column >= 0 && !(source == SetSource::Simulated ? std::ranges::count(kSimulated, column)
                                                               : std::ranges::count(measured, column));
    }
    static QString ExpectedRow(int set, const tValueRow& row, const std::vector<int>& columns, SetSource source)
    {
        QStringList cells{(row.bEdit != 0 ? kCorrectedSign : QString()) + QString::number(set),
                          SetText(row, {}, kColumnTime)};
        for (const int column : columns)
            cells << (IsUnknown(column, source) ? QString("-") : SetText(row, {}, column));
        return cells.join(' ');
    }
    /// The right edges of the cells of a page are those of its heads.
    static void ExpectAligned(const std::vector<WordRow>& rows)
    {
        constexpr double kTolerance = 0.3;
        const WordRow& first = rows.at(1);
        for (std::size_t i = 1; i < rows.size(); ++i) {
            ASSERT_EQ(rows[i].size(), first.size());
            for (std::size_t cell = 0; cell < first.size(); ++cell)
                EXPECT_NEAR(rows[i][cell].box.right(), first[cell].box.right(), kTolerance)
                    << rows[i][cell].text.toStdString();
        }
        for (const PdfWord& cell : first)
            EXPECT_TRUE(std::ranges::any_of(
                rows[0],
                [&](const PdfWord& head) { return std::abs(head.box.right() - cell.box.right()) < kTolerance; }))
                << "no head over " << cell.text.toStdString();
    }
    /// A table of sets is complete: each page has the next columns, and when all are there the next sets.
    static void ExpectSets(const PdfDocument& report, const QString& title, const std::vector<int>& columns, int first,
                           int last, SetSource source = SetSource::Measured)
    {
        SCOPED_TRACE(title.toStdString());
        const std::map<int, tValueRow> stored = StoredSets(source);
        int begin = first;
        int end = first; // behind the sets of the page
        std::size_t next = 0;
        for (const PdfPage* page : PagesWithTitle(report, title)) {
            const std::vector<WordRow> rows = BodyRows(*page);
            ASSERT_GT(rows.size(), 1U);
            const std::vector<int> shown = ColumnsOfPage(rows[0], columns, next);
            ASSERT_FALSE(shown.empty());
            ExpectAligned(rows);
            end = begin;
            for (std::size_t row = 1; row < rows.size(); ++row, ++end)
                ASSERT_EQ(TextOfRow(rows[row]), ExpectedRow(end, stored.at(end), shown, source));
            if (next == columns.size()) {
                next = 0;
                begin = end;
            }
        }
        EXPECT_EQ(next, 0U) << "columns are missing";
        EXPECT_EQ(end, last + 1);
    }
    /// Each row of a result table stands on the pages, in order.
    static void ExpectTable(const PdfDocument& report, const ResultTable& table)
    {
        std::vector<QString> shown;
        for (const PdfPage& page : report.pages)
            for (const WordRow& row : RowsOf(page, kEndOfHead, kBeginOfFoot))
                shown.push_back(TextOfRow(row, "").remove(' ').remove(QChar(0xA0)));
        auto from = shown.begin();
        const auto expectNext = [&](const QStringList& cells) {
            const QString wanted = cells.join("").remove(' ').remove(QChar(0xA0));
            const auto found = std::find(from, shown.end(), wanted);
            EXPECT_TRUE(found != shown.end()) << cells.join(" | ").toStdString();
            if (found != shown.end())
                from = found + 1;
        };
        ASSERT_GT(table.rows.size(), 3U);
        expectNext(table.heads);
        for (const ResultRow& row : table.rows)
            expectNext(row.cells);
    }
    QStringList FirstCells(const PdfDocument& report)
    {
        QStringList sets;
        for (const PdfPage* page : PagesWithTitle(report, kSets))
            for (const WordRow& row : BodyRows(*page))
                if (row[0].text != "Satz")
                    sets << QString(row[0].text).remove(kCorrectedSign);
        return sets;
    }
};

TEST_F(ReportTables, EverySetOfEveryTable_IsThatOfTheFile)
{
    const struct
    {
        int netConf;
        int sets;
        std::vector<std::pair<QString, int>> tables;
    } cases[] = {
        {0, 70, {{kSets, kReportSets}}},
        {1, 61, {{kSets, kReportSets}}},
        {2, 60, {{kSets, kReportSets}, {"Messtabelle (ASM-Werte)", kReportMachineSets}}},
        {3, 65, {{kSets, kReportSets}, {"Messtabelle (Energien)", kReportRegisters}}},
        {4,
         130,
         {{kSets, kReportSets},
          {"Messtabelle (Energien)", kReportRegisters},
          {"Messtabelle (Phase 1)", kReportPhase1},
          {"Messtabelle (Phase 2)", kReportPhase1 + 1},
          {"Messtabelle (Phase 3)", kReportPhase3}}},
        {5,
         62,
         {{kSets, kReportSets},
          {"Messtabelle (ASM-Werte)", kReportMachineSets},
          {"Messtabelle (Energien)", kReportRegisters},
          {"Messtabelle (Phase 1)", kReportPhase1},
          {"Messtabelle (Phase 2)", kReportPhase1 + 1},
          {"Messtabelle (Phase 3)", kReportPhase3}}},
    };
    for (const auto& [netConf, sets, tables] : cases) {
        SCOPED_TRACE(netConf);
        OpenReportProject(netConf, sets);
        const PdfDocument report = PrintedReport();
        for (const auto& [title, section] : tables)
            ExpectSets(report, title, ReportColumns(section), 1, sets);
        ExpectWordsApart(report);
        QFile::remove(App().sProjectPath);
    }
}

TEST_F(ReportTables, SetsOfBothMachines_StandInTablesOfTheSameColumns)
{
    for (const int netConf : {2, 5}) {
        SCOPED_TRACE(netConf);
        OpenReportProject(netConf, 70);
        TakeSecondMachine();
        const PdfDocument report = PrintedReport();
        const std::vector<int> columns = ReportColumns(kReportSecondMachineSets);
        ASSERT_GT(columns.size(), 8U);
        ExpectSets(report, "Messtabelle (Motor/Generator I)", columns, 1, 70);
        ExpectSets(report, "Messtabelle (Motor/Generator II)", columns, 1, 70, SetSource::Simulated);
        ExpectWordsApart(report);
        App().bASMSim = false;
        QFile::remove(App().sProjectPath);
    }
}

TEST_F(ReportTables, Columns_AreThoseOfTheLayoutThatAreSwitchedOn)
{
    OpenReportProject(2, 5);
    EXPECT_EQ(ReportColumns(kReportSets),
              (std::vector<int>{kU, kI, kF, kP, kQ, kS, kPhi, kCosPhi, kWp, kWpPlus, kWpMinus, kWq}));
    EXPECT_EQ(ReportColumns(kReportMachineSets), (std::vector<int>{kN, kM, kPmech, kEta, kColumnMethod}));
    App().PrChecks[kI] = App().PrChecks[kQ] = App().PrChecks[kWq] = App().PrChecks[kM] = 0;
    std::ranges::reverse(App().ColumnLayout);
    const std::vector<int> columns{kWpMinus, kWpPlus, kWp, kCosPhi, kPhi, kS, kP, kF, kU};
    EXPECT_EQ(ReportColumns(kReportSets), columns);
    const PdfDocument report = PrintedReport();
    ExpectSets(report, kSets, columns, 1, 5);
    ExpectSets(report, "Messtabelle (ASM-Werte)", {kEta, kPmech, kN, kColumnMethod}, 1, 5);
}

TEST_F(ReportTables, ColumnsOfEachNetConfiguration_StandInTheTablesTheyBelongTo)
{
    const std::vector<int> sums{kU, kI, kF, kP, kQ, kS, kPhi, kCosPhi};
    const std::vector<int> withNeutral{kU, kI, kF, kP, kQ, kS, kPhi, kCosPhi, kINeutral};
    const std::vector<int> energies{kU, kI, kF, kP, kQ, kS, kPhi, kCosPhi, kWp, kWpPlus, kWpMinus, kWq};
    const std::vector<int> registers{kWpPlusAbs, kWpMinusAbs, kWqPlusAbs, kWqMinusAbs,
                                     kWpPlusRel, kWpMinusRel, kWqPlusRel, kWqMinusRel};
    const std::vector<int> machine{kN, kM, kPmech, kEta, kColumnMethod};
    const std::vector<int> secondPhase{kU1 + 1, kI1 + 1, kP1 + 1, kQ1 + 1, kS1 + 1, kPhi1 + 1, kCosPhi1 + 1};
    const struct
    {
        int netConf;
        std::vector<int> general;
        std::vector<int> ofMachine;
        std::vector<int> ofRegisters;
        std::vector<int> ofSecondPhase;
    } cases[] = {
        {0, energies, {}, {}, {}},
        {1, energies, {}, {}, {}},
        {2, energies, machine, {}, {}},
        {3, withNeutral, {}, registers, {}},
        {4, withNeutral, {}, registers, secondPhase},
        {5, sums, machine, registers, secondPhase},
    };
    for (const auto& [netConf, general, ofMachine, ofRegisters, ofSecondPhase] : cases) {
        App().iNetConfIndex = static_cast<qint16>(netConf);
        BuildColumnLayout();
        App().PrChecks.fill(1);
        EXPECT_EQ(ReportColumns(kReportSets), general) << netConf;
        EXPECT_EQ(ReportColumns(kReportMachineSets), ofMachine) << netConf;
        EXPECT_EQ(ReportColumns(kReportRegisters), ofRegisters) << netConf;
        EXPECT_EQ(ReportColumns(kReportPhase1 + 1), ofSecondPhase) << netConf;
        EXPECT_EQ(ReportColumns(kReportEnergy), std::vector<int>{}) << netConf;
    }
}

TEST_F(ReportTables, ColumnsThatAreOffOnOtherPages_AreStillPrinted)
{
    OpenReportProject(0, 5);
    App().Checks.fill(0);
    EXPECT_EQ(ReportColumns(kReportSets).size(), 12U);
}

TEST_F(ReportTables, ColumnsThatDoNotFit_GoOnOverleafWithTheSameSets)
{
    OpenReportProject(1, 100);
    OnlySection(kReportSets);
    const PdfDocument report = PrintedReport();
    ASSERT_EQ(report.pages.size() % 2, 0U);
    for (std::size_t page = 0; page < report.pages.size(); page += 2) {
        const std::vector<WordRow> rows = BodyRows(report.pages[page]);
        const std::vector<WordRow> overleaf = BodyRows(report.pages[page + 1]);
        ASSERT_EQ(rows.size(), overleaf.size());
        EXPECT_NE(TextOfRow(rows[0]), TextOfRow(overleaf[0]));
        for (std::size_t row = 0; row < rows.size(); ++row)
            for (const std::size_t cell : {0U, 1U}) { // set and time
                EXPECT_EQ(rows[row][cell].text, overleaf[row][cell].text);
                EXPECT_NEAR(rows[row][cell].box.right(), overleaf[row][cell].box.right(), 0.1);
                EXPECT_NEAR(rows[row][cell].box.bottom(), overleaf[row][cell].box.bottom(), 0.1);
            }
    }
    ExpectSets(report, kSets, ReportColumns(kReportSets), 1, 100);
}

TEST_F(ReportTables, SingleColumn_FillsThePage)
{
    OpenReportProject(0, 61);
    OnlySection(kReportSets);
    App().PrChecks.fill(0);
    App().PrChecks[kF] = 1;
    const PdfDocument report = PrintedReport();
    EXPECT_EQ(report.pages.size(), 2U);
    ExpectSets(report, kSets, {kF}, 1, 61);
}

TEST_F(ReportTables, ChosenSets_AreThereAndNoOthers)
{
    OpenReportProject(0, 130);
    OnlySection(kReportSets);
    App().PrChecks.fill(0);
    App().PrChecks[kU] = App().PrChecks[kP] = 1;
    App().PrintSetsOpt = 0;
    const std::pair<qint32, qint32> ranges[] = {{3, 70}, {130, 130}, {1, 60}, {61, 120}, {70, 3}};
    for (const auto& [start, stop] : ranges) {
        App().StartAtSet = start;
        App().StopAtSet = stop;
        const auto [first, last] = std::minmax(start, stop);
        QStringList expected;
        for (int set = first; set <= last; ++set)
            expected << QString::number(set);
        const PdfDocument report = PrintedReport();
        EXPECT_EQ(FirstCells(report), expected) << start;
        ExpectSets(report, kSets, {kU, kP}, first, last);
    }
}

TEST_F(ReportTables, ValuesOfAnySize_StayInTheirColumns)
{
    OpenReportProject(2, 0);
    std::vector<tValueRow> rows;
    for (const double size : {1e15, -1e15, 1e308, -123456789.125, 1e-300, 0.0}) {
        tValueRow row = WorkingSet(size, size, size, size);
        row.dU[kSum] = row.dQ[kSum] = row.dWp = row.dWq = row.dWpPlus = size;
        rows.push_back(row);
    }
    Store(std::move(rows));
    OnlySection(kReportSets);
    App().PrintIt[kReportMachineSets] = 1;
    const PdfDocument report = PrintedReport();
    ExpectWordsApart(report);
    for (const PdfPage& page : report.pages)
        EXPECT_EQ(BodyRows(page).size(), 7U);
}

TEST_F(ReportTables, ResultTables_AreThoseOfTheirPage)
{
    for (const int netConf : {0, 2, 5}) {
        SCOPED_TRACE(netConf);
        OpenReportProject(netConf, 100);
        OnlySection(kReportExtremes);
        ExpectTable(PrintedReport(), ExtremTable(App().MachineI));
        OnlySection(kReportEnergy);
        const PdfDocument energy = PrintedReport();
        ExpectTable(energy, EnergyTable(App().MachineI));
        EXPECT_TRUE(energy.pages.back().text.simplified().contains(GapsText(App().MachineI.evaluation).simplified()));
        if (HasMachine(netConf)) {
            OnlySection(kReportUtilisation);
            ExpectTable(PrintedReport(), UtilisationTable(App().MachineI));
        }
        QFile::remove(App().sProjectPath);
    }
}

TEST_F(ReportTables, ResultsOfBothMachines_StandSideBySide)
{
    OpenReportProject(2, 60);
    TakeSecondMachine();
    OnlySection(kReportBothUtilisation);
    const PdfDocument report = PrintedReport();
    ExpectTable(report, ComparedEnergyTable(App().MachineI, App().MachineII));
    ExpectTable(report, ComparedUtilisationTable(App().MachineI, App().MachineII));
    ExpectWordsApart(report);
}

} // namespace
} // namespace korvanel::test
