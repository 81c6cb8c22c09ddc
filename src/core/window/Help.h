// The help menu: manual, About box, and the way into the browser.
#pragma once

#include <QString>

namespace korvanel {

/// Opens the manual with the program that the system has for it; a missing one is told.
void OpenManual();

/// Hands an address to the platform's default browser.
void RunBrowser(const QString& url);

} // namespace korvanel
