// The texts of section DEFAULT, as variables. A new one is a line in DefaultTexts.inc.
#pragma once

#include <QString>

namespace korvanel::texts {

#define TEXT(variable, number, german) extern QString variable;
#include "core/texts/DefaultTexts.inc"
#undef TEXT

} // namespace korvanel::texts
