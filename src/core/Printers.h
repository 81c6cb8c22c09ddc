// The printers of the system, as pages choose one.
#pragma once

#include <QString>

namespace korvanel {

class ListControl;

/// True if the default printer's name can be read.
bool HasDefaultPrinter();

/// Adds the name of each installed printer and selects the default one, if it is listed.
void FillPrinterList(ListControl& list);

/// Makes the printer of that name the current one; false if there is none.
bool SelectPrinter(const QString& name);

} // namespace korvanel
