// What a project's header and settings consist of: every key with its table and the field of the application block that
// it stands for, in the order in which a save writes them. A new key is one line.
#pragma once

#include "core/Common.h"

#include <functional>
#include <span>
#include <string>
#include <variant>
#include <vector>

namespace korvanel {

enum class ProjectTable
{
    Overview,
    Settings
};

/// A field of the block; its type decides on the column of the key-value table.
using ProjectField = std::variant<qint16*, qint32*, double*, QDateTime*, QString*, bool*>;

struct ProjectKey
{
    ProjectTable table;
    std::string name;
    ProjectField field;
    /// Accepted numbers; a file that holds another one is not read as a project.
    double minimum;
    double maximum;
    bool isOnDemand = false;          ///< a truth value that is stored once it has become true
    bool isMeasurementHeader = false; ///< one of the four keys that a run writes alone
    bool isOfRecording = false; ///< those four, the instrument, the interval, the energies: what is said of the sets
};

const char* TableName(ProjectTable table);

/// All keys with the fields of the block.
const std::vector<ProjectKey>& ProjectKeys();

/// The key that stands for a field of the block. Throws std::out_of_range for a field that isn't stored.
const ProjectKey& KeyOf(const ProjectField& field);

/// Sets every field of the two tables to its default, with the constants of the block, and resets what else belongs to
/// a project: marked sets, machines, scale factors of the instrument. The simulation flag and the two energies
/// by sign among the column choices keep what they had.
void ResetProjectData();

} // namespace korvanel
