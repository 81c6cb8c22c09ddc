// The texts of section FORMH7, as variables. A new one is a line in FormH7.inc.
#pragma once

#include "core/Texts.h"

namespace korvanel::texts {

#define TEXT(variable, number, german) extern QString variable;
#include "core/texts/FormH7.inc"
#undef TEXT

} // namespace korvanel::texts
