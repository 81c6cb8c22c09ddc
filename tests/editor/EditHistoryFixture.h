// A recording whose operations are kept, so that they can be taken back, and a look at all that they may change, to the
// last bit.
#pragma once

#include "data/FileManaging.h"
#include "editor/EditHistory.h"
#include "editor/RowOperations.h"
#include "machine/Algorithms_ASM_Start.h"
#include "support/Machines.h"
#include "support/ProjectFixture.h"
#include "support/StoredRows.h"

#include <QTemporaryFile>

#include <bit>
#include <random>

namespace korvanel::test {

/// A value with all its bits, and its type.
inline std::string ExactText(const SQLite::Column& value)
{
    if (value.isFloat())
        return "f" + std::to_string(std::bit_cast<quint64>(value.getDouble()));
    return (value.isInteger() ? "i" : value.isNull() ? "-" : "t") + value.getString();
}

/// All that an operation of the editor may change.
struct EditedState
{
    std::vector<std::string> content; ///< a line for each row of the file
    double interval = App().dInterval;
    int method = App().iCalcMethod;
    int sets = App().iSetCount;
    bool areEnergiesOutdated = App().bEnergiesOutdated;
    std::string term = App().sMeasurementTerm.toStdString();

    bool operator==(const EditedState&) const = default;
};

inline EditedState PresentState()
{
    EditedState state;
    SQLite::Database db(App().sProjectPath.toStdString(), SQLite::OPEN_READWRITE);
    for (const char* table : {"SampledValues", "ComputedValues", "Overview", "Settings", "sqlite_master"}) {
        SQLite::Statement query(db, std::string("SELECT * FROM ") + table + " ORDER BY 1");
        while (query.executeStep()) {
            std::string line = table;
            for (int i = 0; i < query.getColumnCount(); ++i)
                if (query.getColumn(i).getName() != std::string("rootpage")) // where it lies is nobody's business
                    line += ' ' + ExactText(query.getColumn(i));
            state.content.push_back(line);
        }
    }
    return state;
}

/// For the failures of comparisons; the whole content would be pages.
inline void PrintTo(const EditedState& state, std::ostream* out)
{
    *out << state.sets << " sets every " << state.interval << " s, method " << state.method << ", energies "
         << (state.areEnergiesOutdated ? "outdated" : "in force") << ", term " << state.term << ", "
         << state.content.size() << " rows";
}

struct MarkedPlace
{
    int set = App().iCurrentSet;
    int marked = App().lMarkedSets;

    bool operator==(const MarkedPlace&) const = default;
};

class EditHistoryOfProject : public ProjectTest
{
protected:
    ~EditHistoryOfProject() override { App().RowHistory = nullptr; }

