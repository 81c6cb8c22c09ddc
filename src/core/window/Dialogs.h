// Message boxes and file dialogs of the toolkit, with the program's own button texts. File dialogs are the toolkit's
// own on every system, so that they look and behave alike.
#pragma once

#include "core/Shell.h"

class QWidget;

namespace korvanel {

Answer RunBox(QWidget* parent, const Box& box);

/// Empty if cancelled.
QString RunOpenDialog(QWidget* parent, const FileQuestion& question);

/// Nothing if cancelled.
std::optional<QString> RunSaveDialog(QWidget* parent, const FileQuestion& question);

} // namespace korvanel
