// What one evaluation of a recording yields. Vocabulary that tables, diagrams, reports and export share; what fills it
// stands in `evaluation/`.
#pragma once

#include "core/Quantities.h"

#include <QString>
#include <QtGlobal>

#include <array>
#include <optional>

namespace korvanel {

/// A value and the set at which it was reached; for a window the last set of the window.
struct ExtremEntry
{
    double dValue = 0; ///< base unit of its quantity; during a pass the raw sum of a window
    qint32 lSet = 0;
};

/// Channels of the sliding window: 0 to 11 are the quantities of the same numbers, 12 is the power lost in the machine.
inline constexpr int kWindowChannelCount = 13;
inline constexpr int kLossChannel = 12;

/// A sum over the sets, split by the sign of the quantity that decides.
struct EnergyEntry
{
    double dPlus = 0;
    double dMinus = 0;
    double dTotal = 0; ///< over all sets, those without a sign included
};

/// Rows of `tEnergy`. From `kEnergyOfCycles` on the same eight stand for the chosen number of cycles.
enum EnergyRow
{
    kEnergyActive = 0,     ///< Ws
    kEnergyReactive = 1,   ///< vars
    kEnergyCurrent = 2,    ///< As
    kEnergyApparent = 3,   ///< VAs
    kEnergyMechanical = 4, ///< Ws
    kEnergyEfficiency = 5, ///< 0 to 1
    kCostsActive = 6,      ///< currency: drawn, credit, difference
    kCostsReactive = 7,    ///< currency, `dPlus` alone
    kEnergyOfCycles = 8,
    kEnergyRowCount = 16
};

/// How far the machine was used, by one measure.
struct UtilisationEntry
{
    double dValue = 0;            ///< A, Nm or W
    std::optional<double> vRatio; ///< over its rated value; nothing where that is not known
    double dSet = 0;              ///< at which it was reached: of a window the last, of the whole recording the count
    qint32 lColour = 0;           ///< of the verdict: blue, green, red from the high to the low byte
    QString sVerdict;
};

/// Rows of `tAsm`.
enum UtilisationRow
{
    kMostTorque = 0,
    kWindowCurrent = 1,
    kWindowTorque = 2,
    kWindowPower = 3,
    kWindowPowerOfTorque = 4, ///< what the torque would give at rated speed
    kWindowLoss = 5,
    kWholeCurrent = 6,
    kWholeTorque = 7,
    kWholePower = 8,
    kWholePowerOfTorque = 9,
    kWholeLoss = 10,
    kUtilisationRowCount = 11
};

inline constexpr int kRatingCount = 4; ///< 0 none, 1 good, 2 medium, 3 bad
/// Colours of the ratings: blue, green, red from the high to the low byte.
inline constexpr std::array<qint32, kRatingCount> kRatingColours{0, 49152, 40443, 192};

struct EvaluationResults
{
    using Extremes = std::array<ExtremEntry, kQuantityCount>;
    using WindowExtremes = std::array<ExtremEntry, kWindowChannelCount>;

    Extremes tExtremMin{}; ///< by the numbers of the quantities
    Extremes tExtremMax{};
    WindowExtremes tRmsMin{}; ///< by channel; the loss has no rms
    WindowExtremes tRmsMax{};
    WindowExtremes tAvgMin{};
    WindowExtremes tAvgMax{};
    std::array<double, kWindowChannelCount> dWindowSumSq{}; ///< over the sets now in the window
    std::array<double, kWindowChannelCount> dWindowSum{};
    double dWindowRows = 0;    ///< number of sets now in the window; in the end the divisor of all window results
    qint32 lCorrectedRows = 0; ///< sets that are not as they were measured
    std::array<EnergyEntry, kEnergyRowCount> tEnergy{};
    std::array<UtilisationEntry, kUtilisationRowCount> tAsm{};
    std::array<qint32, kRatingCount> lRowClassCount{}; ///< sets by the worst rating among their values

    // What the figures were formed with, for showing them after an option has changed.
    qint32 lSets = 0;       ///< number of sets
    double dWindowSpan = 0; ///< Int(window length / interval): sets of a full window but one
    QString sWindow;        ///< the window as headings tell it
    QString sCurrency;

    // What of the recording's time has no sets: samples that were rejected, an instrument that was silent.
    qint32 lGaps = 0;     ///< places where it lacks one set or more, the end of the recording included
    double dMissing = 0;  ///< sets that are lacking
    double dCoverage = 0; ///< time that the sets cover over the time of the recording, 0 to 1
};

} // namespace korvanel
