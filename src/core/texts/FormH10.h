// The texts of section FORMH10, as variables. A new one is a line in FormH10.inc.
#pragma once

#include "core/Texts.h"

namespace korvanel::texts {

#define TEXT(variable, number, german) extern QString variable;
#include "core/texts/FormH10.inc"
#undef TEXT

} // namespace korvanel::texts
