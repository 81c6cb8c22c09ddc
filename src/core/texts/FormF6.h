// The texts of section FORMF6, as variables. A new one is a line in FormF6.inc.
#pragma once

#include "core/Texts.h"

namespace korvanel::texts {

#define TEXT(variable, number, german) extern QString variable;
#include "core/texts/FormF6.inc"
#undef TEXT

} // namespace korvanel::texts
