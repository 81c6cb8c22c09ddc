#include "core/clsWaitCursor.h"

#include "core/Common.h"
#include "core/Shell.h"

namespace korvanel {

clsWaitCursor::~clsWaitCursor()
{
    if (isShown)
        App().TheShell->SetWaitCursor(false);
}

void clsWaitCursor::Show()
{
    if (isShown)
        return;
    isShown = true;
    App().TheShell->SetWaitCursor(true);
}

} // namespace korvanel
