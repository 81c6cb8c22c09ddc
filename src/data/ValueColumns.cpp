#include "data/ValueColumns.h"

#include "core/QuantityTable.h"
#include "core/TableDb.h"
#include "core/texts/DefaultTexts.h"

#include <algorithm>
#include <cmath>

namespace korvanel {

namespace {

using Traits = NetConfTraits;

constexpr ConfigMask kAll = ConfigurationsWhere([](const Traits&) { return true; });
constexpr ConfigMask kPower = ConfigurationsWhere([](const Traits& net) { return net.hasPower; });
constexpr ConfigMask kVoltageOnly = ConfigurationsWhere([](const Traits& net) { return !net.hasPower; });
constexpr ConfigMask kPhases = ConfigurationsWhere([](const Traits& net) { return net.hasPhases; });
constexpr ConfigMask kVoltagePhases = kPhases | kVoltageOnly;
constexpr ConfigMask kMachine = ConfigurationsWhere([](const Traits& net) { return net.hasMachine; });
/// Q, S, cos phi and energies are computed by the program.
constexpr ConfigMask kDerived =
    ConfigurationsWhere([](const Traits& net) { return net.energies == EnergySource::Integrated; });
/// They come from the instrument.
constexpr ConfigMask kRecorded =
    ConfigurationsWhere([](const Traits& net) { return net.energies == EnergySource::Registers; });
constexpr ConfigMask kMachineByHand = kMachine & kDerived;

/// A column that holds a quantity.
constexpr ValueColumn ColumnOf(int quantity, ConfigMask sampled, ConfigMask computed = 0)
{
    const QuantityEntry& entry = QuantityOf(quantity);
    return {.name = entry.column, .quantity = quantity, .field = entry.field, .sampled = sampled, .computed = computed};
}

/// A total or mean, with the configurations of the two tables; rows made or changed by hand write it too.
constexpr ValueColumn SumColumn(int quantity, ConfigMask sampled, ConfigMask computed = 0, int simulatedPosition = 0)
{
    ValueColumn column = ColumnOf(quantity, sampled, computed);
    column.appended = column.updated = static_cast<ConfigMask>(sampled | computed);
    column.simulatedPosition = simulatedPosition;
    return column;
}

/// A value of one phase; only the voltages of the voltage measurement are written by hand.
constexpr ValueColumn PhaseColumn(int quantity, ConfigMask sampled)
{
    ValueColumn column = ColumnOf(quantity, sampled);
    column.appended = column.updated = static_cast<ConfigMask>(sampled & kVoltageOnly);
    return column;
}

/// An energy by integration. A row by hand writes it in every configuration with power: where the column is missing
/// the refusal of the engine tells that such rows don't fit.
constexpr ValueColumn EnergyColumn(int quantity, int simulatedPosition = 0)
{
    ValueColumn column = ColumnOf(quantity, 0, kDerived);
    column.appended = column.updated = kPower;
    column.simulatedPosition = simulatedPosition;
    return column;
}

constexpr ValueColumn MachineColumn(int quantity, int simulatedPosition)
{
    ValueColumn column = ColumnOf(quantity, 0, kMachine);
    column.appended = kMachineByHand;
    column.updated = kMachine;
    column.isEstimate = true;
    column.simulatedPosition = simulatedPosition;
    return column;
}

constexpr ValueColumn kColumns[] = {
    {.name = "Set",
     .type = ColumnType::Key,
     .sampled = kAll,
     .computed = kAll,
     .appended = kAll,
     .simulatedPosition = 1},
    {.name = "Time", .quantity = kColumnTimeStamp, .type = ColumnType::DateTime, .sampled = kAll},
    SumColumn(kU, kAll, 0, 2),
    PhaseColumn(kU1, kVoltagePhases),
    PhaseColumn(kU1 + 1, kVoltagePhases),
    PhaseColumn(kU1 + 2, kVoltagePhases),
    SumColumn(kI, kPower),
    PhaseColumn(kI1, kPhases),
    PhaseColumn(kI1 + 1, kPhases),
    PhaseColumn(kI1 + 2, kPhases),
    PhaseColumn(kINeutral, kRecorded),
    SumColumn(kF, kAll, 0, 3),
    SumColumn(kP, kPower, 0, 4),
    PhaseColumn(kP1, kPhases),
    PhaseColumn(kP1 + 1, kPhases),
    PhaseColumn(kP1 + 2, kPhases),
    SumColumn(kPhi, kPower),
    PhaseColumn(kPhi1, kPhases),
    PhaseColumn(kPhi1 + 1, kPhases),
    PhaseColumn(kPhi1 + 2, kPhases),
    SumColumn(kQ, kRecorded, kDerived),
    PhaseColumn(kQ1, kPhases),
    PhaseColumn(kQ1 + 1, kPhases),
    PhaseColumn(kQ1 + 2, kPhases),
    SumColumn(kS, kRecorded, kDerived),
    PhaseColumn(kS1, kPhases),
    PhaseColumn(kS1 + 1, kPhases),
    PhaseColumn(kS1 + 2, kPhases),
    SumColumn(kCosPhi, kRecorded, kDerived),
    PhaseColumn(kCosPhi1, kPhases),
    PhaseColumn(kCosPhi1 + 1, kPhases),
    PhaseColumn(kCosPhi1 + 2, kPhases),
    ColumnOf(kWpAbs, kRecorded),
    ColumnOf(kWpPlusAbs, kRecorded),
    ColumnOf(kWpMinusAbs, kRecorded),
    ColumnOf(kWqAbs, kRecorded),
    ColumnOf(kWqPlusAbs, kRecorded),
    ColumnOf(kWqMinusAbs, kRecorded),
    {.name = "t",
     .quantity = kColumnTime,
     .type = ColumnType::Whole,
     .field = &Single<&tValueRow::dt>,
     .sampled = kAll,
     .appended = kAll,
     .updated = kAll},
    {.name = "Edit", .type = ColumnType::Mark, .sampled = kAll, .appended = kAll, .updated = kAll},
    EnergyColumn(kWp, 10),
    EnergyColumn(kWpPlus, 11),
    EnergyColumn(kWpMinus, 12),
    EnergyColumn(kWq),
    ColumnOf(kWpRel, 0, kRecorded),
    ColumnOf(kWpPlusRel, 0, kRecorded),
    ColumnOf(kWpMinusRel, 0, kRecorded),
    ColumnOf(kWqRel, 0, kRecorded),
    ColumnOf(kWqPlusRel, 0, kRecorded),
    ColumnOf(kWqMinusRel, 0, kRecorded),
    MachineColumn(kN, 5),
    MachineColumn(kM, 6),
    MachineColumn(kPmech, 7),
    MachineColumn(kEta, 8),
    {.name = "Method",
     .quantity = kColumnMethod,
     .type = ColumnType::Letter,
     .computed = kMachine,
     .appended = kMachineByHand,
     .updated = kMachine,
     .isEstimate = true,
     .simulatedPosition = 9},
};

QString DeclaredType(ColumnType type)
{
    switch (type) {
    case ColumnType::Key: // a primary key declared so is the row id itself: no second index, sequential joins
        return QStringLiteral("INTEGER CONSTRAINT [Set] PRIMARY KEY");
    case ColumnType::Whole:
    case ColumnType::Mark:
        return QStringLiteral("INTEGER");
    case ColumnType::Real:
        return QStringLiteral("REAL");
    case ColumnType::DateTime:
    case ColumnType::Letter:
        return QStringLiteral("TEXT");
    }
    return {};
}

} // namespace

const char* const kMeasuredJoin =
    "SampledValues INNER JOIN ComputedValues ON SampledValues.[Set] = ComputedValues.[Set]";
const char* const kSimulatedJoin =
    "SampledValues INNER JOIN SimulatedValues ON SampledValues.[Set] = SimulatedValues.[Set]";

std::span<const ValueColumn> ValueColumns()
{
    return kColumns;
}

const char* TableName(ValueTable table)
{
    switch (table) {
    case ValueTable::Sampled:
        return "SampledValues";
    case ValueTable::Computed:
        return "ComputedValues";
    case ValueTable::Simulated:
        return "SimulatedValues";
    }
    return "";
}

bool IsHeld(const ValueColumn& column, ValueTable table, int netConf)
{
    switch (table) {
    case ValueTable::Sampled:
        return IsIn(column.sampled, netConf);
    case ValueTable::Computed:
        return IsIn(column.computed, netConf);
    case ValueTable::Simulated:
        return column.simulatedPosition > 0;
    }
    return false;
}

std::vector<const ValueColumn*> ColumnsOf(ValueTable table, int netConf)
{
    std::vector<const ValueColumn*> columns;
    for (const ValueColumn& column : kColumns)
        if (IsHeld(column, table, netConf))
            columns.push_back(&column);
    if (table == ValueTable::Simulated)
        std::sort(columns.begin(), columns.end(), [](const ValueColumn* a, const ValueColumn* b) {
            return a->simulatedPosition < b->simulatedPosition;
        });
    return columns;
}

QString CreateStatement(ValueTable table, int netConf)
{
    QStringList columns;
    for (const ValueColumn* column : ColumnsOf(table, netConf))
        columns << QStringLiteral("[%1] %2").arg(QLatin1String(column->name), DeclaredType(column->type));
    return QStringLiteral("CREATE TABLE [%1] (%2);")
        .arg(QLatin1String(TableName(table)), columns.join(QStringLiteral(", ")));
}

QString AddStatement(ValueTable table, const ValueColumn& column)
{
    return QStringLiteral("ALTER TABLE [%1] ADD COLUMN [%2] %3;")
        .arg(QLatin1String(TableName(table)), QLatin1String(column.name), DeclaredType(column.type));
}

std::string QualifiedName(const ValueColumn& column, int netConf)
{
    const ValueTable table = IsIn(column.sampled, netConf) ? ValueTable::Sampled : ValueTable::Computed;
    return std::string(TableName(table)) + ".[" + column.name + "]";
}

qint64 WholeSeconds(double seconds)
{
    // Beyond these limits a double has no whole-number twin; such a time is no time.
    constexpr double kLimit = 9e15;
    if (!(std::abs(seconds) < kLimit))
        throw DbError(texts::timeOutOfRange.toStdString());
    return static_cast<qint64>(std::nearbyint(seconds));
}

} // namespace korvanel
