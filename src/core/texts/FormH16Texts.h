// The texts of section FORMH16, as variables. A new one is a line in FormH16Texts.inc.
#pragma once

#include <QString>

namespace korvanel::texts {

#define TEXT(variable, number, german) extern QString variable;
#include "core/texts/FormH16Texts.inc"
#undef TEXT

} // namespace korvanel::texts
