// What the power analysers YOKOGAWA WT130 and 2535 put into their blocks, as plain conversions: from the text of the
// reply to values in base units. The fields stand at fixed places that depend on the wiring.
#pragma once

#include "core/ValueRow.h"

#include <QByteArray>

namespace korvanel {

enum class YokogawaWiring
{
    SinglePhase,
    ThreeWire,
    FourWire ///< voltages to the neutral conductor
};

/// What voltages and currents are multiplied with: transformers, and what the instrument scales by itself.
struct YokogawaScale
{
    double voltage = 1;
    double current = 1;
};

inline constexpr qsizetype kWt130BlockLength = 261;
/// Characters of a block of the 2535.
qsizetype Y2535BlockLength(YokogawaWiring wiring);

/// Fills a row from a whole block of the WT130. `isSymmetricNet`: a single-phase meter stands for three phases of equal
/// load, so that its voltage becomes that between the phases and its powers are tripled.
void FillFromWt130(tMeasuredRow& row, const QByteArray& block, YokogawaWiring wiring, const YokogawaScale& scale,
                   bool isSymmetricNet);

/// The same for the 2535, whose block holds no angle: reactive power and angle are never negative. Active power beyond
/// what a reactive one can be formed from makes the sample invalid in a four-wire net.
void FillFrom2535(tMeasuredRow& row, const QByteArray& block, YokogawaWiring wiring, const YokogawaScale& scale,
                  bool isSymmetricNet);

/// Factors of the instrument's own scaling as the setup text of the 2535 tells them; 1 where it is off, can't be read
/// or is 0.
YokogawaScale ScaleOf2535(const QByteArray& setup);

} // namespace korvanel
