// The texts of section FORMF4, as variables. A new one is a line in FormF4Texts.inc.
#pragma once

#include <QString>

namespace korvanel::texts {

#define TEXT(variable, number, german) extern QString variable;
#include "core/texts/FormF4Texts.inc"
#undef TEXT

} // namespace korvanel::texts
