// Reading sets. `SetQuery` is one prepared read over a join of the value tables; `SetCursor` walks all sets in order
// with it, in constant memory; `ReadRow` looks up single sets. Columns are bound to fields of the row once, when the
// query is prepared, so that a row costs no look-up by name.
#pragma once

#include "core/ProjectDb.h"
#include "core/ValueRow.h"

#include <QString>

#include <span>
#include <string_view>
#include <vector>

struct sqlite3_stmt;

namespace korvanel {

enum class SetSource
{
    Measured,  ///< SampledValues with ComputedValues
    Scratch,   ///< the scratch table Temp, a copy of that join
    Simulated, ///< SampledValues with SimulatedValues: the fields that a simulation has
};

/// Whether a query gives the one set that is asked for, or all in order.
enum class SetRange
{
    One,
    All
};

class SetQuery : public Recordset
{
public:
    /// Prepares the query for the columns of a net configuration: all of them, or those of some quantities alone.
    /// Throws DbError.
    SetQuery(TableDb& db, int netConf, SetSource source, SetRange range, std::span<const int> quantities = {});
    ~SetQuery() override;

    /// Chooses the set of a query for one set.
    void Seek(qint32 set);
    /// Steps to the next row; false at the end. Throws DbError.
    bool Step();
    /// Gives up the present row, so that the file is locked no longer than needed.
    void Release();
    /// Number of the set of the present row.
    qint32 Set() const;
    /// Fills the fields that the configuration stores and leaves the others. Nulls and texts read as numbers give 0.
    void Fill(tValueRow& row) const;
    /// Time stamp of the present row as stored; empty if it has none.
    QString StoredTime() const;
    /// The same in UTF-8, until the next step.
    std::string_view StoredTimeUtf8() const;

private:
    struct Binding
    {
        double& (*field)(tValueRow&);
        int column;
    };
    sqlite3_stmt* statement = nullptr;
    std::vector<Binding> reals;
    int timeColumn = -1;
    int markColumn = -1;
    int letterColumn = -1;
};

/// All sets from the first to the last.
class SetCursor
{
public:
    /// Over all columns of the net configuration, or those of some quantities alone.
    SetCursor(TableDb& db, int netConf, SetSource source = SetSource::Measured, std::span<const int> quantities = {})
        : query(db, netConf, source, SetRange::All, quantities)
    {}
    /// Fills the row from the next set; false behind the last one.
    bool Next(tValueRow& row)
    {
        if (!query.Step())
            return false;
        query.Fill(row);
        return true;
    }
    qint32 Set() const { return query.Set(); }
    QString StoredTime() const { return query.StoredTime(); }
    std::string_view StoredTimeUtf8() const { return query.StoredTimeUtf8(); }

private:
    SetQuery query;
};

} // namespace korvanel
