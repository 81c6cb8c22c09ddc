// The texts of section FORMF2, as variables. A new one is a line in FormF2.inc.
#pragma once

#include "core/Texts.h"

namespace korvanel::texts {

#define TEXT(variable, number, german) extern QString variable;
#include "core/texts/FormF2.inc"
#undef TEXT

} // namespace korvanel::texts
