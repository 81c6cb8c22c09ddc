// The texts of section FORMH3, as variables. A new one is a line in FormH3Texts.inc.
#pragma once

#include <QString>

namespace korvanel::texts {

#define TEXT(variable, number, german) extern QString variable;
#include "core/texts/FormH3Texts.inc"
#undef TEXT

} // namespace korvanel::texts
