// Writing sets: one prepared insert per value table, kept for the whole run. A row is two inserts in one transaction,
// so that a cut cable or a killed program leaves either the whole set or nothing of it.
#pragma once

#include "core/ProjectDb.h"
#include "core/ValueRow.h"
#include "data/SetRewriter.h"
#include "data/ValueColumns.h"

#include <QString>

#include <SQLiteCpp/Statement.h>

#include <vector>

namespace korvanel {

/// What a stored set holds beside the row itself.
struct RowStamp
{
    qint64 set = 0;
    QString time; ///< as stored; empty: null
    quint8 mark = 0;
    bool isEstimated = true; ///< false leaves speed, torque, shaft power, efficiency and method null
};

/// Which columns a writer fills.
enum class RowOrigin
{
    Measured, ///< all that the configuration has
    ByHand,   ///< those that a user enters, the rest null
};

class RowWriter : public Recordset
{
public:
    /// Prepares the inserts for a net configuration. Throws DbError, also for rows by hand in a configuration whose
    /// columns don't take them.
    RowWriter(TableDb& db, int netConf, RowOrigin origin);
    /// Stores one set. Throws DbError; nothing is stored then.
    void Append(tValueRow& row, const RowStamp& stamp);

private:
    struct Insert
    {
        SQLite::Statement statement;
        std::vector<const ValueColumn*> columns;
    };
    TableDb& database;
    std::vector<Insert> inserts;
};

/// The writer of simulated sets.
class SimulatedRowWriter : public Recordset, public SetTarget
{
public:
    explicit SimulatedRowWriter(TableDb& db);
    void Put(qint64 set, tValueRow& row) override;

private:
    SQLite::Statement statement;
};

/// Changes one stored set from the row: the columns that a user may correct. Prepared once for many rows.
class RowUpdater : public Recordset
{
public:
    RowUpdater(TableDb& db, int netConf);
    /// Throws DbError, also if there is no such set.
    void Update(tValueRow& row, qint32 set);

private:
    struct Change
    {
        SQLite::Statement statement;
        std::vector<const ValueColumn*> columns;
    };
    TableDb& database;
    std::vector<Change> changes;
};

} // namespace korvanel
