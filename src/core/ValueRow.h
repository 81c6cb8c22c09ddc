// The row that carries one set of a recording through the program: measured and derived quantities in base units.
// Instruments fill it, the value tables store it, estimation and evaluation read it.
#pragma once

#include <QString>
#include <QtGlobal>

#include <array>

namespace korvanel {

/// Positions within the groups of `tValueRow`: the overall value (mean or total) and the three phases.
enum RowPosition
{
    kSum = 0,
    kPhase1 = 1,
    kPhase2 = 2,
    kPhase3 = 3,
    kNeutral = 4
};

/// One set. Volts, amperes, hertz, watts, volt-amperes, var, degrees, seconds, rpm, newton metres; energies in watt
/// seconds and var seconds. The sign of `dP` tells motor (positive) from generator, the sign of `dPhi` inductive
/// (positive) from capacitive.
struct tValueRow
{
    std::array<double, 4> dU{};      ///< V: mean, L1, L2, L3
    std::array<double, 5> dI{};      ///< A: total, L1, L2, L3, neutral conductor
    double df = 0;                   ///< Hz
    std::array<double, 4> dP{};      ///< W: total, L1, L2, L3
    std::array<double, 4> dS{};      ///< VA: total, L1, L2, L3
    std::array<double, 4> dQ{};      ///< var: total, L1, L2, L3
    std::array<double, 4> dCosPhi{}; ///< power factor: mean, L1, L2, L3
    std::array<double, 4> dPhi{};    ///< degrees: mean, L1, L2, L3
    double dt = 0;                   ///< s since the first set
    double dn = 0;                   ///< rpm
    double dM = 0;                   ///< Nm
    double dPmech = 0;               ///< W at the shaft
    double deta = 0;                 ///< efficiency, 0 to 1
    QString sMethod;                 ///< "V" or "P": method by which speed and torque were estimated
    double dWp = 0;                  ///< Ws
    double dWpPlus = 0;              ///< Ws drawn
    double dWpMinus = 0;             ///< Ws fed back, negative or 0
    double dWq = 0;                  ///< vars
    double dWpAbs = 0;               ///< Ws, register of the instrument; likewise the next five
    double dWpPlusAbs = 0;
    double dWpMinusAbs = 0;
    double dWqAbs = 0;
    double dWqPlusAbs = 0;
    double dWqMinusAbs = 0;
    double dWpRel = 0; ///< Ws since the first set of the recording; likewise the next five
    double dWpPlusRel = 0;
    double dWpMinusRel = 0;
    double dWqRel = 0;
    double dWqPlusRel = 0;
    double dWqMinusRel = 0;
    quint8 bEdit = 0; ///< 255 marks a corrected set, 0 a measured one
};

/// The validity of a sample in which nothing is wrong.
inline const QString kGoodSample = QStringLiteral("NNNN");

/// The set that the instrument drivers fill.
struct tMeasuredRow : tValueRow
{
    /// Voltage, current, power, frequency: "N" valid, "E" invalid. Only `kGoodSample` counts.
    QString sValidMask = kGoodSample;
    qint32 lSet = 0; ///< set counter: 0 at the start of a run, raised before each sample
};

} // namespace korvanel
