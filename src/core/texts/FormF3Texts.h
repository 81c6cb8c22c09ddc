// The texts of section FORMF3, as variables. A new one is a line in FormF3Texts.inc.
#pragma once

#include <QString>

namespace korvanel::texts {

#define TEXT(variable, number, german) extern QString variable;
#include "core/texts/FormF3Texts.inc"
#undef TEXT

} // namespace korvanel::texts
