#include "data/SetRewriter.h"

#include "core/NumberText.h"
#include "core/texts/DefaultTexts.h"

#include <sqlite3.h>

#include <algorithm>
#include <limits>
#include <string>

namespace korvanel {

namespace {

constexpr int kBlockSize = 256;

struct Finalizer
{
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Statement = std::unique_ptr<sqlite3_stmt, Finalizer>;

Statement Prepare(sqlite3* handle, const std::string& sql)
{
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v3(handle, sql.c_str(), -1, SQLITE_PREPARE_PERSISTENT, &statement, nullptr) != SQLITE_OK)
        ThrowDbError(sqlite3_errcode(handle), sqlite3_errmsg(handle));
    return Statement(statement);
}

void Run(const Statement& statement)
{
    const int result = sqlite3_step(statement.get());
    sqlite3_reset(statement.get());
    if (result != SQLITE_DONE)
        ThrowDbError(result, sqlite3_errmsg(sqlite3_db_handle(statement.get())));
}

[[noreturn]] void ThrowNoSuchSet(qint64 set)
{
    throw DbError(FillPlaceholders(texts::noSuchSet, {QString::number(set)}).toStdString());
}

/// A column counts as computed where the samples don't have it, so that the engine refuses one that nobody has.
ValueTable TableOf(const ValueColumn& column, int netConf)
{
    return IsIn(column.sampled, netConf) ? ValueTable::Sampled : ValueTable::Computed;
}

} // namespace

struct ChosenColumns::Change
{
    Statement statement;
    std::vector<const ValueColumn*> columns;
};

namespace {

/// Puts the value of one column into a statement.
void Bind(sqlite3_stmt* statement, int position, const ValueColumn& column, tValueRow& row)
{
    switch (column.type) {
    case ColumnType::Real:
        sqlite3_bind_double(statement, position, column.field(row));
        break;
    case ColumnType::Whole:
        sqlite3_bind_int64(statement, position, WholeSeconds(column.field(row)));
        break;
    case ColumnType::Letter:
        sqlite3_bind_text16(statement, position, row.sMethod.utf16(), 2 * static_cast<int>(row.sMethod.size()),
                            SQLITE_TRANSIENT);
        break;
    case ColumnType::Key:
    case ColumnType::DateTime:
    case ColumnType::Mark: // never chosen by a number
        break;
    }
}

} // namespace

ChosenColumns::ChosenColumns(TableDb& db, int netConf, std::span<const int> quantities, std::optional<quint8> mark)
    : database(db), markOfAll(mark)
{
    sqlite3* const handle = db.Handle().getHandle();
    for (const ValueTable table : {ValueTable::Sampled, ValueTable::Computed}) {
        Change change;
        std::string assignments;
        for (const ValueColumn& column : ValueColumns()) {
            const bool isChosen = std::find(quantities.begin(), quantities.end(), column.quantity) != quantities.end();
            if (!isChosen || TableOf(column, netConf) != table)
                continue;
            assignments += (assignments.empty() ? "[" : ", [") + std::string(column.name) + "]=?";
            change.columns.push_back(&column);
        }
        if (assignments.empty())
            continue;
        change.statement =
            Prepare(handle, std::string("UPDATE ") + TableName(table) + " SET " + assignments + " WHERE [Set]=?");
        changes.push_back(std::move(change));
    }
    if (mark)
        marking = std::make_unique<Change>(
            Change{Prepare(handle, "UPDATE SampledValues SET [Edit]=? WHERE [Set] BETWEEN ? AND ?"), {}});
}

ChosenColumns::~ChosenColumns() = default;

void ChosenColumns::Put(qint64 set, tValueRow& row)
{
    for (const Change& change : changes) {
        sqlite3_stmt* const statement = change.statement.get();
        int position = 0;
        for (const ValueColumn* column : change.columns)
            Bind(statement, ++position, *column, row);
        sqlite3_bind_int64(statement, ++position, set);
        Run(change.statement);
        if (sqlite3_changes(database.Handle().getHandle()) != 1)
            ThrowNoSuchSet(set);
    }
}

void ChosenColumns::EndBlock(qint64 first, qint64 last)
{
    if (!marking)
        return;
    sqlite3_stmt* const statement = marking->statement.get();
    sqlite3_bind_int(statement, 1, *markOfAll);
    sqlite3_bind_int64(statement, 2, first);
    sqlite3_bind_int64(statement, 3, last);
    Run(marking->statement);
}

namespace {

struct ReadSet
{
    qint64 set = 0;
    tValueRow row;
};

/// Reads the sets behind one; those that were read. The rows are used again and again.
std::span<ReadSet> ReadBlock(SetReader& reader, qint64 behind, std::vector<ReadSet>& rows)
{
    std::size_t count = 0;
    qint64 last = behind;
    reader.Seek(behind, kBlockSize);
    while (reader.Step()) {
        ReadSet& read = rows.at(count++);
        read.set = reader.Key();
        if (read.set <= last) // as texts give it; the walk would never end
            ThrowNoSuchSet(last + 1);
        last = read.set;
        reader.FillInto(read.row);
    }
    return std::span(rows).first(count);
}

} // namespace

void RewriteSets(TableDb& db, int netConf, const RewriteSource& source, SetTarget& target,
                 const SetTransform& transform, const std::function<void(qint32 done)>& advance)
{
    SetReader reader(db, netConf, SetRange::Behind, source.source, source.quantities);
    std::vector<ReadSet> rows(kBlockSize);
    qint64 behind = std::numeric_limits<qint64>::min();
    qint32 done = 0;
    for (;;) {
        const std::span<ReadSet> block = ReadBlock(reader, behind, rows);
        if (block.empty())
            return;
        for (ReadSet& read : block) {
            transform(read.set, read.row);
            target.Put(read.set, read.row);
        }
        behind = block.back().set;
        target.EndBlock(block.front().set, behind);
        done += static_cast<qint32>(block.size());
        advance(done);
    }
}

} // namespace korvanel
