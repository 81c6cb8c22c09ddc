#include "data/SetReader.h"

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
    return quantities.empty() || std::find(quantities.begin(), quantities.end(), column.quantity) != quantities.end();
}

std::string Bracketed(const ValueColumn& column)
{
    return '[' + std::string(column.name) + ']';
}

/// Whether a column tells of the set itself rather than of a machine: time, time stamp, mark of correction.
bool IsOfTheSet(const ValueColumn& column)
{
    return column.type == ColumnType::Whole || column.type == ColumnType::DateTime || column.type == ColumnType::Mark;
}

/// Whether a source has a column in a net configuration.
bool IsStored(const ValueColumn& column, int netConf, SetSource source)
{
    const bool isSampled = IsIn(column.sampled, netConf);
    switch (source) {
    case SetSource::Simulated:
        return column.simulatedPosition > 0 || IsOfTheSet(column);
    case SetSource::Sampled:
        return isSampled;
    case SetSource::Measured:
    case SetSource::Scratch:
        break;
    }
    return isSampled || IsIn(column.computed, netConf);
}

/// The table of a column within a source.
const char* TableIn(const ValueColumn& column, int netConf, SetSource source)
{
    switch (source) {
    case SetSource::Simulated:
        return TableName(IsOfTheSet(column) ? ValueTable::Sampled : ValueTable::Simulated);
    case SetSource::Scratch:
        return "Temp";
    case SetSource::Measured:
    case SetSource::Sampled:
        break;
    }
    return TableName(IsIn(column.sampled, netConf) ? ValueTable::Sampled : ValueTable::Computed);
}

Selection Select(TableDb& db, int netConf, SetSource source, std::span<const int> quantities)
{
    Selection selection;
    const bool isScratch = source == SetSource::Scratch;
    selection.key = isScratch ? "[SampledValues_Set]" : "SampledValues.[Set]";
    selection.join = isScratch                        ? "[Temp]"
                     : source == SetSource::Simulated ? kSimulatedJoin
                     : source == SetSource::Sampled   ? "SampledValues"
                                                      : kMeasuredJoin;
    for (const ValueColumn& column : ValueColumns()) {
        if (column.type == ColumnType::Key || !IsStored(column, netConf, source) || !IsWanted(column, quantities))
            continue;
        selection.columns.push_back(&column);
        selection.names.push_back(ReadName(db, column, netConf, source));
    }
    return selection;
}

std::string ConditionOf(SetRange range, const std::string& key)
{
    switch (range) {
    case SetRange::One:
        return " WHERE " + key + "=?";
    case SetRange::Between:
        return " WHERE " + key + " BETWEEN ? AND ? ORDER BY " + key;
    case SetRange::Behind:
        return " WHERE " + key + ">? ORDER BY " + key + " LIMIT ?";
    case SetRange::All:
        break;
    }
    return " ORDER BY " + key;
}

[[noreturn]] void Fail(sqlite3* handle)
{
    ThrowDbError(sqlite3_errcode(handle), sqlite3_errmsg(handle));
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

std::string ReadName(TableDb& db, const ValueColumn& column, int netConf, SetSource source)
{
    const char* const table = TableIn(column, netConf, source);
    if (column.since > 1 && !db.HasColumn(table, column.name))
        return "NULL";
    return '[' + std::string(table) + "]." + Bracketed(column);
}

SetReader::SetReader(TableDb& db, int netConf, SetRange range, SetSource source, std::span<const int> quantities)
{
    const Selection selection = Select(db, netConf, source, quantities);
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
    sql += ConditionOf(range, selection.key);
    sqlite3* handle = db.Handle().getHandle();
    if (sqlite3_prepare_v3(handle, sql.c_str(), -1, SQLITE_PREPARE_PERSISTENT, &statement, nullptr) != SQLITE_OK)
        Fail(handle);
}

SetReader::~SetReader()
{
    sqlite3_finalize(statement);
}

void SetReader::Seek(qint64 first, qint64 second)
{
    sqlite3_reset(statement);
    sqlite3_bind_int64(statement, 1, first);
    if (sqlite3_bind_parameter_count(statement) > 1)
        sqlite3_bind_int64(statement, 2, second);
}

void SetReader::Release()
{
    sqlite3_reset(statement);
}

bool SetReader::Step()
{
    const int result = sqlite3_step(statement);
    if (result == SQLITE_ROW)
        return true;
    if (result != SQLITE_DONE)
        Fail(sqlite3_db_handle(statement));
    sqlite3_reset(statement);
    return false;
}

qint64 SetReader::Key() const
{
    return sqlite3_column_int64(statement, 0);
}

void SetReader::FillInto(tValueRow& other) const
{
    for (const Binding& binding : reals)
        binding.field(other) = sqlite3_column_double(statement, binding.column);
    if (markColumn >= 0)
        other.bEdit = MarkOf(sqlite3_column_int64(statement, markColumn));
    if (letterColumn >= 0) {
        const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, letterColumn));
        const int length = text ? sqlite3_column_bytes(statement, letterColumn) : 0;
        // Nearly always the letter of the row before: then the text is shared instead of made anew.
        if (other.sMethod.size() != length || length != 1 || other.sMethod.front() != QLatin1Char(text[0]))
            other.sMethod = QString::fromUtf8(text, length);
    }
}

std::string_view SetReader::StoredTimeUtf8() const
{
    return timeColumn < 0 ? std::string_view() : ColumnText(statement, timeColumn);
}

QString SetReader::StoredTime() const
{
    const std::string_view text = StoredTimeUtf8();
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace korvanel
