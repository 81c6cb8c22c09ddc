#include "motors/MotorColumns.h"

#include "core/Units.h"

#include <cmath>
#include <limits>

namespace korvanel {

namespace {

using R = MachineRecord;

constexpr MotorColumn kColumns[] = {
    {"set_ID", &R::set_ID},
    {"Hersteller", &R::Hersteller},
    {"Polpaarzahl", &R::Polpaarzahl},
    {"Pmech", &R::Pmech, kPerKilo},
    {"U", &R::U},
    {"M", &R::M},
    {"n", &R::n},
    {"I", &R::I},
    {"f", &R::f},
    {"cosphi", &R::cosphi},
    {"eta", &R::eta},
    {"Po", &R::Po, kPerKilo},
    {"Uo", &R::Uo},
    {"Io", &R::Io},
    {"fo", &R::fo},
    {"Schaltungsart", &R::Schaltungsart},
    {"Rs", &R::Rs},
    {"Mkipp_Mn", &R::Mkipp_Mn},
    {"Tth", &R::Tth, kSecondsPerMinute},
    {"I_CL", &R::I_CL},
    {"Masse", &R::Masse},
    {"Mreib", &R::Mreib},
};

std::string Bracketed(const MotorColumn& column)
{
    return std::string("[") + column.name + ']';
}

struct SqlType
{
    const char* operator()(std::optional<qint32> R::*) const { return "INTEGER PRIMARY KEY"; }
    const char* operator()(qint16 R::*) const { return "INTEGER NOT NULL"; }
    const char* operator()(bool R::*) const { return "INTEGER NOT NULL"; }
    const char* operator()(std::optional<double> R::*) const { return "REAL"; }
    const char* operator()(QString R::*) const { return "TEXT"; }
    const char* operator()(std::optional<QString> R::*) const { return "TEXT"; }
};

// Reading.

std::optional<double> NumberOf(const SQLite::Column& value, double factor = 1)
{
    if (!value.isInteger() && !value.isFloat())
        return {};
    const double number = value.getDouble() * factor;
    return std::isfinite(number) ? std::optional(number) : std::nullopt;
}

/// A whole number within the range of a type.
template <typename Whole>
std::optional<Whole> WholeNumberOf(const SQLite::Column& value)
{
    const std::optional<double> number = NumberOf(value);
    using Limits = std::numeric_limits<Whole>;
    if (!number || std::floor(*number) != *number || *number < Limits::min() || *number > Limits::max())
        return {};
    return static_cast<Whole>(*number);
}

std::optional<QString> TextOf(const SQLite::Column& value)
{
    if (!value.isText())
        return {};
    QString text = QString::fromUtf8(value.getText(), value.getBytes());
    return text.size() <= kLongestTypedText ? std::optional(std::move(text)) : std::nullopt;
}

/// Puts what was read into the member; false if there is nothing.
template <typename Read, typename Member>
bool Take(std::optional<Read>&& read, Member& member)
{
    if (!read)
        return false;
    member = *std::move(read);
    return true;
}

struct Taker
{
    const SQLite::Column& value;
    double factor;
    R& record;

    bool operator()(std::optional<qint32> R::*member) const
    {
        return value.isNull() || Take(WholeNumberOf<qint32>(value), record.*member);
    }
    bool operator()(qint16 R::*member) const
    {
        return value.isNull() || Take(WholeNumberOf<qint16>(value), record.*member);
    }
    bool operator()(bool R::*member) const
    {
        const std::optional<double> number = NumberOf(value);
        return value.isNull() || Take(number ? std::optional(*number != 0) : std::nullopt, record.*member);
    }
    bool operator()(std::optional<double> R::*member) const
    {
        return value.isNull() || Take(NumberOf(value, factor), record.*member);
    }
    bool operator()(QString R::*member) const { return value.isNull() || Take(TextOf(value), record.*member); }
    bool operator()(std::optional<QString> R::*member) const
    {
        if (value.isNull() || (value.isText() && value.getBytes() == 0))
            return true;
        return Take(TextOf(value), record.*member);
    }
};

// Writing.

struct Binder
{
    SQLite::Statement& statement;
    int position;
    double divisor; ///< of a number
    const R& record;

