// The texts of section MAIN, as variables. A new one is a line in MainTexts.inc.
#pragma once

#include <QString>

namespace korvanel::texts {

#define TEXT(variable, number, german) extern QString variable;
#include "core/texts/MainTexts.inc"
#undef TEXT

} // namespace korvanel::texts
