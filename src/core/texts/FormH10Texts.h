// The texts of section FORMH10, as variables. A new one is a line in FormH10Texts.inc.
#pragma once

#include <QString>

namespace korvanel::texts {

#define TEXT(variable, number, german) extern QString variable;
#include "core/texts/FormH10Texts.inc"
#undef TEXT

} // namespace korvanel::texts
