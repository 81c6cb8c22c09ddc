// The texts of section FORMF2, as variables. A new one is a line in FormF2Texts.inc.
#pragma once

#include <QString>

namespace korvanel::texts {

#define TEXT(variable, number, german) extern QString variable;
#include "core/texts/FormF2Texts.inc"
#undef TEXT

} // namespace korvanel::texts
