// The texts of section FORMH17, as variables. A new one is a line in FormH17Texts.inc.
#pragma once

#include <QString>

namespace korvanel::texts {

#define TEXT(variable, number, german) extern QString variable;
#include "core/texts/FormH17Texts.inc"
#undef TEXT

} // namespace korvanel::texts
