#include "data/ValueTables.h"

#include "core/Common.h"
#include "core/NumberText.h"
#include "core/ProjectDb.h"
#include "data/ValueColumns.h"

#include <algorithm>
#include <array>

namespace korvanel {

void CreateValueTables()
{
    DropRecordsets();
    for (const ValueTable table : {ValueTable::Sampled, ValueTable::Computed})
        ProjectDb().Execute(CreateStatement(table, App().iNetConfIndex));
}

void DropValueTables()
{
    DropRecordsets();
    for (const ValueTable table : {ValueTable::Sampled, ValueTable::Computed, ValueTable::Simulated})
        DropTable(QLatin1String(TableName(table)));
}

void ClearValues()
{
    DropRecordsets();
    DbTransaction transaction(ProjectDb());
    ProjectDb().Execute(QStringLiteral("DELETE FROM [SampledValues];"));
    ProjectDb().Execute(QStringLiteral("DELETE FROM [ComputedValues];"));
    DropTable(QLatin1String(TableName(ValueTable::Simulated)));
    transaction.Commit();
    App().bEvaluated = 0;
}

void CreateSimulatedTable()
{
    ProjectDb().Execute(CreateStatement(ValueTable::Simulated, App().iNetConfIndex));
}

qint32 CountSets()
{
    const ProjectDbScope scope;
    return WithDbErrors([] {
        SQLite::Statement query(ProjectDb().Handle(),
                                std::string("SELECT COUNT(SampledValues.[Set]) AS Result FROM ") + kMeasuredJoin + ";");
        query.executeStep();
        return query.getColumn(0).getInt();
    });
}

bool HasSamples()
{
    const ProjectDbScope scope;
    return WithDbErrors([] {
        SQLite::Statement query(ProjectDb().Handle(), "SELECT 1 FROM SampledValues LIMIT 1");
        return query.executeStep();
    });
}

bool RefreshSetCount()
{
    try {
        App().iSetCount = CountSets();
    } catch (const DbError&) {
        // Tables that can't be read hold no sets for anybody; the first read of a row tells the reason.
        App().iSetCount = 0;
    }
    return App().iSetCount >= 1;
}

void UpdateMeasurementTerm()
{
    if (RefreshSetCount())
        App().sMeasurementTerm = SecondsToTime(std::max(0.0, (App().iSetCount - 1) * App().dInterval), false);
}

namespace {

// Where the phases are recorded, they stand phase by phase.
constexpr std::array<qint16, 21> kPhaseColumns{16, 19, 22, 25, 28, 31, 34, 17, 20, 23, 26,
                                               29, 32, 35, 18, 21, 24, 27, 30, 33, 36};
constexpr std::array<qint16, 8> kSums{0, 1, 2, 3, 5, 4, 11, 6};
constexpr std::array<qint16, 4> kMachine{7, 8, 9, 10};
constexpr std::array<qint16, 4> kEnergies{12, 14, 15, 13};
constexpr std::array<qint16, 8> kRegisters{39, 40, 42, 43, 45, 46, 48, 49};
constexpr std::array<qint16, 1> kNeutralCurrent{37};
constexpr std::array<qint16, 2> kMethodAndGrade{-4, -3};
constexpr std::array<qint16, 2> kTimes{-1, -2};
constexpr std::array<qint16, 5> kVoltages{0, 16, 17, 18, 2};

using Group = std::span<const qint16>;

std::vector<Group> LayoutGroups(int netConf)
{
    switch (netConf) {
    case 2:
        return {kSums, kMachine, kEnergies, kMethodAndGrade, kTimes};
    case 3:
        return {kSums, kNeutralCurrent, kRegisters, kTimes};
    case 4:
        return {kSums, kNeutralCurrent, kPhaseColumns, kRegisters, kTimes};
    case 5:
        return {kSums, kMachine, kPhaseColumns, kRegisters, kMethodAndGrade, kTimes};
    case 6:
        return {kVoltages, kTimes};
    default:
        return {kSums, kEnergies, kTimes};
    }
}

} // namespace

std::vector<qint16> ColumnLayoutOf(int netConf)
{
    std::vector<qint16> layout;
    for (const Group group : LayoutGroups(netConf))
        layout.insert(layout.end(), group.begin(), group.end());
    return layout;
}

void BuildColumnLayout()
{
    App().ColumnLayout = ColumnLayoutOf(App().iNetConfIndex);
}

double GridFactor(int quantity)
{
    switch (quantity) {
    case kN:
        return 1;
    case kF:
    case kCosPhi:
    case kPhi:
    case kM:
    case kEta:
        return 100;
    default:
        break;
    }
    const bool isPhaseAngleOrFactor = quantity >= kPhi1 && quantity < kINeutral;
    return isPhaseAngleOrFactor ? 100 : 1000;
}

} // namespace korvanel
