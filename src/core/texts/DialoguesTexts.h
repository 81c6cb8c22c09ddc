// The texts of section DIALOGUES, as variables. A new one is a line in DialoguesTexts.inc.
#pragma once

#include <QString>

namespace korvanel::texts {

#define TEXT(variable, number, german) extern QString variable;
#include "core/texts/DialoguesTexts.inc"
#undef TEXT

} // namespace korvanel::texts
