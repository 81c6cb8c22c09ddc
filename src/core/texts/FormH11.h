// The texts of section FORMH11, as variables. A new one is a line in FormH11.inc.
#pragma once

#include "core/Texts.h"

namespace korvanel::texts {

#define TEXT(variable, number, german) extern QString variable;
#include "core/texts/FormH11.inc"
#undef TEXT

} // namespace korvanel::texts
