// The texts of section FORMF5, as variables. A new one is a line in FormF5Texts.inc.
#pragma once

#include <QString>

namespace korvanel::texts {

#define TEXT(variable, number, german) extern QString variable;
#include "core/texts/FormF5Texts.inc"
#undef TEXT

} // namespace korvanel::texts