    void operator()(std::optional<qint32> R::*member) const
    {
        if (record.*member)
            statement.bind(position, *(record.*member));
        else
            statement.bind(position);
    }
    void operator()(qint16 R::*member) const { statement.bind(position, record.*member); }
    void operator()(bool R::*member) const { statement.bind(position, record.*member ? 1 : 0); }
    void operator()(std::optional<double> R::*member) const
    {
        if (!(record.*member))
            statement.bind(position);
        else if (!std::isfinite(*(record.*member))) // would be stored as Null, that is as "not known"
            throw DbError("not a finite number");
        else
            statement.bind(position, *(record.*member) / divisor);
    }
    void operator()(QString R::*member) const { statement.bind(position, (record.*member).toStdString()); }
    void operator()(std::optional<QString> R::*member) const
    {
        const std::optional<QString>& text = record.*member;
        if (text && !text->isEmpty())
            statement.bind(position, text->toStdString());
        else
            statement.bind(position);
    }
};

} // namespace

std::span<const MotorColumn> MotorColumns()
{
    return kColumns;
}

std::span<const MotorColumn> MotorDataColumns()
{
    return MotorColumns().subspan(1);
}

QString CreateMotorStatement()
{
    QString columns;
    for (const MotorColumn& column : kColumns) {
        if (!columns.isEmpty())
            columns += QStringLiteral(", ");
        columns +=
            QString::fromStdString(Bracketed(column)) + u' ' + QLatin1String(std::visit(SqlType(), column.member));
    }
    return QStringLiteral("CREATE TABLE [%1] ( %2 );").arg(QLatin1String(kMotorTable), columns);
}

std::string MotorColumnNames(std::span<const MotorColumn> columns)
{
    std::string names;
    for (const MotorColumn& column : columns)
        names += (names.empty() ? "" : ", ") + Bracketed(column);
    return names;
}

namespace {

bool IsMissing(TableDb& db, const MotorColumn& column)
{
    return column.since > 1 && !db.HasColumn(kMotorTable, column.name);
}

} // namespace

std::string MotorReadNames(TableDb& db, std::span<const MotorColumn> columns)
{
    std::string names;
    for (const MotorColumn& column : columns)
        names += (names.empty() ? "" : ", ") + (IsMissing(db, column) ? "NULL" : Bracketed(column));
    return names;
}

void AddLaterMotorColumns(TableDb& db, std::span<const MotorColumn> columns)
{
    for (const MotorColumn& column : columns)
        if (IsMissing(db, column))
            db.Execute(QStringLiteral("ALTER TABLE [%1] ADD COLUMN %2 %3;")
                           .arg(QLatin1String(kMotorTable), QString::fromStdString(Bracketed(column)),
                                QLatin1String(std::visit(SqlType(), column.member))));
}

bool TakeValue(const SQLite::Column& value, const MotorColumn& column, MachineRecord& record)
{
    return std::visit(Taker{value, column.factor, record}, column.member);
}

void BindValue(SQLite::Statement& statement, int position, const MotorColumn& column, const MachineRecord& record)
{
    std::visit(Binder{statement, position, column.factor, record}, column.member);
}

std::string ComparisonOf(TableDb& db, const MotorColumn& column)
{
    if (IsMissing(db, column))
        return "NULL = ?";
    const std::string name = Bracketed(column);
    // Other engines store "true" as -1, and a column of theirs may ignore case.
    if (std::holds_alternative<bool R::*>(column.member))
        return '(' + name + " <> 0) = ?";
    if (std::holds_alternative<QString R::*>(column.member) ||
        std::holds_alternative<std::optional<QString> R::*>(column.member))
        return name + " = ? COLLATE BINARY";
    return column.factor == 1 ? name + " = ?" : name + " * ? = ?";
}

int BindComparison(TableDb& db, SQLite::Statement& statement, int position, const MotorColumn& column,
                   const MachineRecord& record)
{
    const bool isMissing = IsMissing(db, column);
    // Compared in the unit of the record: reading, writing and reading again gives the same number there, while a value
    // of the table may change in its last digit.
    if (column.factor != 1 && !isMissing)
        statement.bind(position++, column.factor);
    std::visit(Binder{statement, position, 1, record}, column.member);
    return position + 1;
}

} // namespace korvanel
