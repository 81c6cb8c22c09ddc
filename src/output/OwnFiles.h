// What an output must not be written over.
#pragma once

#include <QString>

namespace korvanel {

/// Whether the program keeps its own data in a file, or the database engine what it needs after a crash.
bool IsOwnFile(const QString& path);

} // namespace korvanel
