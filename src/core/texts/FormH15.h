// The texts of section FORMH15, as variables. A new one is a line in FormH15.inc.
#pragma once

#include "core/Texts.h"

namespace korvanel::texts {

#define TEXT(variable, number, german) extern QString variable;
#include "core/texts/FormH15.inc"
#undef TEXT

} // namespace korvanel::texts
