// Reading sets. A reader is one prepared read over a join of the value tables and the row that it fills: one set, the
// sets of a range, all of them in order, or the next few behind a set. Columns are bound to fields of the row once,
// when the reader is prepared, so that a row costs no look-up by name, and memory stays constant however long the
// recording.
#pragma once

#include "core/ProjectDb.h"
#include "core/ValueRow.h"
#include "data/ValueColumns.h"

#include <QString>

#include <span>
#include <string_view>
#include <vector>

struct sqlite3_stmt;

namespace korvanel {

enum class SetSource
{
    Measured,  ///< SampledValues with ComputedValues
    Sampled,   ///< SampledValues alone
    Scratch,   ///< the scratch table Temp, a copy of the join of Measured
    Simulated, ///< SimulatedValues, with time and mark of the same sets of SampledValues
};

/// Which sets a reader gives.
enum class SetRange
{
    One,     ///< that of `Seek(set)`
    Between, ///< those of `Seek(first, last)`, in order
    Behind,  ///< those of `Seek(set, count)`: at most so many behind a set, in order
    All      ///< all of them, in order
};

/// What a read names for a column of a source: its name, or Null for a column that came with a later schema than the
/// file's, as in a write-protected file from before.
std::string ReadName(TableDb& db, const ValueColumn& column, int netConf, SetSource source);

class SetReader : public Recordset
{
public:
    /// Prepares the read of the columns of a net configuration: all of them, or those of some quantities alone. A
    /// reader of a range wants a `Seek` first. Throws DbError, as all that follows.
    SetReader(TableDb& db, int netConf, SetRange range = SetRange::All, SetSource source = SetSource::Measured,
              std::span<const int> quantities = {});
    ~SetReader() override;

    /// Chooses the sets of a range and begins anew.
    void Seek(qint64 first, qint64 second = 0);
    /// Fills the row from the next set; false behind the last one.
    bool Next()
    {
        if (!Step())
            return false;
        FillInto(row);
        return true;
    }
    /// The set that was read last. Fields that the configuration doesn't store are 0; nulls and texts read as numbers
    /// give 0.
    const tValueRow& Row() const { return row; }
    /// Number of the set, until the next step.
    qint32 Set() const { return static_cast<qint32>(Key()); }
    /// The same as the file has it.
    qint64 Key() const;
    /// Time stamp as stored, in UTF-8, until the next step; empty if the set has none.
    std::string_view StoredTimeUtf8() const;
    QString StoredTime() const;

    /// Steps to the next set without filling the row; false at the end.
    bool Step();
    /// Fills those fields of another row that the configuration stores, and leaves the others.
    void FillInto(tValueRow& other) const;
    /// Gives up the present set, so that the file is locked no longer than needed.
    void Release();

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
    tValueRow row;
};

} // namespace korvanel
