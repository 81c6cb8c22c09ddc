// The texts of section FORMF6, as variables. A new one is a line in FormF6Texts.inc.
#pragma once

#include <QString>

namespace korvanel::texts {

#define TEXT(variable, number, german) extern QString variable;
#include "core/texts/FormF6Texts.inc"
#undef TEXT

} // namespace korvanel::texts
