// Ratings 0 to 3 of single values and of whole sets: "-", "gut", "mittel", "schlecht", each with its colour.
#pragma once

#include "core/Evaluation.h"
#include "core/ValueRow.h"
#include "evaluation/RatedData.h"

#include <QString>

#include <span>

namespace korvanel {

/// By what a value is judged.
enum class RatingMode
{
    Set,       ///< by nothing: begins a new set
    Mmax,      ///< share of the stall torque
    Extrem,    ///< share of a rated value in continuous duty
    None,      ///< by nothing
    MachineI,  ///< its quantity, by the measured machine
    MachineII, ///< its quantity, by the machine of the simulation
};

/// Judges values of quantities by one machine, for a whole pass over the sets.
class Rater
{
public:
    Rater(const RatedData& ratedData, int netConf);

    /// Rating of a value in base units. Without a machine in the net configuration only the plausible range counts: a
    /// value outside of it is bad. 0 for a number that is no quantity.
    int Rate(double value, int quantity) const;
    /// Worst rating of voltage, frequency, torque, electrical power, speed, shaft power and efficiency of a set. The
    /// current is not rated.
    int RateRow(const tValueRow& row) const;

private:
    int AgainstRatedData(double value, int quantity) const;

    RatedData rated;
    bool hasMachine;
};

/// Rating of the largest torque as a share of the stall torque: up to 0.8 good, up to 1 medium.
int RateStallShare(double share);

/// Rating of a share of a rated value: up to 0.85 good, up to 1 medium.
int RateRatedShare(double share);

qint32 RatingColour(int rating);
const QString& RatingWord(int rating);

/// Quantities by which a set is rated, in order.
std::span<const int> RatedQuantities();

/// Rates a value by the machines of the block and returns the colour. The quantity counts in the modes of the machines
/// alone; these raise `iRowWorstRating`, and the mode Set clears it. With `wantWord` the word is kept in
/// `sRatingWord`.
qint32 RateValue(double value, int quantity, RatingMode mode, bool wantWord);

/// Rates a set by a machine of the block. The worst rating is returned, and stays in `iRowWorstRating`.
int RateRow(const tValueRow& row, RatingMode mode);

} // namespace korvanel
