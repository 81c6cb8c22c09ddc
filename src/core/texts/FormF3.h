// The texts of section FORMF3, as variables. A new one is a line in FormF3.inc.
#pragma once

#include "core/Texts.h"

namespace korvanel::texts {

#define TEXT(variable, number, german) extern QString variable;
#include "core/texts/FormF3.inc"
#undef TEXT

} // namespace korvanel::texts
