#include "editor/SetMoves.h"

#include "core/Common.h"
#include "core/ProjectDb.h"
#include "data/PassOverSets.h"
#include "data/SetRewriter.h"
#include "editor/ToldChange.h"

#include <SQLiteCpp/Statement.h>

#include <cstdint>
#include <string>

namespace korvanel {

bool AreThere(qint32 first, qint32 count)
{
    SQLite::Statement query(ProjectDb().Handle(), std::string("SELECT COUNT(*) FROM ") + kMeasuredJoin +
                                                      " WHERE SampledValues.[Set] BETWEEN ? AND ?");
    query.bind(1, first);
    query.bind(2, static_cast<std::int64_t>(first) + count - 1);
    query.executeStep();
    return query.getColumn(0).getInt() == count;
}

/// The end toward which the sets move goes first, so that no number is there twice.
void MoveSets(qint32 first, qint32 last, qint32 by)
{
    for (const ValueTable table : kRowTables) {
        SQLite::Statement update(ProjectDb().Handle(),
                                 std::string("UPDATE [") + TableName(table) + "] SET [Set]=? WHERE [Set]=?");
        for (qint32 done = 0; done <= last - first; ++done) {
            const qint32 set = by > 0 ? last - done : first + done;
            update.bind(1, set + by);
            update.bind(2, set);
            update.exec();
            update.reset();
            TellProgress(done);
        }
    }
}

std::string ColumnsWithoutStamp(ValueTable table)
{
    std::string columns;
    SQLite::Statement info(ProjectDb().Handle(), std::string("PRAGMA table_info(") + TableName(table) + ")");
    while (info.executeStep()) {
        const std::string name = info.getColumn(1).getString();
        if (name != "Set" && name != "Time")
            columns += ", [" + name + ']';
    }
    return columns;
}

void CopySets(qint32 first, qint32 count, qint32 by)
{
    for (const ValueTable table : kRowTables) {
        const std::string name = TableName(table);
        const std::string columns = ColumnsWithoutStamp(table); // the stamp, which isn't among them, becomes null
        std::string sql = "INSERT INTO [";
        sql.append(name).append("] ([Set]").append(columns).append(") SELECT [Set]-?").append(columns);
        sql.append(" FROM [").append(name).append("] WHERE [Set] BETWEEN ? AND ?");
        SQLite::Statement copy(ProjectDb().Handle(), sql);
        copy.bind(1, by);
        copy.bind(2, first + by);
        copy.bind(3, first + by + count - 1);
        copy.exec();
    }
}

void DeleteRows(qint32 first, qint32 count)
{
    for (const ValueTable table : kRowTables) {
        SQLite::Statement remove(ProjectDb().Handle(),
                                 std::string("DELETE FROM [") + TableName(table) + "] WHERE [Set] BETWEEN ? AND ?");
        remove.bind(1, first);
        remove.bind(2, first + count - 1);
        remove.exec();
    }
}

void RenumberAll()
{
    static constexpr int kTime[] = {kColumnTime};
    static constexpr int kNumberAlone[] = {kU};
    ChosenColumns target(ProjectDb(), App().iNetConfIndex, kTime);
    RewriteSets(
        ProjectDb(), App().iNetConfIndex, {.source = SetSource::Sampled, .quantities = kNumberAlone}, target,
        [](qint64 set, tValueRow& row) { row.dt = static_cast<double>(set - 1) * App().dInterval; }, AdvanceOverSets);
}

} // namespace korvanel
