#include "data/SetCursor.h"

#include "data/RowQuantities.h"
#include "data/ValueColumns.h"

#include <sqlite3.h>

#include <algorithm>
#include <string>

namespace korvanel {

namespace {

struct Selection
{
    std::string join;
    std::string key;
    std::vector<const ValueColumn*> columns;
    std::vector<std::string> names;
};

/// Whether a column holds one of the quantities; without a choice every column is wanted.
bool IsWanted(const ValueColumn& column, std::span<const int> quantities)
{
    if (quantities.empty())
        return true;
    tValueRow row;
    return column.field && std::any_of(quantities.begin(), quantities.end(), [&](int quantity) {
               return &column.field(row) == &QuantityField(row, quantity);
           });
}

Selection Select(int netConf, SetSource source, std::span<const int> quantities)
{
    Selection selection;
    const auto add = [&](const ValueColumn& column, const std::string& name) {
        if (!IsWanted(column, quantities))
            return;
        selection.columns.push_back(&column);
        selection.names.push_back(name);
    };
    const auto bracketed = [](const ValueColumn& column) { return '[' + std::string(column.name) + ']'; };
    if (source == SetSource::Simulated) {
        selection.join = kSimulatedJoin;
        selection.key = "SampledValues.[Set]";
        for (const ValueColumn* column : ColumnsOf(ValueTable::Simulated, netConf))
            if (column->type != ColumnType::Key)
                add(*column, "SimulatedValues." + bracketed(*column));
        return selection;
    }
    const bool isScratch = source == SetSource::Scratch;
    selection.join = isScratch ? "[Temp]" : kMeasuredJoin;
    selection.key = isScratch ? "[SampledValues_Set]" : "SampledValues.[Set]";
    for (const ValueColumn& column : ValueColumns()) {
        const bool isStored = IsIn(column.sampled, netConf) || IsIn(column.computed, netConf);
        if (isStored && column.type != ColumnType::Key)
            add(column, isScratch ? bracketed(column) : QualifiedName(column, netConf));
    }
    return selection;
}

[[noreturn]] void Fail(sqlite3* handle)
{
    throw DbError(sqlite3_errmsg(handle));
}

std::string_view ColumnText(sqlite3_stmt* statement, int column)
{
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
    return {text ? text : "", text ? static_cast<std::size_t>(sqlite3_column_bytes(statement, column)) : 0};
}

/// Whatever isn't 0 marks a set, were it beyond a byte.
quint8 MarkOf(qint64 stored)
{
    return stored >= 0 && stored <= kCorrected ? static_cast<quint8>(stored) : kCorrected;
}

} // namespace

SetQuery::SetQuery(TableDb& db, int netConf, SetSource source, SetRange range, std::span<const int> quantities)
{
    const Selection selection = Select(netConf, source, quantities);
    std::string sql = "SELECT " + selection.key;
    for (std::size_t i = 0; i < selection.columns.size(); ++i) {
        sql += ", " + selection.names[i];
        const int column = static_cast<int>(i) + 1;
        switch (selection.columns[i]->type) {
        case ColumnType::Key:
            break;
        case ColumnType::DateTime:
            timeColumn = column;
            break;
        case ColumnType::Mark:
            markColumn = column;
            break;
        case ColumnType::Letter:
            letterColumn = column;
            break;
        case ColumnType::Real:
        case ColumnType::Whole:
            reals.push_back({selection.columns[i]->field, column});
            break;
        }
    }
    sql += " FROM " + selection.join;
    sql += range == SetRange::One ? " WHERE " + selection.key + "=?" : " ORDER BY " + selection.key;
    sqlite3* handle = db.Handle().getHandle();
    if (sqlite3_prepare_v3(handle, sql.c_str(), -1, SQLITE_PREPARE_PERSISTENT, &statement, nullptr) != SQLITE_OK)
        Fail(handle);
}

SetQuery::~SetQuery()
{
    sqlite3_finalize(statement);
}

void SetQuery::Seek(qint32 set)
{
    sqlite3_reset(statement);
    sqlite3_bind_int(statement, 1, set);
}

void SetQuery::Release()
{
    sqlite3_reset(statement);
}

bool SetQuery::Step()
{
    const int result = sqlite3_step(statement);
    if (result == SQLITE_ROW)
        return true;
    if (result != SQLITE_DONE)
        Fail(sqlite3_db_handle(statement));
    sqlite3_reset(statement);
    return false;
}

qint32 SetQuery::Set() const
{
    return sqlite3_column_int(statement, 0);
}

void SetQuery::Fill(tValueRow& row) const
{
    for (const Binding& binding : reals)
        binding.field(row) = sqlite3_column_double(statement, binding.column);
    if (markColumn >= 0)
        row.bEdit = MarkOf(sqlite3_column_int64(statement, markColumn));
    if (letterColumn >= 0) {
        const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, letterColumn));
        const int length = text ? sqlite3_column_bytes(statement, letterColumn) : 0;
        // Nearly always the letter of the row before: then the text is shared instead of made anew.
        if (row.sMethod.size() != length || length != 1 || row.sMethod.front() != QLatin1Char(text[0]))
            row.sMethod = QString::fromUtf8(text, length);
    }
}

std::string_view SetQuery::StoredTimeUtf8() const
{
    return timeColumn < 0 ? std::string_view() : ColumnText(statement, timeColumn);
}

QString SetQuery::StoredTime() const
{
    const std::string_view text = StoredTimeUtf8();
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace korvanel
