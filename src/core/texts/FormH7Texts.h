// The texts of section FORMH7, as variables. A new one is a line in FormH7Texts.inc.
#pragma once

#include <QString>

namespace korvanel::texts {

#define TEXT(variable, number, german) extern QString variable;
#include "core/texts/FormH7Texts.inc"
#undef TEXT

} // namespace korvanel::texts
