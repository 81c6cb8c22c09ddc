// The texts of section FORMH6, as variables. A new one is a line in FormH6.inc.
#pragma once

#include "core/Texts.h"

namespace korvanel::texts {

#define TEXT(variable, number, german) extern QString variable;
#include "core/texts/FormH6.inc"
#undef TEXT

} // namespace korvanel::texts
