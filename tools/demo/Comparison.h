// What the instrument has sent, set beside what the project file holds.
#pragma once

#include "remote/SimulatorProcess.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace korvanel {

struct Comparison
{
    int sent = 0;   ///< whole samples on the line
    int stored = 0; ///< sets in the file
    int values = 0; ///< values that were compared
    QStringList differences;
};

/// Compares a recording of a machine: voltage, current, frequency and phase angle of each set; and each set has to
/// carry the estimate of the machine. `firstExchange` is the first one of the log that belongs to the recording.
Comparison CompareRecording(const QString& projectFile, const std::vector<LoggedExchange>& log,
                            std::size_t firstExchange);

} // namespace korvanel
