// The check of a language file for translators: its format, and its texts beside the German ones.
#pragma once

#include "language/Complaint.h"

#include <QByteArrayView>

namespace korvanel {

enum class Strictness
{
    Usual,
    Strict ///< texts that are the German ones still are told too
};

/// What is wrong with a language file, by its lines. Without an error among it the program reads the file and has a
/// text for everything.
Complaints CheckLanguage(QByteArrayView content, Strictness strictness = Strictness::Usual);

} // namespace korvanel
