// The way of a run's rows into the file. A row that meets a file in use is kept and stored, in order, as soon as the
// file is free; nothing is lost over a backup or a viewer that reads for a moment.
#pragma once

#include "data/RowWriter.h"

#include <deque>
#include <functional>

namespace korvanel {

/// A row with what is stored in the same transaction.
struct RowToStore
{
    tValueRow row;
    RowStamp stamp;
    std::function<void()> beside; ///< may throw DbError, which takes the row back too
};

class MeasuredRowStore : public Recordset
{
public:
    /// Prepares for a net configuration. Throws DbError.
    MeasuredRowStore(TableDb& db, int netConf);
    /// Stores the rows that are kept and this one, each in a transaction of its own; those that the file doesn't take
    /// at the moment are kept. Throws DbError for any other failure; the row is lost then.
    void Put(RowToStore row);
    /// Stores what is kept as far as the file takes it now. Throws DbError.
    void StoreKept();
    /// How many rows are kept.
    qint32 Kept() const { return static_cast<qint32>(kept.size()); }

private:
    void Store(RowToStore& row);

    TableDb& database;
    RowWriter writer;
    std::deque<RowToStore> kept;
};

} // namespace korvanel
