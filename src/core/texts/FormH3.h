// The texts of section FORMH3, as variables. A new one is a line in FormH3.inc.
#pragma once

#include "core/Texts.h"

namespace korvanel::texts {

#define TEXT(variable, number, german) extern QString variable;
#include "core/texts/FormH3.inc"
#undef TEXT

} // namespace korvanel::texts
