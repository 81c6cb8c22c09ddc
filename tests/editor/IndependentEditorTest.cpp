// The operations of the editor against a table that another program has calculated: see independent_editor.py, which
// shares nothing with this one. A larger table of its making is compared instead if the environment names one in
// KORVANEL_EDITOR_TABLE.
#include "data/FileManaging.h"
#include "editor/RowOperations.h"
#include "machine/Algorithms_ASM_Start.h"
#include "support/ProjectFixture.h"
#include "support/StoredRows.h"
#include "support/TestPaths.h"

#include <cmath>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <iterator>
#include <optional>
#include <span>
#include <sstream>

namespace korvanel::test {
namespace {

constexpr double kTolerance = 1e-9;

using EditWords = std::vector<std::string>;

EditWords WordsOf(const std::string& line)
{
    std::istringstream stream(line);
    return {std::istream_iterator<std::string>(stream), {}};
}

/// A number of the table: where the file has it, and where the row.
struct NumberColumn
{
    const char* name;
    double& (*field)(tValueRow&);
};

constexpr NumberColumn kVoltageColumn{"U sum", [](tValueRow& row) -> double& { return row.dU[kSum]; }};
constexpr NumberColumn kFrequencyColumn{"f sum", [](tValueRow& row) -> double& { return row.df; }};

constexpr NumberColumn kMachineColumns[] = {
    kVoltageColumn,
    {"I sum", [](tValueRow& row) -> double& { return row.dI[kSum]; }},
    kFrequencyColumn,
    {"P sum", [](tValueRow& row) -> double& { return row.dP[kSum]; }},
    {"phi sum", [](tValueRow& row) -> double& { return row.dPhi[kSum]; }},
    {"Q sum", [](tValueRow& row) -> double& { return row.dQ[kSum]; }},
    {"S sum", [](tValueRow& row) -> double& { return row.dS[kSum]; }},
    {"cosphi sum", [](tValueRow& row) -> double& { return row.dCosPhi[kSum]; }},
    {"Wp", [](tValueRow& row) -> double& { return row.dWp; }},
    {"Wp+", [](tValueRow& row) -> double& { return row.dWpPlus; }},
    {"Wp-", [](tValueRow& row) -> double& { return row.dWpMinus; }},
    {"Wq", [](tValueRow& row) -> double& { return row.dWq; }},
    {"n", [](tValueRow& row) -> double& { return row.dn; }},
    {"M", [](tValueRow& row) -> double& { return row.dM; }},
    {"Pmech", [](tValueRow& row) -> double& { return row.dPmech; }},
    {"eta", [](tValueRow& row) -> double& { return row.deta; }},
};
constexpr std::size_t kEstimateColumns = 4;

constexpr NumberColumn kVoltageColumns[] = {
    kVoltageColumn,
    {"U 1", [](tValueRow& row) -> double& { return row.dU[kPhase1]; }},
    {"U 2", [](tValueRow& row) -> double& { return row.dU[kPhase2]; }},
    {"U 3", [](tValueRow& row) -> double& { return row.dU[kPhase3]; }},
    kFrequencyColumn,
};

std::span<const NumberColumn> NumberColumnsOf(int netConf)
{
    if (netConf == 6)
        return kVoltageColumns;
    const std::span<const NumberColumn> all = kMachineColumns;
    return netConf == 2 ? all : all.first(all.size() - kEstimateColumns);
}

/// Where the value of a column that a user edits goes.
double& EditedField(tValueRow& row, const std::string& column)
{
    if (column.size() == 2)
        return row.dU[static_cast<std::size_t>(column[1] - '0')];
    switch (column[0]) {
    case 'U':
        return row.dU[kSum];
    case 'I':
        return row.dI[kSum];
    case 'f':
        return row.df;
    default:
        return row.dP[kSum];
    }
}

std::optional<double> KnownNumber(const std::string& word)
{
    return word == "-" ? std::nullopt : std::optional(std::stod(word));
}

std::optional<QString> KnownText(const std::string& word)
{
    return word == "-" ? std::nullopt : std::optional(QString::fromStdString(word));
}

class IndependentEditor : public ProjectTest
{
protected:
    void CompareTable(const std::string& path)
    {
        std::ifstream table(path);
        ASSERT_TRUE(table) << path;
        for (std::string line; std::getline(table, line) && !HasFailure();) {
            const EditWords words = WordsOf(line);
            if (words[0] == "end") {
                Compare();
                continue;
            }
            if (words[0] == "case")
                history.clear();
            history += line + '\n';
            ASSERT_NO_FATAL_FAILURE(Take(words)) << history;
        }
        std::cout << path << ": " << cases << " recordings, " << operations << " operations, " << sets
                  << " sets, greatest difference " << greatest << '\n';
        EXPECT_GE(cases, 100);
        EXPECT_GE(sets, 500);
    }

private:
    void Take(const EditWords& words)
    {
        const std::string& kind = words[0];
        if (kind == "case")
            Begin(words);
        else if (kind == "machine")
            SetMachine(words);
        else if (kind == "row")
            recorded.push_back(RowOf(words));
        else if (kind == "then")
            conditions = words;
        else if (kind == "set")
            expected.push_back(words);
        else
            Perform(words);
    }
    void Begin(const EditWords& words)
    {
        ++cases;
        App().bProjectOpen = false;
        QFile::remove(PathOf(QStringLiteral("test.MDB")));
        CreateProject(std::stoi(words[1]));
        App().dInterval = std::stod(words[2]);
        App().iCalcMethod = static_cast<qint16>(std::stoi(words[3]));
        ASSERT_TRUE(SaveProject());
        App().bModelValid = false;
        recorded.clear();
        expected.clear();
    }
    void SetMachine(const EditWords& words)
    {
        auto word = words.begin() + 1;
        MachineRecord r;
        r.Polpaarzahl = static_cast<qint16>(std::stoi(*word++));
        for (std::optional<double>* field : {&r.Pmech, &r.U, &r.n, &r.I, &r.f, &r.cosphi, &r.Po, &r.Uo, &r.Io, &r.fo})
            *field = KnownNumber(*word++);
        r.Schaltungsart = KnownText(*word++);
        for (std::optional<double>* field : {&r.Rs, &r.Mkipp_Mn, &r.Tth})
            *field = KnownNumber(*word++);
        r.I_CL = KnownText(*word++);
        r.Masse = KnownNumber(*word++);
        r.Mreib = *word == "1";
        App().MachineI.record = r;
        App().MachineI.model = {};
        BuildMachineModel();
        ASSERT_TRUE(shell.boxes.empty());
    }
    tValueRow RowOf(const EditWords& words) const
    {
        tValueRow row;
        row.dt = std::stod(words[1]);
        row.bEdit = static_cast<quint8>(std::stoi(words[2]));
        std::size_t word = 4;
        for (const NumberColumn& column : NumberColumnsOf(App().iNetConfIndex))
            column.field(row) = std::stod(words[word++]);
        if (word < words.size())
            row.sMethod = QString::fromStdString(words[word]);
        return row;
    }
    void Perform(const EditWords& words)
    {
        ++operations;
        if (!recorded.empty())
            StoreRows(recorded);
        recorded.clear();
        EXPECT_TRUE(Run(words)) << history;
        EXPECT_EQ(shell.BoxTexts(), QStringList()) << history;
    }
    static bool Run(const EditWords& words)
    {
        const std::string& kind = words[0];
        const auto number = [&words](std::size_t word) { return std::stoi(words.at(word)); };
        if (kind == "dup" || kind == "del" || kind == "mid") {
            App().iCurrentSet = number(1);
            App().lMarkedSets = number(2);
            return kind == "dup" ? InsertSets(number(1)) : kind == "del" ? DeleteSets(number(1)) : InterpolateSets();
        }
        if (kind == "edit")
            return Edit(number(1), words.at(2), std::stod(words.at(3)));
        if (kind == "number")
            return RenumberTime();
        if (kind == "every")
            return ResampleInterval(std::stod(words.at(1)));
        if (kind == "method")
            return ChangeMethod(number(1));
        if (kind == "energies")
            return FormEnergies();
        return kind == "first" && MakeFirstSet();
    }
    static bool Edit(int set, const std::string& column, double value)
    {
        {
            const ProjectDbScope scope;
            ReadRow(set);
        }
        App().iCurrentSet = set;
        tValueRow& row = App().CurrentRow;
        if (column == "Q")
            row.dPhi[kSum] = std::copysign(row.dPhi[kSum], value);
        else
            EditedField(row, column) = value;
        return ApplyEdit();
    }

