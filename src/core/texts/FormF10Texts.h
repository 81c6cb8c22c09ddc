// The texts of section FORMF10, as variables. A new one is a line in FormF10Texts.inc.
#pragma once

#include <QString>

namespace korvanel::texts {

#define TEXT(variable, number, german) extern QString variable;
#include "core/texts/FormF10Texts.inc"
#undef TEXT

} // namespace korvanel::texts
