// The value tables of the open project as a whole: creating, dropping, emptying, counting, and the columns that grids
// show of them.
#pragma once

#include "core/TableDb.h"

#include <QtGlobal>

#include <vector>

namespace korvanel {

/// Creates `SampledValues` and `ComputedValues` for the net configuration of the block. Throws DbError.
void CreateValueTables();

/// Drops all three value tables. Throws DbError.
void DropValueTables();

/// Deletes all sets and the simulation, in one transaction. Throws DbError.
void ClearValues();

/// Creates the table of the simulated sets. Throws DbError.
void CreateSimulatedTable();

/// Number of sets. Throws DbError if the tables can't be read.
qint32 CountSets();

/// Whether anything has been recorded, were it only in the table of the samples. Throws DbError.
bool HasSamples();

/// Counts the sets into the block; true if there is at least one. Tables that can't be read count as empty.
bool RefreshSetCount();

/// Recounts the sets and, if there are any, writes the duration of the recording into the header.
void UpdateMeasurementTerm();
/// The same where the sets have just been counted, which walks the whole recording.
void TermFromSetCount();

/// Fills the block's column layout for its net configuration.
void BuildColumnLayout();

/// Columns that the grids show in a net configuration, in order.
std::vector<qint16> ColumnLayoutOf(int netConf);

} // namespace korvanel
