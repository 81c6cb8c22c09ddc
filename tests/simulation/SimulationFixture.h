// A project with a second machine, and a look at the sets that are stored of it.
#pragma once

#include "core/ProjectDb.h"
#include "core/SettingsStore.h"
#include "core/clsProgSettings.h"
#include "support/Machines.h"
#include "support/ProjectFixture.h"
#include "support/StoredRows.h"

#include <string>
#include <vector>

namespace korvanel::test {

/// One row of the table of the simulated sets, as the file has it.
struct StoredSet
{
    int set = 0;
    double U = 0, f = 0, P = 0, n = 0, M = 0, Pmech = 0, eta = 0;
    std::string method;
    double Wp = 0, WpPlus = 0, WpMinus = 0;

    bool operator==(const StoredSet&) const = default;
};

/// The rows in the order of their sets; columns by their places in the table. None without a table.
inline std::vector<StoredSet> StoredSetsOf(const QString& path)
{
    SQLite::Database db(path.toStdString(), SQLite::OPEN_READWRITE);
    std::vector<StoredSet> sets;
    if (!db.tableExists("SimulatedValues"))
        return sets;
    SQLite::Statement query(db, "SELECT * FROM SimulatedValues ORDER BY [Set]");
    while (query.executeStep()) {
        const auto number = [&query](int column) { return query.getColumn(column).getDouble(); };
        sets.push_back({query.getColumn(0).getInt(), number(1), number(2), number(3), number(4), number(5), number(6),
                        number(7), query.getColumn(8).getString(), number(9), number(10), number(11)});
    }
    return sets;
}

/// For the failures of comparisons.
inline void PrintTo(const StoredSet& set, std::ostream* out)
{
    *out << set.set << ": " << set.P << " W at " << set.n << " rpm, " << set.M << " Nm";
}

class SimulationTest : public ProjectTest
{
protected:
    SimulationTest()
    {
        DeleteSection(kSettingsApplication, QStringLiteral("Settings"));
        App().ProgSettings = &settings;
    }

    static std::vector<StoredSet> StoredSets() { return StoredSetsOf(App().sProjectPath); }

    clsProgSettings settings{QStringLiteral("/opt/korvanel")};
};

} // namespace korvanel::test
