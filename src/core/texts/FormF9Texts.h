// The texts of section FORMF9, as variables. A new one is a line in FormF9Texts.inc.
#pragma once

#include <QString>

namespace korvanel::texts {

#define TEXT(variable, number, german) extern QString variable;
#include "core/texts/FormF9Texts.inc"
#undef TEXT

} // namespace korvanel::texts
