// The texts of section FORMF8, as variables. A new one is a line in FormF8Texts.inc.
#pragma once

#include <QString>

namespace korvanel::texts {

#define TEXT(variable, number, german) extern QString variable;
#include "core/texts/FormF8Texts.inc"
#undef TEXT

} // namespace korvanel::texts
