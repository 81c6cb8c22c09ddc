// The serial link: one request, one fixed wait, one reading. There is no reader thread and no retry; the waits belong
// to the requests and are not cut short.
#pragma once

#include <QByteArray>

namespace korvanel {

/// Sets all port parameters for an instrument with this number of data bits, on the port of the project.
void LinkSettings(int dataBits);

/// Seconds on the high-resolution clock, in steps of a ten-thousandth.
double LinkClock();

/// Lets a time pass; the user interface is not served meanwhile.
void LinkWait(double seconds);

/// Sends a request and takes what has arrived after its wait. What was left in the receive buffer is thrown away
/// before, so that a late reply is never taken for the answer to the next request.
QByteArray Exchange(const QByteArray& request, double wait);

} // namespace korvanel
