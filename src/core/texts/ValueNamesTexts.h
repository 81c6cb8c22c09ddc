// The texts of section VALUE NAMES, as variables. A new one is a line in ValueNamesTexts.inc.
#pragma once

#include <QString>

namespace korvanel::texts {

#define TEXT(variable, number, german) extern QString variable;
#include "core/texts/ValueNamesTexts.inc"
#undef TEXT

} // namespace korvanel::texts
