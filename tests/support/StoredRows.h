// Sets of a recording, and those of a second machine, put into the open project as they are.
#pragma once

#include "core/Common.h"
#include "core/ProjectDb.h"
#include "data/RowWriter.h"
#include "data/ValueTables.h"

#include <span>

namespace korvanel::test {

/// Stores rows as sets 1 to n in one transaction, with their marks and one time stamp, and counts them.
inline void StoreRows(std::span<tValueRow> rows)
{
    const ProjectDbScope scope;
    DbTransaction transaction(ProjectDb());
    {
        RowWriter writer(ProjectDb(), App().iNetConfIndex, RowOrigin::Measured);
        qint32 set = 0;
        for (tValueRow& row : rows)
            writer.Append(row, {.set = ++set, .time = QStringLiteral("2026-03-14 15:09:26"), .mark = row.bEdit});
    }
    transaction.Commit();
    RefreshSetCount();
}

/// Stores rows as what a second machine did in sets 1 to n, in place of what was stored of one before.
inline void StoreSimulated(std::span<tValueRow> rows)
{
    const ProjectDbScope scope;
    DbTransaction transaction(ProjectDb());
    DropTable(QStringLiteral("SimulatedValues"));
    CreateSimulatedTable();
    {
        SimulatedRowWriter writer(ProjectDb());
        qint32 set = 0;
        for (tValueRow& row : rows)
            writer.Put(++set, row);
    }
    transaction.Commit();
}

} // namespace korvanel::test
