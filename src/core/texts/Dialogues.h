// The texts of section DIALOGUES, as variables. A new one is a line in Dialogues.inc.
#pragma once

#include "core/Texts.h"

namespace korvanel::texts {

#define TEXT(variable, number, german) extern QString variable;
#include "core/texts/Dialogues.inc"
#undef TEXT

} // namespace korvanel::texts
