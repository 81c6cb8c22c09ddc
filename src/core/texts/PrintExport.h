// The texts of section PRINT/EXPORT, as variables. A new one is a line in PrintExport.inc.
#pragma once

#include "core/Texts.h"

namespace korvanel::texts {

#define TEXT(variable, number, german) extern QString variable;
#include "core/texts/PrintExport.inc"
#undef TEXT

} // namespace korvanel::texts
