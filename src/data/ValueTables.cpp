#include "data/ValueTables.h"

#include "core/Common.h"
#include "core/NetConfigurations.h"
#include "core/NumberText.h"
#include "core/ProjectDb.h"
#include "data/ValueColumns.h"

#include <algorithm>

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
    App().bEnergiesOutdated = false;
}

void ClearValues()
{
    DropRecordsets();
    DbTransaction transaction(ProjectDb());
    ProjectDb().Execute(QStringLiteral("DELETE FROM [SampledValues];"));
    ProjectDb().Execute(QStringLiteral("DELETE FROM [ComputedValues];"));
    DropTable(QLatin1String(TableName(ValueTable::Simulated)));
    transaction.Commit();
    App().bEnergiesOutdated = false;
    RecordingChanged();
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
    RefreshSetCount();
    TermFromSetCount();
}

void TermFromSetCount()
{
    if (App().iSetCount >= 1)
        App().sMeasurementTerm = SecondsToTime(std::max(0.0, (App().iSetCount - 1) * App().dInterval), false);
}

std::vector<qint16> ColumnLayoutOf(int netConf)
{
    std::vector<qint16> layout;
    for (const std::span<const qint16> group : TraitsOf(netConf).layout)
        layout.insert(layout.end(), group.begin(), group.end());
    return layout;
}

void BuildColumnLayout()
{
    App().ColumnLayout = ColumnLayoutOf(App().iNetConfIndex);
}

} // namespace korvanel
