// Texts of a user in tool tips, which the toolkit would take for markup where they look like it.
#pragma once

#include <QString>

namespace korvanel {

/// A tool tip that shows the text as it stands, also where it looks like markup.
QString PlainToolTip(const QString& text);

} // namespace korvanel
