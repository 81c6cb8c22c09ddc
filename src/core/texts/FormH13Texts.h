// The texts of section FORMH13, as variables. A new one is a line in FormH13Texts.inc.
#pragma once

#include <QString>

namespace korvanel::texts {

#define TEXT(variable, number, german) extern QString variable;
#include "core/texts/FormH13Texts.inc"
#undef TEXT

} // namespace korvanel::texts
