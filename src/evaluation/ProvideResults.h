// What a page of results needs before it shows any.
#pragma once

class QString;

namespace korvanel {

/// Brings the results of the measured machine and of the second one up to date, if they aren't. Failures are told under
/// the page's title; keys and clicks that came while the program was at it are dropped, since a second click on what
/// led to the page would lead on.
void ProvideResults(const QString& title);

} // namespace korvanel
