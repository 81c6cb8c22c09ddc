// The texts of section FORMF1, as variables. A new one is a line in FormF1Texts.inc.
#pragma once

#include <QString>

namespace korvanel::texts {

#define TEXT(variable, number, german) extern QString variable;
#include "core/texts/FormF1Texts.inc"
#undef TEXT

} // namespace korvanel::texts
