// The texts of section FORMH15, as variables. A new one is a line in FormH15Texts.inc.
#pragma once

#include <QString>

namespace korvanel::texts {

#define TEXT(variable, number, german) extern QString variable;
#include "core/texts/FormH15Texts.inc"
#undef TEXT

} // namespace korvanel::texts
