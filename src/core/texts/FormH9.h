// The texts of section FORMH9, as variables. A new one is a line in FormH9.inc.
#pragma once

#include "core/Texts.h"

namespace korvanel::texts {

#define TEXT(variable, number, german) extern QString variable;
#include "core/texts/FormH9.inc"
#undef TEXT

} // namespace korvanel::texts
