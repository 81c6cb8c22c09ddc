// Conversion of a project of the predecessor, VELDRIK, into a project of this program: the old file is read into a
// description (OldProjectFile.h), and this is stored by the operations that every project goes through.
#pragma once

#include <QString>

namespace korvanel {

/// Asks for an old file and for the name of the new one, converts, and tells how it went.
void ConvertOldProject();

/// Converts without asking; a file of the target's name goes once the new one is complete. A failure is told, or thrown
/// as ArithmeticFault where a value is no number or what follows from it is none. False after a failure, and files and
/// block are as they were then. No project is open afterwards.
bool ConvertOldFile(const QString& source, const QString& target);

} // namespace korvanel
