// The texts of section FORMH12, as variables. A new one is a line in FormH12Texts.inc.
#pragma once

#include <QString>

namespace korvanel::texts {

#define TEXT(variable, number, german) extern QString variable;
#include "core/texts/FormH12Texts.inc"
#undef TEXT

} // namespace korvanel::texts
