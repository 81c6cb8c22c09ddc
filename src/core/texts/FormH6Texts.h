// The texts of section FORMH6, as variables. A new one is a line in FormH6Texts.inc.
#pragma once

#include <QString>

namespace korvanel::texts {

#define TEXT(variable, number, german) extern QString variable;
#include "core/texts/FormH6Texts.inc"
#undef TEXT

} // namespace korvanel::texts