    void Compare()
    {
        EXPECT_EQ(App().dInterval, std::stod(conditions[1])) << history;
        EXPECT_EQ(App().iCalcMethod, std::stoi(conditions[2])) << history;
        EXPECT_EQ(App().iSetCount, static_cast<int>(expected.size())) << history;
        for (const char* name : {"SampledValues", "ComputedValues"})
            EXPECT_EQ(Query(QStringLiteral("SELECT count(*) FROM %1").arg(QLatin1String(name))).toInt(),
                      App().iSetCount)
                << name << '\n'
                << history;
        EXPECT_EQ(Query("SELECT count(*) FROM sqlite_master WHERE name LIKE 'Temp'"), "0") << history;

        SQLite::Database db(App().sProjectPath.toStdString());
        SQLite::Statement query(db, "SELECT * FROM SampledValues JOIN ComputedValues USING (\"Set\") ORDER BY \"Set\"");
        for (std::size_t i = 0; i < expected.size() && query.executeStep(); ++i) {
            ++sets;
            CompareSet(query, static_cast<int>(i) + 1, expected[i]);
        }
    }
    void CompareSet(SQLite::Statement& query, int set, const EditWords& words)
    {
        const std::string where = ", set " + std::to_string(set) + " after\n" + history;
        EXPECT_EQ(query.getColumn("Set").getInt(), set) << where;
        EXPECT_TRUE(query.getColumn("t").isInteger()) << where;
        EXPECT_EQ(query.getColumn("t").getInt64(), std::stoll(words[1])) << "t" << where;
        EXPECT_EQ(query.getColumn("Edit").getInt(), std::stoi(words[2])) << "Edit" << where;
        EXPECT_EQ(!query.getColumn("Time").isNull(), words[3] == "1") << "Time" << where;
        std::size_t word = 4;
        for (const NumberColumn& column : NumberColumnsOf(App().iNetConfIndex))
            CompareNumber(query.getColumn(column.name), words.at(word++), column.name + where);
        if (word < words.size() && words[word] != "?") {
            EXPECT_EQ(query.getColumn("Method").getString(), words[word]) << "Method" << where;
        }
    }
    void CompareNumber(const SQLite::Column& column, const std::string& word, const std::string& what)
    {
        if (word == "?")
            return;
        const double number = std::stod(word);
        const double difference = std::abs(column.getDouble() - number) / (number == 0 ? 1 : std::abs(number));
        greatest = std::max(greatest, difference);
        EXPECT_FALSE(column.isNull()) << what;
        EXPECT_LE(difference, kTolerance) << column.getDouble() << " for " << number << ", " << what;
    }

    std::vector<tValueRow> recorded; ///< of the present recording, until the first operation
    std::vector<EditWords> expected;
    EditWords conditions;
    std::string history; ///< lines of the present recording
    int cases = 0;
    int operations = 0;
    int sets = 0;
    double greatest = 0;
};

TEST_F(IndependentEditor, EverySetAgreesAfterEverySequence)
{
    const char* const other = std::getenv("KORVANEL_EDITOR_TABLE");
    CompareTable(other == nullptr ? KORVANEL_EDITOR_DATA "/random_edits.txt" : other);
}

} // namespace
} // namespace korvanel::test
