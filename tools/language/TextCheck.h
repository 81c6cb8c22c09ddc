// One translated text beside the German one: what has to be alike in both.
#pragma once

#include "language/Complaint.h"

#include "core/Texts.h"

namespace korvanel {

/// What is wrong with the translation of a text. `translation` has line breaks. Strictly, a text that is the German one
/// still is told too; many are rightly the same in both languages.
Complaints CheckText(int line, const TextLine& german, const QString& translation, bool isStrict);

} // namespace korvanel
