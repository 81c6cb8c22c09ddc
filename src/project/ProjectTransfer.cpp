#include "project/ProjectTransfer.h"

#include "core/ProjectDb.h"
#include "project/KeyValueTable.h"

#include <QVariant>

namespace korvanel {

namespace {

void MoveValue(KeyValueTable& table, Direction direction, const ProjectKey& key)
{
    if (direction == Direction::Read)
        table.Read(key);
    else
        table.Write(key);
}

/// The value of a field, to be compared with a later one.
QVariant ValueOf(const ProjectField& field)
{
    return std::visit([](const auto* value) { return QVariant(*value); }, field);
}

/// What the file holds of the recording as far as this program knows, in the order of the keys.
std::vector<QVariant>& KnownRecording()
{
    static std::vector<QVariant> values;
    return values;
}

std::vector<QVariant> RecordingOfBlock()
{
    std::vector<QVariant> values;
    for (const ProjectKey& key : ProjectKeys())
        if (key.isOfRecording)
            values.push_back(ValueOf(key.field));
    return values;
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
        KnownRecording() = RecordingOfBlock();
        return;
    }
    DbTransaction transaction(ProjectDb());
    move();
    transaction.Commit();
    KnownRecording() = RecordingOfBlock();
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

void SaveProjectData()
{
    // Unchanged since the last look at the file: whatever stands there now is the truth.
    const bool isUnchanged = RecordingOfBlock() == KnownRecording();
    DbTransaction transaction(ProjectDb());
    if (isUnchanged)
        TransferKeys(Direction::Read, [](const ProjectKey& key) { return key.isOfRecording; });
    TransferKeys(Direction::Write, [](const ProjectKey&) { return true; });
    transaction.Commit();
}

void TransferMeasurementHeader(Direction direction)
{
    TransferKeys(direction, [](const ProjectKey& key) { return key.isMeasurementHeader; });
}

void TransferRecordingKeys(Direction direction)
{
    TransferKeys(direction, [](const ProjectKey& key) { return key.isOfRecording; });
}

void WriteRecordingKeys()
{
    TransferRecordingKeys(Direction::Write);
}

} // namespace korvanel
