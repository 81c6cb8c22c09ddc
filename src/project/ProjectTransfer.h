// Header and settings between the fields of the application block and the two key-value tables of the open project.
#pragma once

#include "project/ProjectKeys.h"

namespace korvanel {

enum class Direction
{
    Read,
    Write
};

/// Moves one key between its row and its field. Reading a missing key leaves the field; a value of another type or
/// outside the key's limits throws DbError.
void TransferValue(Direction direction, const ProjectKey& key);

/// Moves all keys of both tables, in their order. Writing is one transaction.
void TransferProjectData(Direction direction);

/// Writes all keys as a save does: what is said of the recording is left to whoever has changed it since this program
/// last read or wrote it, another program perhaps, and read from the file instead.
void SaveProjectData();

/// Moves the four keys that a run changes: begin, end, term and identity of the instrument.
void TransferMeasurementHeader(Direction direction);

/// Moves what is said of the recording: those four, the instrument, the interval and the state of the energies.
void TransferRecordingKeys(Direction direction);
/// The same, writing.
void WriteRecordingKeys();

} // namespace korvanel
