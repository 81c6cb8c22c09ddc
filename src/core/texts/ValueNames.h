// The texts of section VALUE NAMES, as variables. A new one is a line in ValueNames.inc.
#pragma once

#include "core/Texts.h"

namespace korvanel::texts {

#define TEXT(variable, number, german) extern QString variable;
#include "core/texts/ValueNames.inc"
#undef TEXT

} // namespace korvanel::texts
