// What the instrument has sent, set beside what the project file holds, and that beside what was exported.
#pragma once

#include "demo/DemoInstrument.h"
#include "remote/SimulatorProcess.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace korvanel {

struct Comparison
{
    int sent = 0;     ///< whole samples on the line
    int stored = 0;   ///< sets in the file
    int exported = 0; ///< sets in the exported text
    int values = 0;   ///< values that were compared
    QStringList differences;
};

/// Compares a recording of a machine: what the instrument tells of each set; and each set has to carry the estimate of
/// the machine. `firstExchange` is the first one of the log that belongs to the recording.
Comparison CompareRecording(const DemoInstrument& instrument, const QString& projectFile,
                            const std::vector<LoggedExchange>& log, std::size_t firstExchange);

/// Compares the lines of an exported text with the sets of the project file: the same sets, and the same numbers for
/// voltage, current, frequency, active power, speed and torque.
void CompareExport(const QString& projectFile, const QString& exportFile, Comparison& result);

} // namespace korvanel
