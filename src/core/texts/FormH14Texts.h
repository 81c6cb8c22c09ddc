// The texts of section FORMH14, as variables. A new one is a line in FormH14Texts.inc.
#pragma once

#include <QString>

namespace korvanel::texts {

#define TEXT(variable, number, german) extern QString variable;
#include "core/texts/FormH14Texts.inc"
#undef TEXT

} // namespace korvanel::texts
