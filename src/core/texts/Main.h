// The texts of section MAIN, as variables. A new one is a line in Main.inc.
#pragma once

#include "core/Texts.h"

namespace korvanel::texts {

#define TEXT(variable, number, german) extern QString variable;
#include "core/texts/Main.inc"
#undef TEXT

} // namespace korvanel::texts
