// The texts of section PRINT/EXPORT, as variables. A new one is a line in PrintExportTexts.inc.
#pragma once

#include <QString>

namespace korvanel::texts {

#define TEXT(variable, number, german) extern QString variable;
#include "core/texts/PrintExportTexts.inc"
#undef TEXT

} // namespace korvanel::texts
