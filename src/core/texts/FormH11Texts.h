// The texts of section FORMH11, as variables. A new one is a line in FormH11Texts.inc.
#pragma once

#include <QString>

namespace korvanel::texts {

#define TEXT(variable, number, german) extern QString variable;
#include "core/texts/FormH11Texts.inc"
#undef TEXT

} // namespace korvanel::texts
