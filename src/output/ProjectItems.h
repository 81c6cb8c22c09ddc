// What export and report tell of the project and of its machine: one item a line, with its label, its value and its
// unit.
#pragma once

#include "core/Machine.h"
#include "core/Texts.h"

#include <QString>

#include <span>

namespace korvanel {

struct ProjectItem
{
    TextRef label;
    QString (*value)();     ///< of the block, in local formats; empty if it is not known
    TextRef unit = nullptr; ///< none
    bool isTyped = false;   ///< the value is a text that a user has typed
};

/// The project: its header, the recording and how it was made.
std::span<const ProjectItem> ProjectItems();

struct MachineItem
{
    TextRef label;
    QString (*value)(const MachineRecord& machine); ///< in local formats; empty if it is not known
    TextRef unit = nullptr;                         ///< none
    bool isTyped = false;
};

/// A machine: rated data, no-load data and what else is known of it.
std::span<const MachineItem> MachineItems();

} // namespace korvanel
