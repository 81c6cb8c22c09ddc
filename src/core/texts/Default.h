// The texts of section DEFAULT, as variables. A new one is a line in Default.inc.
#pragma once

#include "core/Texts.h"

namespace korvanel::texts {

#define TEXT(variable, number, german) extern QString variable;
#include "core/texts/Default.inc"
#undef TEXT

} // namespace korvanel::texts
