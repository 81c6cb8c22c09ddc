#pragma once

#include <QPixmap>

namespace korvanel {

/// A picture that lies beside the program; empty if there is none, or what has its name is no ordinary file.
QPixmap LoadPicture(const QString& name);

} // namespace korvanel
