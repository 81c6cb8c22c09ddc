// What leaves the program as a picture of a diagram: a file that the user names, and the clipboard.
#pragma once

#include "diagrams/DiagramPicture.h"

namespace korvanel {

/// Asks for a file, suggested beside the project's, and saves the sheet in the format of its ending. Tells what fails.
/// Throws DbError.
void SavePicture(SetValues& values, const DiagramSheet& sheet, QSize size);

/// Throws DbError.
void CopyPicture(SetValues& values, const DiagramSheet& sheet, QSize size);

} // namespace korvanel
