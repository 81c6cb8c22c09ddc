#include "project/ProjectSchema.h"

#include <algorithm>

namespace korvanel {

namespace {

constexpr SchemaStep kSteps[] = {
    {.version = 1}, // the tables as they are created
};

void AddColumnsOf(TableDb& db, int netConf, int version, std::span<const ValueColumn> columns)
{
    for (const ValueTable table : {ValueTable::Sampled, ValueTable::Computed, ValueTable::Simulated}) {
        if (!db.TableExists(QLatin1String(TableName(table)))) // that of a simulation may not be there
            continue;
        for (const ValueColumn& column : columns) {
            const bool isNew = column.since == version && IsHeld(column, table, netConf);
            if (isNew && !db.HasColumn(TableName(table), column.name))
                db.Execute(AddStatement(table, column));
        }
    }
}

} // namespace

int ProjectSchema::Version() const
{
    int version = steps.back().version;
    for (const ValueColumn& column : columns)
        version = std::max(version, column.since);
    return version;
}

ProjectSchema CurrentSchema()
{
    return {kSteps, ValueColumns()};
}

SchemaAge AgeOfSchema(TableDb& db, const ProjectSchema& schema)
{
    const int version = db.SchemaVersion();
    if (version < 0)
        throw DbError("version " + std::to_string(version));
    return version < schema.Version()   ? SchemaAge::Older
           : version > schema.Version() ? SchemaAge::Newer
                                        : SchemaAge::Current;
}

void BringUpProject(TableDb& db, int netConf, const ProjectSchema& schema)
{
    if (AgeOfSchema(db, schema) != SchemaAge::Older || db.IsReadOnly())
        return;
    const int from = db.SchemaVersion();
    DbTransaction transaction(db);
    for (int version = from + 1; version <= schema.Version(); ++version) {
        for (const SchemaStep& step : schema.steps)
            if (step.version == version && step.apply)
                step.apply(db);
        AddColumnsOf(db, netConf, version, schema.columns);
    }
    db.SetSchemaVersion(schema.Version());
    transaction.Commit();
}

} // namespace korvanel
