// The one dispatcher by which everything talks to an instrument, and the sequences built on it. The driver is that of
// the row of the catalogue whose text is the chosen instrument entry.
#pragma once

#include "instruments/InstrumentDriver.h"

namespace korvanel {

/// Direction of `DevTransfer`.
enum class TransferDirection
{
    Read = 0,
    Write = 1
};

/// Carries out an operation with the driver of `sDevice`. An error stands in `sDevError`, or is shown with the number
/// of the port if `bShowDevErrors` holds; the result is false in either case.
bool DevCommand(quint8 command);

/// The error that `DevCommand` has left, with the number of the port, as it is shown.
QString DevErrorText();

/// Settings, opening, identification and configuration, stopping at the first error; then the transformers and the
/// identity of an instrument that has them. The port is closed at the end.
bool DevConnect();

/// Writes the instrument's transformers if told so, and reads them back.
bool DevTransfer(TransferDirection direction);

bool DevResetCounters();

} // namespace korvanel
