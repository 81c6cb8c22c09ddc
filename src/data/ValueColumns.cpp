#include "data/ValueColumns.h"

#include "data/RowFields.h"

#include <algorithm>

namespace korvanel {

namespace {

constexpr ConfigMask Mask(std::initializer_list<int> configurations)
{
    unsigned mask = 0;
    for (const int c : configurations)
        mask |= 1U << static_cast<unsigned>(c);
    return static_cast<ConfigMask>(mask);
}

constexpr ConfigMask kAll = Mask({0, 1, 2, 3, 4, 5, 6});
constexpr ConfigMask kPower = Mask({0, 1, 2, 3, 4, 5}); // all but the voltage measurement
constexpr ConfigMask kDerived = Mask({0, 1, 2});        // Q, S, cos phi and energies are computed by the program
constexpr ConfigMask kRecorded = Mask({3, 4, 5});       // they come from the instrument
constexpr ConfigMask kPhases = Mask({4, 5});
constexpr ConfigMask kVoltagePhases = Mask({4, 5, 6});
constexpr ConfigMask kVoltageOnly = Mask({6});
constexpr ConfigMask kMachine = Mask({2, 5});
constexpr ConfigMask kMachineByHand = Mask({2});

/// A total or mean, with the configurations of the two tables; rows made or changed by hand write it too.
template <auto Member>
constexpr ValueColumn SumColumn(const char* name, ConfigMask sampled, ConfigMask computed, int simulatedPosition = 0)
{
    const auto stored = static_cast<ConfigMask>(sampled | computed);
    return {.name = name,
            .field = &Element<Member, kSum>,
            .sampled = sampled,
            .computed = computed,
            .appended = stored,
            .updated = stored,
            .simulatedPosition = simulatedPosition};
}

/// A value of one phase; only the voltages of the voltage measurement are written by hand.
template <auto Member, std::size_t Position>
constexpr ValueColumn PhaseColumn(const char* name, ConfigMask sampled)
{
    const auto byHand = static_cast<ConfigMask>(sampled & kVoltageOnly);
    return {
        .name = name, .field = &Element<Member, Position>, .sampled = sampled, .appended = byHand, .updated = byHand};
}

template <auto Member>
constexpr ValueColumn RegisterColumn(const char* name)
{
    return {.name = name, .field = &Single<Member>, .sampled = kRecorded};
}

/// An energy by integration. A row by hand writes it in every configuration with power: where the column is missing
/// the refusal of the engine tells that such rows don't fit.
template <auto Member>
constexpr ValueColumn EnergyColumn(const char* name, int simulatedPosition = 0)
{
    return {.name = name,
            .field = &Single<Member>,
            .computed = kDerived,
            .appended = kPower,
            .updated = kPower,
            .simulatedPosition = simulatedPosition};
}

template <auto Member>
constexpr ValueColumn RelativeColumn(const char* name)
{
    return {.name = name, .field = &Single<Member>, .computed = kRecorded};
}

template <auto Member>
constexpr ValueColumn MachineColumn(const char* name, int simulatedPosition)
{
    return {.name = name,
            .field = &Single<Member>,
            .computed = kMachine,
            .appended = kMachineByHand,
            .updated = kMachine,
            .isEstimate = true,
            .simulatedPosition = simulatedPosition};
}

using Row = tValueRow;

constexpr ValueColumn kColumns[] = {
    {.name = "Set",
     .type = ColumnType::Key,
     .sampled = kAll,
     .computed = kAll,
     .appended = kAll,
     .simulatedPosition = 1},
    {.name = "Time", .type = ColumnType::DateTime, .sampled = kAll},
    SumColumn<&Row::dU>("U sum", kAll, 0, 2),
    PhaseColumn<&Row::dU, kPhase1>("U 1", kVoltagePhases),
    PhaseColumn<&Row::dU, kPhase2>("U 2", kVoltagePhases),
    PhaseColumn<&Row::dU, kPhase3>("U 3", kVoltagePhases),
    SumColumn<&Row::dI>("I sum", kPower, 0),
    PhaseColumn<&Row::dI, kPhase1>("I 1", kPhases),
    PhaseColumn<&Row::dI, kPhase2>("I 2", kPhases),
    PhaseColumn<&Row::dI, kPhase3>("I 3", kPhases),
    PhaseColumn<&Row::dI, kNeutral>("I N", kRecorded),
    {.name = "f sum",
     .field = &Single<&Row::df>,
     .sampled = kAll,
     .appended = kAll,
     .updated = kAll,
     .simulatedPosition = 3},
    SumColumn<&Row::dP>("P sum", kPower, 0, 4),
    PhaseColumn<&Row::dP, kPhase1>("P 1", kPhases),
    PhaseColumn<&Row::dP, kPhase2>("P 2", kPhases),
    PhaseColumn<&Row::dP, kPhase3>("P 3", kPhases),
    SumColumn<&Row::dPhi>("phi sum", kPower, 0),
    PhaseColumn<&Row::dPhi, kPhase1>("phi 1", kPhases),
    PhaseColumn<&Row::dPhi, kPhase2>("phi 2", kPhases),
    PhaseColumn<&Row::dPhi, kPhase3>("phi 3", kPhases),
    SumColumn<&Row::dQ>("Q sum", kRecorded, kDerived),
    PhaseColumn<&Row::dQ, kPhase1>("Q 1", kPhases),
    PhaseColumn<&Row::dQ, kPhase2>("Q 2", kPhases),
    PhaseColumn<&Row::dQ, kPhase3>("Q 3", kPhases),
    SumColumn<&Row::dS>("S sum", kRecorded, kDerived),
    PhaseColumn<&Row::dS, kPhase1>("S 1", kPhases),
    PhaseColumn<&Row::dS, kPhase2>("S 2", kPhases),
    PhaseColumn<&Row::dS, kPhase3>("S 3", kPhases),
    SumColumn<&Row::dCosPhi>("cosphi sum", kRecorded, kDerived),
    PhaseColumn<&Row::dCosPhi, kPhase1>("cosphi 1", kPhases),
    PhaseColumn<&Row::dCosPhi, kPhase2>("cosphi 2", kPhases),
    PhaseColumn<&Row::dCosPhi, kPhase3>("cosphi 3", kPhases),
    RegisterColumn<&Row::dWpAbs>("Wp abs"),
    RegisterColumn<&Row::dWpPlusAbs>("Wp+ abs"),
    RegisterColumn<&Row::dWpMinusAbs>("Wp- abs"),
    RegisterColumn<&Row::dWqAbs>("Wq abs"),
    RegisterColumn<&Row::dWqPlusAbs>("Wq+ abs"),
    RegisterColumn<&Row::dWqMinusAbs>("Wq- abs"),
    {.name = "t",
     .type = ColumnType::Whole,
     .field = &Single<&Row::dt>,
     .sampled = kAll,
     .appended = kAll,
     .updated = kAll},
    {.name = "Edit", .type = ColumnType::Mark, .sampled = kAll, .appended = kAll, .updated = kAll},
    EnergyColumn<&Row::dWp>("Wp", 10),
    EnergyColumn<&Row::dWpPlus>("Wp+", 11),
    EnergyColumn<&Row::dWpMinus>("Wp-", 12),
    EnergyColumn<&Row::dWq>("Wq"),
    RelativeColumn<&Row::dWpRel>("Wp rel"),
    RelativeColumn<&Row::dWpPlusRel>("Wp+ rel"),
    RelativeColumn<&Row::dWpMinusRel>("Wp- rel"),
    RelativeColumn<&Row::dWqRel>("Wq rel"),
    RelativeColumn<&Row::dWqPlusRel>("Wq+ rel"),
    RelativeColumn<&Row::dWqMinusRel>("Wq- rel"),
    MachineColumn<&Row::dn>("n", 5),
    MachineColumn<&Row::dM>("M", 6),
    MachineColumn<&Row::dPmech>("Pmech", 7),
    MachineColumn<&Row::deta>("eta", 8),
    {.name = "Method",
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

std::vector<const ValueColumn*> ColumnsOf(ValueTable table, int netConf)
{
    std::vector<const ValueColumn*> columns;
    for (const ValueColumn& column : kColumns) {
        const bool isHeld = table == ValueTable::Sampled    ? IsIn(column.sampled, netConf)
                            : table == ValueTable::Computed ? IsIn(column.computed, netConf)
                                                            : column.simulatedPosition > 0;
        if (isHeld)
            columns.push_back(&column);
    }
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

std::string QualifiedName(const ValueColumn& column, int netConf)
{
    const ValueTable table = IsIn(column.sampled, netConf) ? ValueTable::Sampled : ValueTable::Computed;
    return std::string(TableName(table)) + ".[" + column.name + "]";
}

} // namespace korvanel
