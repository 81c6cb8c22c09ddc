// The texts of section FORMF4, as variables. A new one is a line in FormF4.inc.
#pragma once

#include "core/Texts.h"

namespace korvanel::texts {

#define TEXT(variable, number, german) extern QString variable;
#include "core/texts/FormF4.inc"
#undef TEXT

} // namespace korvanel::texts
