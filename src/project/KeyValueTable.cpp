#include "project/KeyValueTable.h"

#include "core/LocalFormats.h"

#include <cmath>
#include <optional>

namespace korvanel {

namespace {

/// Columns of both statements in the order Decimal, Number or Time, Text. `Overview` has a time where `Settings` has a
/// whole number.
const char* ThirdColumn(ProjectTable table)
{
    return table == ProjectTable::Overview ? "Time" : "Number";
}

enum ValuePosition
{
    kDecimal = 1,
    kThird = 2,
    kText = 3,
    kName = 4
};

std::string SelectSql(ProjectTable table)
{
    return std::string("SELECT [Decimal], [") + ThirdColumn(table) + "], [Text] FROM [" + TableName(table) +
           "] WHERE [Name]=?";
}

std::string UpdateSql(ProjectTable table)
{
    return std::string("UPDATE [") + TableName(table) + "] SET [Decimal]=?, [" + ThirdColumn(table) +
           "]=?, [Text]=? WHERE [Name]=?";
}

std::string InsertSql(ProjectTable table)
{
    return std::string("INSERT INTO [") + TableName(table) + "] ([Decimal], [" + ThirdColumn(table) +
           "], [Text], [Name]) VALUES (?, ?, ?, ?)";
}

[[noreturn]] void Refuse(const ProjectKey& key)
{
    throw DbError("unexpected value of \"" + key.name + '"');
}

/// A number within the key's limits; anything else is refused.
double NumberOf(const SQLite::Column& column, const ProjectKey& key)
{
    if (!column.isInteger() && !column.isFloat())
        Refuse(key);
    const double value = column.getDouble();
    if (!(value >= key.minimum && value <= key.maximum))
        Refuse(key);
    return value;
}

struct Reader
{
    SQLite::Statement& row;
    const ProjectKey& key;

    double Number(ValuePosition position) const { return NumberOf(row.getColumn(position - 1), key); }
    void operator()(qint16* field) const { *field = static_cast<qint16>(std::floor(Number(kThird))); }
    void operator()(qint32* field) const { *field = static_cast<qint32>(std::nearbyint(Number(kThird))); }
    void operator()(double* field) const { *field = Number(kDecimal); }
    void operator()(bool* field) const { *field = Number(kThird) != 0; }
    void operator()(QString* field) const
    {
        const SQLite::Column column = row.getColumn(kText - 1);
        if (!column.isNull() && !column.isText())
            Refuse(key);
        const QString text = column.isNull() ? QString() : QString::fromUtf8(column.getText(), column.getBytes());
        if (text.size() > kLongestTypedText) // no box could show it without cutting it
            Refuse(key);
        *field = text;
    }
    void operator()(QDateTime* field) const
    {
        const SQLite::Column column = row.getColumn(kThird - 1);
        const QDateTime moment =
            column.isText() ? DateFromStoredText(QString::fromUtf8(column.getText())) : QDateTime();
        if (!moment.isValid())
            Refuse(key);
        *field = moment;
    }
};

struct Binder
{
    SQLite::Statement& row;

    void operator()(const qint16* field) const { row.bind(kThird, *field); }
    void operator()(const qint32* field) const { row.bind(kThird, *field); }
    void operator()(const double* field) const
    {
        if (!std::isfinite(*field)) // would be stored as null, and the file then be refused
            throw DbError("not a finite number");
        row.bind(kDecimal, *field);
    }
    void operator()(const bool* field) const { row.bind(kThird, *field ? 1 : 0); }
    void operator()(const QString* field) const { row.bind(kText, field->toStdString()); }
    void operator()(const QDateTime* field) const { row.bind(kThird, StoredDateText(*field).toStdString()); }
};

/// Whether a key that has no row yet gets one.
bool IsDue(const ProjectKey& key)
{
    const auto* flag = std::get_if<bool*>(&key.field);
    return !key.isOnDemand || (flag && **flag);
}

} // namespace

QString CreateStatement(ProjectTable table)
{
    const QString name = QStringLiteral("[Name] TEXT CONSTRAINT [Name] PRIMARY KEY");
    return table == ProjectTable::Overview
               ? QStringLiteral("CREATE TABLE [Overview] ( %1, [Text] TEXT, [Time] TEXT, [Decimal] REAL );").arg(name)
               : QStringLiteral("CREATE TABLE [Settings] ( %1, [Decimal] REAL, [Number] INTEGER, [Text] TEXT );")
                     .arg(name);
}

KeyValueTable::KeyValueTable(TableDb& db, ProjectTable table)
    : select(WithDbErrors([&] { return SQLite::Statement(db.Handle(), SelectSql(table)); })),
      update(WithDbErrors([&] { return SQLite::Statement(db.Handle(), UpdateSql(table)); })),
      insert(WithDbErrors([&] { return SQLite::Statement(db.Handle(), InsertSql(table)); }))
{}

void KeyValueTable::Read(const ProjectKey& key)
{
    WithDbErrors([&] {
        select.tryReset();
        select.bind(1, key.name);
        if (select.executeStep())
            std::visit(Reader{select, key}, key.field);
    });
}

void KeyValueTable::Write(const ProjectKey& key)
{
    WithDbErrors([&] {
        if (Prepared(update, key).exec() == 0 && IsDue(key))
            Prepared(insert, key).exec();
    });
}

SQLite::Statement& KeyValueTable::Prepared(SQLite::Statement& statement, const ProjectKey& key)
{
    statement.tryReset();
    statement.clearBindings();
    std::visit(Binder{statement}, key.field);
    statement.bind(kName, key.name);
    return statement;
}

} // namespace korvanel
