#include "data/MeasuredRowStore.h"

namespace korvanel {

MeasuredRowStore::MeasuredRowStore(TableDb& db, int netConf) : database(db), writer(db, netConf, RowOrigin::Measured) {}

void MeasuredRowStore::Put(RowToStore row)
{
    kept.push_back(std::move(row));
    StoreKept();
}

void MeasuredRowStore::StoreKept()
{
    while (!kept.empty()) {
        try {
            Store(kept.front());
        } catch (const DbLocked&) {
            return;
        } catch (...) {
            kept.pop_front(); // those behind it stay: nothing is stored past a set that is missing
            throw;
        }
        kept.pop_front();
    }
}

void MeasuredRowStore::Store(RowToStore& row)
{
    DbTransaction transaction(database);
    writer.Append(row.row, row.stamp);
    if (row.beside)
        row.beside();
    transaction.Commit();
}

} // namespace korvanel
