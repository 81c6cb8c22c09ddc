// The texts of section FORMF1, as variables. A new one is a line in FormF1.inc.
#pragma once

#include "core/Texts.h"

namespace korvanel::texts {

#define TEXT(variable, number, german) extern QString variable;
#include "core/texts/FormF1.inc"
#undef TEXT

} // namespace korvanel::texts
