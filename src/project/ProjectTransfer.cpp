#include "project/ProjectTransfer.h"

#include "core/ProjectDb.h"
#include "project/KeyValueTable.h"

namespace korvanel {

namespace {

void MoveValue(KeyValueTable& table, Direction direction, const ProjectKey& key)
{
    if (direction == Direction::Read)
        table.Read(key);
    else
        table.Write(key);
}

template <typename Selected>
void TransferKeys(Direction direction, Selected&& isSelected)
{
    KeyValueTable overview(ProjectDb(), ProjectTable::Overview);
    KeyValueTable settings(ProjectDb(), ProjectTable::Settings);
    const auto move = [&] {
        for (const ProjectKey& key : ProjectKeys())
            if (isSelected(key))
                MoveValue(key.table == ProjectTable::Overview ? overview : settings, direction, key);
    };
    if (direction == Direction::Read) {
        move();
        return;
    }
    DbTransaction transaction(ProjectDb());
    move();
    transaction.Commit();
}

} // namespace

void TransferValue(Direction direction, const ProjectKey& key)
{
    KeyValueTable table(ProjectDb(), key.table);
    MoveValue(table, direction, key);
}

void TransferProjectData(Direction direction)
{
    TransferKeys(direction, [](const ProjectKey&) { return true; });
}

void TransferMeasurementHeader(Direction direction)
{
    TransferKeys(direction, [](const ProjectKey& key) { return key.isMeasurementHeader; });
}

void WriteRecordingKeys()
{
    TransferKeys(Direction::Write, [](const ProjectKey& key) { return key.isOfRecording; });
}

} // namespace korvanel
