// The recording and its evaluation as one text file for a spreadsheet: fields that end in a tab, UTF-8 with a byte
// order mark, whatever the name of the file says.
#pragma once

#include <QString>

namespace korvanel {

/// Writes the file, replacing an existing one: a line for each set, the project and its machine, and the result tables
/// as the page shows them. Progress is shown along. Throws std::runtime_error if the file can't be written and DbError
/// if the sets can't be read; the file is left as far as it was written.
void ExportEvaluation(const QString& path);

/// Asks for a file, exports there, and keeps its folder for the next time. A failure is told; a cancelled dialog does
/// nothing.
void ExportFromPage();

} // namespace korvanel
