// The texts of section FORMH5, as variables. A new one is a line in FormH5.inc.
#pragma once

#include "core/Texts.h"

namespace korvanel::texts {

#define TEXT(variable, number, german) extern QString variable;
#include "core/texts/FormH5.inc"
#undef TEXT

} // namespace korvanel::texts
