// The texts of section FORMH9, as variables. A new one is a line in FormH9Texts.inc.
#pragma once

#include <QString>

namespace korvanel::texts {

#define TEXT(variable, number, german) extern QString variable;
#include "core/texts/FormH9Texts.inc"
#undef TEXT

} // namespace korvanel::texts
