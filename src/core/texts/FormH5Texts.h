// The texts of section FORMH5, as variables. A new one is a line in FormH5Texts.inc.
#pragma once

#include <QString>

namespace korvanel::texts {

#define TEXT(variable, number, german) extern QString variable;
#include "core/texts/FormH5Texts.inc"
#undef TEXT

} // namespace korvanel::texts
