// The exported file read back: the sets number by number, the tables row by row.
#include "output/Export.h"

#include "ExportFixture.h"
#include "core/NumberText.h"
#include "data/RowQuantities.h"
#include "data/ValueColumns.h"
#include "evaluation/Algorithms.h"
#include "evaluation/Rating.h"
#include "evaluation/WinManaging2.h"
#include "support/TestPaths.h"

#include <limits>

namespace korvanel::test {
namespace {

class ExportTest : public ExportFixture
{
protected:
    struct Column
    {
        int quantity;
        double divisor;
    };
    static constexpr Column kAlways[] = {{kU, 1}, {kI, 1}, {kF, 1}, {kP, 1}, {kQ, 1}, {kS, 1}, {kPhi, 1}, {kCosPhi, 1}};
    static constexpr Column kOfMachine[] = {{kN, 1},     {kM, 1},         {kPmech, 1000},   {kEta, 1},
                                            {kWp, 3600}, {kWpPlus, 3600}, {kWpMinus, 3600}, {kWq, 3600}};

    static std::vector<Column> ColumnsOf(int netConf)
    {
        std::vector<Column> columns(std::begin(kAlways), std::end(kAlways));
        if (netConf == 2 || netConf == 5)
            columns.insert(columns.end(), std::begin(kOfMachine), std::end(kOfMachine));
        return columns;
    }
    /// Where a cell that belongs to the sets and not to a number stands, from the end of the line.
    static QString FromEnd(const QStringList& fields, qsizetype position) { return fields[fields.size() - position]; }
    static constexpr qsizetype kTimeStamp = 1;
    static constexpr qsizetype kTime = 2;
    static constexpr qsizetype kVerdict = 3;
    static constexpr qsizetype kMethod = 4;

