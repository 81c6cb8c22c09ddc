// The rows of the table `Motor`, in the motor database and in a project alike.
#include "core/Common.h"
#include "core/NumberText.h"
#include "core/texts/DefaultTexts.h"
#include "motors/MotorColumns.h"
#include "motors/MotorDatabase.h"

#include <algorithm>
#include <limits>

namespace korvanel {

namespace {

const std::string kFrom = std::string(" FROM [") + kMotorTable + ']';
const std::string kWhereKey = " WHERE [set_ID]=?";
const std::string kListOrder = " ORDER BY [Polpaarzahl],[U],[Pmech],[M],[n],[I],[eta],[Hersteller]";

std::string SelectSql(TableDb& db)
{
    return "SELECT " + MotorReadNames(db, MotorColumns()) + kFrom;
}

std::string InsertSql()
{
    std::string places;
    for (std::size_t i = 0; i < MotorColumns().size(); ++i)
        places += i == 0 ? "?" : ", ?";
    return std::string("INSERT INTO [") + kMotorTable + "] (" + MotorColumnNames(MotorColumns()) + ") VALUES (" +
           places + ')';
}

std::string UpdateSql()
{
    std::string assignments;
    for (const MotorColumn& column : MotorDataColumns())
        assignments += std::string(assignments.empty() ? "" : ", ") + '[' + column.name + "]=?";
    return std::string("UPDATE [") + kMotorTable + "] SET " + assignments + kWhereKey;
}

/// Takes a row of `SelectSql`; the column that holds something unexpected, or nothing.
const MotorColumn* TakeRow(SQLite::Statement& row, MachineRecord& record)
{
    record = MachineRecord();
    int index = 0;
    for (const MotorColumn& column : MotorColumns())
        if (!TakeValue(row.getColumn(index++), column, record))
            return &column;
    return nullptr;
}

/// The least number from 1 on that no row has.
qint32 FirstFreeNumber(TableDb& db)
{
    SQLite::Statement numbers(db.Handle(), "SELECT [set_ID]" + kFrom + " WHERE [set_ID]>=1 ORDER BY [set_ID]");
    qint32 free = 1;
    while (numbers.executeStep() && numbers.getColumn(0).getInt64() <= free) {
        if (free == std::numeric_limits<qint32>::max())
            throw DbError("no number is left");
        free += numbers.getColumn(0).getInt64() == free ? 1 : 0;
    }
    return free;
}

void InsertRow(TableDb& db, const MachineRecord& record)
{
    SQLite::Statement insert(db.Handle(), InsertSql());
    int position = 1;
    for (const MotorColumn& column : MotorColumns())
        BindValue(insert, position++, column, record);
    insert.exec();
}

void UpdateRow(TableDb& db, const MachineRecord& record)
{
    SQLite::Statement update(db.Handle(), UpdateSql());
    int position = 1;
    for (const MotorColumn& column : MotorDataColumns())
        BindValue(update, position++, column, record);
    update.bind(position, record.set_ID.value_or(0));
    if (update.exec() == 0)
        throw DbError(FillPlaceholders(texts::noSuchSet, {QString::number(record.set_ID.value_or(0))}).toStdString());
}

std::string FilterSql(const MachineFilter& filter)
{
    std::string sql;
    const auto add = [&sql](bool isAsked, const char* condition) {
        if (isAsked)
            sql.append(sql.empty() ? " WHERE " : " AND ").append(condition);
    };
    add(filter.polePairs.has_value(), "[Polpaarzahl] = ?");
    add(filter.Pmech.has_value(), filter.isGenerator ? "[Pmech] <= ?" : "[Pmech] >= ?");
    add(filter.U.has_value(), "[U] = ?");
    add(filter.f.has_value(), "[f] = ?");
    add(filter.Hersteller.has_value(), "[Hersteller] = ?");
    return sql;
}

void BindFilter(SQLite::Statement& row, const MachineFilter& filter)
{
    int position = 0;
    if (filter.polePairs)
        row.bind(++position, *filter.polePairs);
    for (const std::optional<double>& number : {filter.Pmech, filter.U, filter.f})
        if (number)
            row.bind(++position, *number);
    if (filter.Hersteller)
        row.bind(++position, filter.Hersteller->toStdString());
}

} // namespace

void ReadMachine(TableDb& db, qint32 set_ID, MachineRecord& record)
{
    WithDbErrors([&] {
        record = MachineRecord();
        SQLite::Statement row(db.Handle(), SelectSql(db) + kWhereKey);
        row.bind(1, set_ID);
        if (!row.executeStep())
            return;
        if (const MotorColumn* wrong = TakeRow(row, record)) {
            record = MachineRecord();
            throw DbError(std::string("unexpected value of \"") + wrong->name + '"');
        }
    });
}

void WriteMachine(TableDb& db, MachineRecord& record, bool isNew)
{
    WithDbErrors([&] {
        DbTransaction transaction(db); // nobody else takes the free number meanwhile
        AddLaterMotorColumns(db, MotorColumns());
        MachineRecord row = record;
        if (isNew && !row.set_ID)
            row.set_ID = FirstFreeNumber(db);
        if (isNew)
            InsertRow(db, row);
        else
            UpdateRow(db, row);
        transaction.Commit();
        record.set_ID = row.set_ID;
    });
}

void DeleteMachine(TableDb& db, qint32 set_ID)
{
    WithDbErrors([&] {
        SQLite::Statement row(db.Handle(), std::string("DELETE") + kFrom + kWhereKey);
        row.bind(1, set_ID);
        row.exec();
    });
}

bool FindDuplicate(TableDb& db, MachineRecord& record, DuplicateScope scope, std::optional<qint32> id)
{
    // "[x] = Null" is never true, so that a machine with anything unknown counts as a new one each time. That is
    // wanted.
    std::string sql = "SELECT [set_ID]" + kFrom;
    for (const MotorColumn& column : MotorDataColumns())
        sql += (&column == MotorDataColumns().data() ? " WHERE " : " AND ") + ComparisonOf(db, column);
    std::optional<qint32> end;
    if (scope == DuplicateScope::OthersOnly)
        end = record.set_ID; // without a number of its own every row is another one's
    if (scope == DuplicateScope::Row)
        end = id;
    if (end)
        sql += scope == DuplicateScope::OthersOnly ? " AND [set_ID] <> ?" : " AND [set_ID] = ?";
    return WithDbErrors([&] {
        SQLite::Statement query(db.Handle(), sql);
        int position = 1;
        for (const MotorColumn& column : MotorDataColumns())
            position = BindComparison(db, query, position, column, record);
        if (end)
            query.bind(position, *end);
        const bool isFound = query.executeStep();
        if (scope == DuplicateScope::Any) {
            record.set_ID.reset();
            if (isFound)
                TakeValue(query.getColumn(0), MotorColumns().front(), record);
        }
        return isFound;
    });
}

void VisitMachines(TableDb& db, const std::optional<MachineFilter>& filter,
                   const std::function<bool(const MachineLine&)>& visit)
{
    WithDbErrors([&] {
        SQLite::Statement row(db.Handle(), SelectSql(db) + (filter ? FilterSql(*filter) : std::string()) + kListOrder);
        if (filter)
            BindFilter(row, *filter);
        MachineLine line;
        while (row.executeStep()) {
            const bool isReadable = !TakeRow(row, line.record);
            if (!isReadable || line.record.set_ID.value_or(0) < 1)
                continue;
            line.set_ID = *line.record.set_ID;
            if (!visit(line))
                return;
        }
    });
}

std::vector<qint32> ListMachineNumbers(TableDb& db, const std::optional<MachineFilter>& filter)
{
    std::vector<qint32> numbers;
    VisitMachines(db, filter, [&numbers](const MachineLine& line) {
        numbers.push_back(line.set_ID);
        return true;
    });
    return numbers;
}

int CountMachinesUpTo(TableDb& db, int limit)
{
    return WithDbErrors([&] {
        SQLite::Statement row(db.Handle(), SelectSql(db));
        MachineRecord record;
        int count = 0;
        while (count < limit && row.executeStep())
            count += !TakeRow(row, record) && record.set_ID.value_or(0) >= 1 ? 1 : 0;
        return count;
    });
}

std::vector<MachineRecord> ReadMachines(TableDb& db, std::span<const qint32> numbers)
{
    std::vector<MachineRecord> records(numbers.size());
    std::string list;
    for (const qint32 number : numbers)
        list.append(list.empty() ? "" : ",").append(std::to_string(number));
    WithDbErrors([&] {
        SQLite::Statement row(db.Handle(), SelectSql(db) + " WHERE [set_ID] IN (" + list + ')');
        MachineRecord record;
        while (row.executeStep()) {
            if (TakeRow(row, record) || !record.set_ID)
                continue;
            const auto place = std::find(numbers.begin(), numbers.end(), *record.set_ID);
            if (place != numbers.end())
                records.at(static_cast<std::size_t>(place - numbers.begin())) = record;
        }
    });
    return records;
}

std::vector<MachineRecord> MachinesOfRows(std::span<const qint32> numbers, int first, int count)
{
    const int end = std::min(static_cast<int>(numbers.size()), first + count);
    if (first >= end)
        return {};
    try {
        TableDb db = TableDb::Open(App().sMotorDbPath);
        return ReadMachines(db,
                            numbers.subspan(static_cast<std::size_t>(first), static_cast<std::size_t>(end - first)));
    } catch (const DbError&) {
        return {};
    }
}

std::vector<MachineLine> ListMachines(TableDb& db, const std::optional<MachineFilter>& filter)
{
    std::vector<MachineLine> lines;
    VisitMachines(db, filter, [&lines](const MachineLine& line) {
        lines.push_back(line);
        return true;
    });
    return lines;
}

} // namespace korvanel
