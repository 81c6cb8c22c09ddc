// The language file that a translation begins with.
#pragma once

#include <QByteArray>

namespace korvanel {

/// A language file in the code page 1252 with every section and number. Each entry is the German text, which stands
/// above it once more as a comment, so that it is still seen when the entry has been translated. A number that the
/// program doesn't use has an empty entry, as the numbers of a section have no gaps.
QByteArray LanguageTemplate();

} // namespace korvanel