    /// Opens a recording whose operations are kept from here on.
    void Record(int netConf, int count, unsigned seed = 1)
    {
        history.Clear();
        App().bProjectOpen = false;
        CreateProject(netConf, QStringLiteral("%1.MDB").arg(++projects));
        App().dInterval = 5;
        App().iCurrentSet = App().lMarkedSets = 1;
        ASSERT_TRUE(SaveProject());
        if (netConf == 2) {
            App().MachineI.record = MotorWithNoLoadData();
            BuildMachineModel();
        }
        std::mt19937 random(seed);
        std::uniform_real_distribution<double> unit(-1, 1);
        std::vector<tValueRow> rows(static_cast<std::size_t>(count));
        for (std::size_t i = 0; i < rows.size(); ++i) {
            tValueRow& row = rows[i];
            for (double& voltage : row.dU)
                voltage = 400 + 20 * unit(random);
            row.dI[kSum] = 30 + 20 * unit(random);
            row.df = 50 + unit(random);
            row.dP[kSum] = 8000 * unit(random);
            row.dPhi[kSum] = 90 * unit(random);
            row.dWp = 1e6 * unit(random);
            row.dn = 1500 + 30 * unit(random);
            row.sMethod = QStringLiteral("V");
            row.dt = 5.0 * static_cast<double>(i) + (i > 4 ? 7 : 0);
            row.bEdit = i % 5 == 3 ? 255 : 0;
        }
        if (count > 0)
            StoreRows(rows);
        App().RowHistory = &history;
    }
    /// Opens a recording of so many equal sets, made by the engine alone.
    void RecordLong(int netConf, qint64 count)
    {
        Record(netConf, 1);
        const QString numbers =
            QStringLiteral("WITH RECURSIVE n(x) AS (SELECT 2 UNION ALL SELECT x+1 FROM n WHERE x<%1) ").arg(count);
        for (const char* table : {"SampledValues", "ComputedValues"}) {
            const QString name = QLatin1String(table);
            QStringList columns = ColumnNames(name).split(u',');
            columns.removeFirst(); // the number of the set
            const QString others = QStringLiteral(", \"%1\"").arg(columns.join(QStringLiteral("\", \"")));
            const QString rest = columns.isEmpty() || columns.first().isEmpty() ? QString() : others;
            Execute(numbers +
                    QStringLiteral("INSERT INTO %1 (\"Set\"%2) SELECT x%2 FROM n, %1 WHERE \"Set\"=1").arg(name, rest));
        }
        const ProjectDbScope scope;
        RefreshSetCount();
    }
    /// Makes a table one that a foreign program has made: each number once, but no primary key.
    void RemoveKey(const QString& table) const
    {
        Execute(QStringLiteral("ALTER TABLE %1 RENAME TO old; CREATE TABLE %1 AS SELECT * FROM old; DROP TABLE old; "
                               "CREATE UNIQUE INDEX keys ON %1 (\"Set\")")
                    .arg(table));
    }
    /// The smallest number of sets that can't be noted.
    static qint64 TooMany()
    {
        const ProjectDbScope scope;
        qint64 few = 1;
        qint64 many = EditHistory::kMostMemory;
        while (many - few > 1) {
            const qint64 middle = (few + many) / 2;
            (EditHistory::CanNote(middle) ? few : many) = middle;
        }
        return many;
    }
    static void Mark(int first, int count)
    {
        App().iCurrentSet = first;
        App().lMarkedSets = count;
    }
    static bool Duplicate(int first, int count = 1)
    {
        Mark(first, count);
        return InsertSets(first);
    }
    static bool Delete(int first, int count = 1)
    {
        Mark(first, count);
        return DeleteSets(first);
    }
    static bool Interpolate(int first, int count = 1)
    {
        Mark(first, count);
        return InterpolateSets();
    }
    static bool EnterCurrent(int set, double current)
    {
        {
            const ProjectDbScope scope;
            ReadRow(set);
        }
        Mark(set, 1);
        App().CurrentRow.dI[kSum] = App().CurrentRow.dU[kPhase2] = current;
        return ApplyEdit();
    }
    static bool EnterNothing(int set)
    {
        {
            const ProjectDbScope scope;
            ReadRow(set);
        }
        Mark(set, 1);
        return ApplyEdit();
    }
    /// One of the operations with random sets; all of them succeed.
    static bool RunAny(std::mt19937& random)
    {
        const auto below = [&random](int end) { return static_cast<int>(random() % static_cast<unsigned>(end)); };
        const int set = 1 + below(App().iSetCount);
        const int count = 1 + below(4);
        switch (below(8)) {
        case 0:
            return Duplicate(set, count);
        case 1:
            return App().iSetCount > 4 ? Delete(set, count) : Duplicate(set, count);
        case 2:
            return Interpolate(set, count);
        case 3:
            return RenumberTime();
        case 4:
            return ResampleInterval(1 + below(30) / 2.0);
        case 5:
            return ChangeMethod(1 - App().iCalcMethod);
        case 6:
            return App().iNetConfIndex == 6 || FormEnergies();
        default:
            return EnterCurrent(set, 10 + below(50));
        }
    }
    /// The text that an operation too large to be noted asks with.
    QStringList Questions() const
    {
        QStringList texts;
        for (const Box& box : shell.boxes)
            if (box.buttons == BoxButtons::YesNo)
                texts << box.text;
        return texts;
    }

    EditHistory history;

private:
    int projects = 0;
};

} // namespace korvanel::test
