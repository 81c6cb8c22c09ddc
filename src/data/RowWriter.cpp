#include "data/RowWriter.h"

#include "core/NumberText.h"
#include "core/texts/DefaultTexts.h"

#include <cstdint>

namespace korvanel {

namespace {

/// Puts the value of one column into a statement. Positions count from 1.
void Bind(SQLite::Statement& statement, int position, const ValueColumn& column, tValueRow& row, const RowStamp& stamp)
{
    if (column.isEstimate && !stamp.isEstimated) {
        statement.bind(position);
        return;
    }
    switch (column.type) {
    case ColumnType::Key:
        statement.bind(position, static_cast<std::int64_t>(stamp.set));
        break;
    case ColumnType::DateTime:
        if (stamp.time.isEmpty())
            statement.bind(position);
        else
            statement.bind(position, stamp.time.toStdString());
        break;
    case ColumnType::Real:
        statement.bind(position, column.field(row));
        break;
    case ColumnType::Whole:
        statement.bind(position, static_cast<std::int64_t>(WholeSeconds(column.field(row))));
        break;
    case ColumnType::Mark:
        statement.bind(position, stamp.mark);
        break;
    case ColumnType::Letter:
        statement.bind(position, row.sMethod.toStdString());
        break;
    }
}

void BindAll(SQLite::Statement& statement, const std::vector<const ValueColumn*>& columns, tValueRow& row,
             const RowStamp& stamp)
{
    statement.tryReset();
    int position = 0;
    for (const ValueColumn* column : columns)
        Bind(statement, ++position, *column, row, stamp);
}

SQLite::Statement PrepareInsert(TableDb& db, ValueTable table, const std::vector<const ValueColumn*>& columns)
{
    std::string names;
    std::string places;
    for (const ValueColumn* column : columns) {
        names += (names.empty() ? "[" : ", [") + std::string(column->name) + "]";
        places += places.empty() ? "?" : ", ?";
    }
    const std::string sql = std::string("INSERT INTO ") + TableName(table) + " (" + names + ") VALUES (" + places + ")";
    return WithDbErrors([&] { return SQLite::Statement(db.Handle(), sql); });
}

/// Columns that a row by hand writes into a table. One that the configuration lacks counts as computed, and the engine
/// refuses it.
std::vector<const ValueColumn*> ColumnsByHand(ValueTable table, int netConf, ConfigMask ValueColumn::*mask)
{
    std::vector<const ValueColumn*> columns;
    for (const ValueColumn& column : ValueColumns()) {
        const bool isSampled = IsIn(column.sampled, netConf);
        const bool isHeld = column.type == ColumnType::Key || isSampled == (table == ValueTable::Sampled);
        if (isHeld && IsIn(column.*mask, netConf))
            columns.push_back(&column);
    }
    return columns;
}

} // namespace

RowWriter::RowWriter(TableDb& db, int netConf, RowOrigin origin) : database(db)
{
    for (const ValueTable table : {ValueTable::Sampled, ValueTable::Computed}) {
        std::vector<const ValueColumn*> columns = origin == RowOrigin::Measured
                                                      ? ColumnsOf(table, netConf)
                                                      : ColumnsByHand(table, netConf, &ValueColumn::appended);
        inserts.push_back({PrepareInsert(db, table, columns), std::move(columns)});
    }
}

void RowWriter::Append(tValueRow& row, const RowStamp& stamp)
{
    WithDbErrors([&] {
        DbTransaction transaction(database);
        for (Insert& insert : inserts) {
            BindAll(insert.statement, insert.columns, row, stamp);
            insert.statement.exec();
            insert.statement.tryReset();
        }
        transaction.Commit();
    });
}

SimulatedRowWriter::SimulatedRowWriter(TableDb& db)
    : statement(PrepareInsert(db, ValueTable::Simulated, ColumnsOf(ValueTable::Simulated, 0)))
{}

void SimulatedRowWriter::Put(qint64 set, tValueRow& row)
{
    static const std::vector<const ValueColumn*> columns = ColumnsOf(ValueTable::Simulated, 0);
    WithDbErrors([&] {
        BindAll(statement, columns, row, {.set = set, .time = {}, .mark = 0});
        statement.exec();
        statement.tryReset();
    });
}

RowUpdater::RowUpdater(TableDb& db, int netConf) : database(db)
{
    for (const ValueTable table : {ValueTable::Sampled, ValueTable::Computed}) {
        std::vector<const ValueColumn*> columns;
        for (const ValueColumn* column : ColumnsByHand(table, netConf, &ValueColumn::updated))
            if (column->type != ColumnType::Key)
                columns.push_back(column);
        if (columns.empty())
            continue;
        std::string sql = std::string("UPDATE ") + TableName(table) + " SET ";
        for (std::size_t i = 0; i < columns.size(); ++i)
            sql += (i == 0 ? "[" : ", [") + std::string(columns[i]->name) + "]=?";
        sql += " WHERE [Set]=?";
        changes.push_back({WithDbErrors([&] { return SQLite::Statement(db.Handle(), sql); }), std::move(columns)});
    }
}

void RowUpdater::Update(tValueRow& row, qint32 set)
{
    WithDbErrors([&] {
        DbTransaction transaction(database);
        for (Change& change : changes) {
            BindAll(change.statement, change.columns, row, {.set = set, .time = {}, .mark = row.bEdit});
            change.statement.bind(static_cast<int>(change.columns.size()) + 1, set);
            const int changed = change.statement.exec();
            change.statement.tryReset();
            if (changed != 1)
                throw DbError(FillPlaceholders(texts::noSuchSet, {QString::number(set)}).toStdString());
        }
        transaction.Commit();
    });
}

} // namespace korvanel
