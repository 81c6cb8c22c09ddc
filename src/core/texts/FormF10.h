// The texts of section FORMF10, as variables. A new one is a line in FormF10.inc.
#pragma once

#include "core/Texts.h"

namespace korvanel::texts {

#define TEXT(variable, number, german) extern QString variable;
#include "core/texts/FormF10.inc"
#undef TEXT

} // namespace korvanel::texts