    /// The fields of the only set of a project with a machine, after `change` of the file.
    QStringList FieldsOfChangedSet(const QString& change)
    {
        MakeRecording(2, 1);
        Execute(change);
        return Fields(Export().at(1));
    }
};

TEST_F(ExportTest, EverySetOfEveryConfiguration_ReadsBackToTheStoredNumbers)
{
    for (int netConf = 0; netConf < kNetConfCount; ++netConf) {
        MakeRecording(netConf, 3);
        const QStringList lines = Export();
        const std::vector<int> stored = StoredQuantities(netConf);
        const std::vector<Column> columns = ColumnsOf(netConf);
        for (int set = 1; set <= 3; ++set) {
            const QStringList fields = Fields(lines.at(set));
            EXPECT_EQ(fields[0], QString::number(set));
            for (std::size_t i = 0; i < columns.size(); ++i) {
                const auto [quantity, divisor] = columns[i];
                const bool isStored = std::find(stored.begin(), stored.end(), quantity) != stored.end();
                const double value = isStored ? QuantityValue(rows[static_cast<std::size_t>(set - 1)], quantity) : 0;
                EXPECT_EQ(Number(fields[static_cast<qsizetype>(i) + 1]), value / divisor)
                    << netConf << ' ' << set << ' ' << quantity;
            }
        }
    }
}

TEST_F(ExportTest, HeaderLine_HasTheHeadingsOfTheListOfSetsInTheOrderOfTheFile)
{
    MakeRecording(0, 0);
    EXPECT_EQ(Fields(Export().first()), (QStringList{"Satz", "U [V]", "I [A]", "f [Hz]", "Pel [W]", "Q [var]", "S [VA]",
                                                     "Phi [°]", "cosphi", "t Sample", "Zeitstempel"}));
    MakeRecording(2, 0);
    EXPECT_EQ(Fields(Export().first()),
              (QStringList{"Satz",     "U [V]",    "I [A]",     "f [Hz]",  "Pel [W]",   "Q [var]",  "S [VA]",
                           "Phi [°]",  "cosphi",   "n [rpm]",   "M [Nm]",  "Pmech [W]", "eta",      "Wp [Wh]",
                           "Wp+ [Wh]", "Wp- [Wh]", "Wq [varh]", "Methode", "Modell",    "t Sample", "Zeitstempel"}));
}

TEST_F(ExportTest, ReactivePower_StandsBeforeTheApparentPower)
{
    MakeRecording(0, 1);
    const QStringList fields = Fields(Export().at(1));
    EXPECT_EQ(Number(fields[5]), rows[0].dQ[kSum]);
    EXPECT_EQ(Number(fields[6]), rows[0].dS[kSum]);
}

TEST_F(ExportTest, ShaftPowerIsInKilowattAndEnergiesInWattHours)
{
    MakeRecording(2, 1);
    Execute("UPDATE ComputedValues SET Pmech=18500, Wp=3600, [Wp+]=7200, [Wp-]=-1800, Wq=900");
    const QStringList fields = Fields(Export().at(1));
    EXPECT_EQ(fields[11], "18,5");
    EXPECT_EQ(fields.mid(13, 4), (QStringList{"1", "2", "-0,5", "0,25"}));
}

TEST_F(ExportTest, WithoutAMachine_ALineHasNumberEightValuesTimeAndTimeStampAndNoVerdict)
{
    for (const int netConf : {0, 1, 3, 4, 6}) {
        MakeRecording(netConf, 1);
        const QStringList lines = Export();
        EXPECT_EQ(Fields(lines[0]).size(), 11) << netConf;
        const QStringList fields = Fields(lines[1]);
        ASSERT_EQ(fields.size(), 11) << netConf;
        EXPECT_EQ(FromEnd(fields, kTime), "01:00:00");
        EXPECT_EQ(FromEnd(fields, kTimeStamp), "14.03.2026 15:09:26");
    }
}

TEST_F(ExportTest, WithAMachine_ALineHasSixteenValuesMethodAndVerdictToo)
{
    for (const int netConf : {2, 5}) {
        MakeRecording(netConf, 2);
        const QStringList lines = Export();
        EXPECT_EQ(Fields(lines[0]).size(), 21) << netConf;
        EXPECT_EQ(Fields(lines[1]).size(), 21) << netConf;
        EXPECT_EQ(FromEnd(Fields(lines[1]), kMethod), "P");
        EXPECT_EQ(FromEnd(Fields(lines[2]), kMethod), "V");
    }
}

TEST_F(ExportTest, ProjectWithoutSets_GivesTheHeaderLineAndTheLaterSections)
{
    MakeRecording(2, 0);
    EvaluateProject();
    const QStringList lines = Export();
    EXPECT_TRUE(lines[0].startsWith("Satz\t"));
    EXPECT_EQ(lines[1], "");
    EXPECT_EQ(lines[2], "");
    EXPECT_TRUE(lines[3].startsWith("Projektname:\t"));
    EXPECT_TRUE(lines.contains(ExtremTable(App().MachineI).heads.join(u'\t') + u'\t'));
    EXPECT_TRUE(lines.contains(UtilisationTable(App().MachineI).heads.join(u'\t') + u'\t'));
    EXPECT_EQ(shell.BoxTexts(), QStringList());
}

TEST_F(ExportTest, TwoEmptyLinesStandBehindTheSets)
{
    MakeRecording(0, 2);
    const QStringList lines = Export();
    EXPECT_EQ(lines[3], "");
    EXPECT_EQ(lines[4], "");
    EXPECT_TRUE(lines[5].startsWith("Projektname:\t"));
}

TEST_F(ExportTest, TxtNameGivesTheSameBytesAsXlsName)
{
    MakeRecording(2, 5);
    EvaluateProject();
    ExportEvaluation(PathOf("a.xls"));
    ExportEvaluation(PathOf("a.txt"));
    EXPECT_TRUE(ContentOf("a.xls") == ContentOf("a.txt"));
}

TEST_F(ExportTest, DecimalCharacterIsTheLocalOne)
{
    MakeRecording(0, 1);
    Execute("UPDATE SampledValues SET [U sum]=1234567.5, [f sum]=50");
    EXPECT_EQ(Fields(Export().at(1)).at(1), "1234567,5");
    App().DecimalChar = u'.';
    EXPECT_EQ(Fields(Export().at(1)).at(1), "1234567.5");
    App().DecimalChar = QChar(0x66B); // Arabic, two bytes in UTF-8
    EXPECT_EQ(Fields(Export().at(1)).at(1), QString("1234567") + QChar(0x66B) + "5");
    EXPECT_EQ(Fields(Export().at(1)).at(3), "50");
}

TEST_F(ExportTest, TimeHasNoFractionAndItsHoursAreNotCapped)
{
    MakeRecording(0, 1);
    Execute("UPDATE SampledValues SET t=360061.75");
    EXPECT_EQ(FromEnd(Fields(Export().at(1)), kTime), "100:01:01");
}

TEST_F(ExportTest, NullTimeStampAndMethodAreEmptyFields)
{
    const QStringList changed = FieldsOfChangedSet("UPDATE SampledValues SET [Time]=NULL");
    EXPECT_EQ(FromEnd(changed, kTimeStamp), "");
    EXPECT_EQ(FromEnd(changed, kMethod), "P");
    Execute("UPDATE ComputedValues SET Method=NULL, n=NULL");
    const QStringList lines = Export();
    EXPECT_EQ(FromEnd(Fields(lines.at(1)), kMethod), "");
    EXPECT_EQ(Fields(lines.at(1)).at(9), "0") << "a null counts as 0";
}

TEST_F(ExportTest, NullOfOneSetLeavesNothingOfTheSetBefore)
{
    MakeRecording(2, 2);
    Execute("UPDATE ComputedValues SET Method=NULL, n=NULL WHERE [Set]=2");
    Execute("UPDATE SampledValues SET [Time]=NULL WHERE [Set]=2");
    const QStringList fields = Fields(Export().at(2));
    EXPECT_EQ(fields[9], "0");
    EXPECT_EQ(FromEnd(fields, kMethod), "");
    EXPECT_EQ(FromEnd(fields, kTimeStamp), "");
}

TEST_F(ExportTest, ForeignValuesKeepTheFormOfTheLine)
{
    const QStringList fields =
        FieldsOfChangedSet("UPDATE SampledValues SET [U sum]='viel', [I sum]=9e999, [P sum]=-9e999, "
                           "[Time]='=1'||char(9)||'x'||char(10)||'y'");
    ASSERT_EQ(fields.size(), 21);
    EXPECT_EQ(fields[1], "0");
    EXPECT_EQ(fields[2], NumberText(std::numeric_limits<double>::infinity()));
    EXPECT_EQ(fields[4], NumberText(-std::numeric_limits<double>::infinity()));
    EXPECT_EQ(FromEnd(fields, kVerdict), "schlecht");
    EXPECT_EQ(FromEnd(fields, kTimeStamp), " =1 x y");
    Execute("UPDATE ComputedValues SET Method='V'||char(9)||'+'");
    EXPECT_EQ(FromEnd(Fields(Export().at(1)), kMethod), "V +");
    Execute("UPDATE ComputedValues SET Method='='");
    EXPECT_EQ(FromEnd(Fields(Export().at(1)), kMethod), " =");
}

TEST_F(ExportTest, VerdictIsThatOfTheWorstValueWritten)
{
    struct Case
    {
        const char* change;
        const char* verdict;
    };
    const QString good = "UPDATE SampledValues SET [U sum]=400, [I sum]=30, [f sum]=50, [P sum]=10000, [phi sum]=30";
    const QString goodToo = "UPDATE ComputedValues SET [Q sum]=0, [S sum]=0, [cosphi sum]=1, n=1460, M=100, "
                            "Pmech=9000, eta=0.9, Wp=0, [Wp+]=0, [Wp-]=0, Wq=0";
    const Case cases[] = {
        {"SELECT 1", "gut"},
        {"UPDATE SampledValues SET [U sum]=361", "mittel"},
        {"UPDATE SampledValues SET [f sum]=40", "schlecht"},
        {"UPDATE SampledValues SET [I sum]=100001", "schlecht"},   // no value of the seven by which a set is rated
        {"UPDATE ComputedValues SET Wq=400000000000", "schlecht"}, // in var seconds, not in var hours
        {"UPDATE ComputedValues SET Wq=300000000000", "gut"},
        {"UPDATE ComputedValues SET Pmech=1000000001", "schlecht"}, // in W, not in kW
        {"UPDATE ComputedValues SET eta=1", "schlecht"},
    };
    MakeRecording(2, 1);
    App().MachineI.model.Pelec_n = 20450;
    for (const Case& c : cases) {
        Execute(good);
        Execute(goodToo);
        Execute(c.change);
        EXPECT_EQ(FromEnd(Fields(Export().at(1)), kVerdict), c.verdict) << c.change;
    }
}

TEST_F(ExportTest, VerdictStartsAnewWithEachSet)
{
    MakeRecording(2, 2);
    App().MachineI.model.Pelec_n = 20450;
    Execute("UPDATE SampledValues SET [U sum]=400, [f sum]=50, [P sum]=10000, [phi sum]=30");
    Execute("UPDATE ComputedValues SET [S sum]=0, Wq=0");
    Execute("UPDATE SampledValues SET [f sum]=1 WHERE [Set]=1");
    const QStringList lines = Export();
    EXPECT_EQ(FromEnd(Fields(lines.at(1)), kVerdict), "schlecht");
    EXPECT_EQ(FromEnd(Fields(lines.at(2)), kVerdict), "gut");
}

TEST_F(ExportTest, VerdictIsTheMeasuredMachinesAlone)
{
    MakeRecording(2, 1);
    App().MachineI.record = {};
    App().MachineII.record = Motor();
    EXPECT_EQ(FromEnd(Fields(Export().at(1)), kVerdict), "schlecht") << "without rated data speed and power are bad";
}

TEST_F(ExportTest, TablesStandRowByRowAsOnThePage)
{
    for (int netConf = 0; netConf < kNetConfCount; ++netConf) {
        MakeRecording(netConf, 20);
        EvaluateProject();
        std::vector<ResultTable> tables{ExtremTable(App().MachineI), EnergyTable(App().MachineI)};
        if (netConf == 2 || netConf == 5)
            tables.push_back(UtilisationTable(App().MachineI));
        QStringList expected;
        for (const ResultTable& table : tables) {
            expected << table.heads.join(u'\t') + u'\t';
            for (const ResultRow& row : table.rows)
                expected << (row.kind == ResultRowKind::Heading ? row.cells.first() : row.cells.join(u'\t') + u'\t');
        }
        const QStringList lines = Export();
        const QStringList tail = lines.mid(lines.size() - expected.size());
        for (qsizetype line = 0; line < expected.size(); ++line)
            EXPECT_EQ(tail.value(line), expected.at(line)) << netConf;
        EXPECT_FALSE(lines[lines.size() - expected.size() - 1].startsWith("Größe")) << netConf;
    }
}

/// A short duty cycle of the motor: half load, full load, and driven by its load.
std::vector<tValueRow> DutyCycle()
{
    struct Set
    {
        double U, I, f, P, Q, S, phi, cosphi, n, M, Pmech, eta, Wp, WpPlus, WpMinus, Wq;
    };
    constexpr Set kSets[] = {
        {400, 20, 50, 10250, 8000, 13002.4, 37.97, 0.788, 1482, 58.5, 9079, 0.886, 0, 0, 0, 0},
        {398.5, 32.5, 50, 20300, 10000, 22629.5, 26.22, 0.897, 1462.5, 119.9, 18363, 0.905, 20300, 20300, 0, 10000},
        {401, 15, 49.98, -6000, 7500, 9604.7, 128.66, -0.625, 1511, -44.2, -6994, 0.858, 14300, 20300, -6000, 17500},
    };
    std::vector<tValueRow> rows;
    for (const Set& set : kSets) {
        tValueRow& row = rows.emplace_back();
        row.dU[kSum] = set.U;
        row.dI[kSum] = set.I;
        row.df = set.f;
        row.dP[kSum] = set.P;
        row.dQ[kSum] = set.Q;
        row.dS[kSum] = set.S;
        row.dPhi[kSum] = set.phi;
        row.dCosPhi[kSum] = set.cosphi;
        row.dn = set.n;
        row.dM = set.M;
        row.dPmech = set.Pmech;
        row.deta = set.eta;
        row.dWp = set.Wp;
        row.dWpPlus = set.WpPlus;
        row.dWpMinus = set.WpMinus;
        row.dWq = set.Wq;
        row.dt = static_cast<double>(rows.size()) - 1;
        row.sMethod = QStringLiteral("P");
    }
    rows.back().bEdit = kCorrected;
    return rows;
}

TEST_F(ExportTest, WholeDocumentOfAMachineIsToTheLetter)
{
    MakeRecording(2, 0);
    rows = DutyCycle();
    StoreRows(rows);
    App().bModelValid = true;
    App().MachineI.model.Pelec_n = 20437;
    App().MachineI.model.Kippmoment = 326.2;
    App().MachineI.record.M = 120.8;
    App().MachineI.record.eta = 0.905;
    App().MachineI.record.Mkipp_Mn = 2.7;
    App().MachineI.record.Hersteller = "Käfigläufer, Halle 3";
    App().sProjectName = "Förderband";
    App().sCompany = "Müller & Söhne";
    App().sEditor = "Änne Weiß";
    App().sDescription = "Standort: Süd\nEinbaulage: IM B3";
    App().dtProjectCreated = App().dtProjectSaved = QDateTime(QDate(2026, 3, 14), QTime(15, 0), Qt::UTC);
    App().sDevice = "ISKRA MI7150";
    EvaluateProject();
    QFile golden(QStringLiteral(KORVANEL_EXPORT_DATA "/machine.txt"));
    ASSERT_TRUE(golden.open(QIODevice::ReadOnly));
    const QStringList expected = QString::fromUtf8(golden.readAll()).chopped(1).split(u'\n');
    EXPECT_EQ(Export(), expected);
}

TEST_F(ExportTest, CurrencyWithATabDoesNotBreakTheTable)
{
    settings.SetUsedCurrency("Tal\ter\n");
    MakeRecording(0, 3);
    EvaluateProject();
    for (const QString& line : Export())
        EXPECT_LE(line.count(u'\t'), 11) << line.toStdString();
}

TEST_F(ExportTest, ExportLeavesTheBlockAsItWas)
{
    MakeRecording(2, 2);
    App().CurrentRow.dU[kSum] = 7;
    App().iRowWorstRating = 2;
    App().sTimeText = "x";
    App().lLastReadSet = 5;
    App().iCurrentSet = 2;
    Export();
    EXPECT_EQ(App().CurrentRow.dU[kSum], 7);
    EXPECT_EQ(App().iRowWorstRating, 2);
    EXPECT_EQ(App().sTimeText, "x");
    EXPECT_EQ(App().lLastReadSet, 5);
    EXPECT_EQ(App().iCurrentSet, 2);
    EXPECT_FALSE(App().bProjectDirty);
    EXPECT_FALSE(IsProjectDbOpen());
}

TEST_F(ExportTest, ProgressAdvancesOncePerPercent)
{
    MakeRecording(0, 250);
    shell.calls.clear();
    Export();
    EXPECT_EQ(shell.calls.first(), "ShowProgress 0");
    EXPECT_EQ(shell.calls.last(), "ShowProgress 2");
    EXPECT_EQ(shell.calls.count("ShowProgress 1"), 125);
}

TEST_F(ExportTest, OlderAndLongerFileIsReplacedAsAWhole)
{
    MakeRecording(0, 1);
    WriteContent("test.xls", QByteArray(1'000'000, 'x'));
    EXPECT_FALSE(Export().join(u'\n').contains("xxx"));
}

} // namespace
} // namespace korvanel::test
