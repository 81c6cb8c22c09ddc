#include "core/Printers.h"

#include "core/Common.h"
#include "core/Shell.h"

namespace korvanel {

bool HasDefaultPrinter()
{
    return !App().TheShell->DefaultPrinterName().isEmpty();
}

void FillPrinterList(ListControl& list)
{
    const QStringList names = App().TheShell->PrinterNames();
    for (const QString& name : names)
        list.AddItem(name);
    const qsizetype preset = names.indexOf(App().TheShell->DefaultPrinterName());
    if (preset >= 0)
        list.SelectItem(static_cast<int>(preset));
}

bool SelectPrinter(const QString& name)
{
    if (!App().TheShell->PrinterNames().contains(name))
        return false;
    App().sPrinter = name;
    return true;
}

} // namespace korvanel
