// Rows of numbers between the clipboard and the sets: the marked sets as a table for spreadsheets, and a table from
// there as sets.
#pragma once

#include "editor/EntryColumns.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace korvanel {

/// Most sets that are copied at once; for more there is the export.
inline constexpr qint32 kMostCopied = 100'000;

/// A heading and the sets as the grid shows them, separated by tabs. A failure of the file is told; nothing then.
QString CopiedRows(qint32 first, qint32 count);

/// Entries of a row, in the order of the columns that they are for.
using PastedRow = std::vector<double>;

struct PastedRows
{
    std::vector<const EntryColumn*> columns;
    std::vector<PastedRow> rows;
    QString complaint; ///< what is wrong with the first bad cell; nothing is to be stored then
};

/// Reads a table of text: cells between tabs, or semicolons where there is no tab; numbers with a decimal comma or
/// point. With a heading whose columns are named as in the grid those that can be entered are taken, by their names.
/// Without, they are what can be entered in the order of the grid; the sign of the reactive power at the end may be
/// missing. All cells are checked, as typed ones are. Where they are for a number of marked sets, they have to be as
/// many.
PastedRows ReadPastedRows(const QString& text, std::optional<qint32> marked = std::nullopt);

/// Puts the rows behind a set (0: in front of all) as new sets; what follows moves up and the times are renumbered.
/// The new ones are marked as corrected, without energies and time stamp. False after a failure, which is told.
bool InsertPasted(const PastedRows& pasted, qint32 behind);

/// Enters the rows into as many sets from `first` on. Sets that aren't there are left alone without a word.
bool OverwriteWithPasted(const PastedRows& pasted, qint32 first);

} // namespace korvanel
