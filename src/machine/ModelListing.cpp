#include "machine/ModelListing.h"

#include "core/NumberText.h"
#include "core/Texts.h"

namespace korvanel {

namespace {

using T = TextTable;
using M = MachineModel;

/// How a value is shown: what it is multiplied with and divided by, and the unit behind it.
struct Shown
{
    TextMember unit = nullptr;
    double factor = 1;
    double divisor = 1;
};
constexpr Shown kTorque{&T::modelTorqueUnit};
constexpr Shown kPower{&T::modelPowerUnit, 1, 1000};
constexpr Shown kSpeed{&T::modelSpeedUnit};
constexpr Shown kAngle{&T::modelAngleUnit};
constexpr Shown kPercent{&T::modelPercentUnit, 100};
constexpr Shown kResistance{&T::modelResistanceUnit};
constexpr Shown kMinutes{&T::modelTimeUnit, 1, 60};
constexpr Shown kPlain{};

/// One line, shown if all that it needs is known. Without a label it is a rule.
struct ListingLine
{
    unsigned needs;
    TextMember label = nullptr;
    double M::*value = nullptr;
    Shown shown = {};
};

constexpr unsigned Bit(MachineKnowledge piece)
{
    return 1U << static_cast<unsigned>(piece);
}
constexpr unsigned kRating = Bit(kRatingKnown);
constexpr unsigned kStall = Bit(kStallRatioKnown);
constexpr unsigned kThermal = Bit(kInsulationClassKnown) | Bit(kMassKnown);
constexpr unsigned kNoLoad = Bit(kNoLoadKnown);
constexpr unsigned kConnection = Bit(kConnectionKnown);

constexpr ListingLine kLines[] = {
    {0, &T::modelFrictionTorque, &M::Mreib_rech, kTorque},
    {kRating, &T::modelRatedPower, &M::Pelec_n, kPower},
    {kRating, &T::modelRatedSynchronousSpeed, &M::n_syn_n, kSpeed},
    {kRating, &T::modelRatedAngle, &M::phi_n, kAngle},
    {kRating, &T::modelRatedSlip, &M::Nennschlupf, kPercent},
    {kRating},
    {kRating, &T::modelNoLoadRegress, &M::Po_regress, kPower},
    {kRating, &T::modelNoLoadPolynom, &M::Po_polynom, kPower},
    {kRating, &T::modelNoLoadRzm, &M::Po_RZM, kPower},
    {kRating, &T::modelNoLoadPower, &M::Po_rech, kPower},
    {kRating},
    {kRating, &T::modelRatedRzmD, &M::M_RZM_D_n, kTorque},
    {kRating, &T::modelRatedRzmY, &M::M_RZM_Y_n, kTorque},
    {kRating, &T::modelRatedFrictionD, &M::Mreib_D_n, kTorque},
    {kRating, &T::modelRatedFrictionY, &M::Mreib_Y_n, kTorque},
    {kRating, &T::modelRatedPowerD, &M::Po_D_n, kPower},
    {kRating, &T::modelRatedPowerY, &M::Po_Y_n, kPower},
    {kRating},
    {kRating, &T::modelLoadLoss, &M::k_maschine, kPlain},
    {kRating, &T::modelRotorConstant, &M::R2, kPlain},
    {kRating, &T::modelResistancePolynom, &M::Rs_polynom, kResistance},
    {kRating, &T::modelResistance, &M::Rs_rech, kResistance},
    {kStall},
    {kStall, &T::modelStallSlip, &M::Kippschlupf, kPercent},
    {kStall, &T::modelStallTorque, &M::Kippmoment, kTorque},
    {kThermal},
    {kThermal, &T::modelThermalTime, &M::Tth_ICL, kMinutes},
    {kNoLoad},
    {kNoLoad, &T::modelNoLoadFactor, &M::cosphi_o, kPlain},
    {kNoLoad, &T::modelNoLoadAngle, &M::phi_o, kAngle},
    {kNoLoad, &T::modelNoLoadSynchronousSpeed, &M::n_syn_o, kSpeed},
    {kNoLoad},
    {kNoLoad, &T::modelNoLoadRzmD, &M::M_RZM_D_o, kTorque},
    {kNoLoad, &T::modelNoLoadRzmY, &M::M_RZM_Y_o, kTorque},
    {kNoLoad, &T::modelNoLoadPowerD, &M::Po_D_o, kPower},
    {kNoLoad, &T::modelNoLoadPowerY, &M::Po_Y_o, kPower},
    {kConnection},
    {kConnection, &T::modelRzmFactor, &M::k_RZM, kPlain},
};

QString LineText(const ListingLine& line, const MachineModel& model)
{
    constexpr double kThreeDecimals = 1000;
    if (line.label == nullptr)
        return Texts().modelSeparator;
    const double value = model.*line.value * line.shown.factor / line.shown.divisor;
    const QString unit = line.shown.unit == nullptr ? QString() : TextOf(line.shown.unit);
    return FillPlaceholders(Texts().modelLine, {TextOf(line.label), RoundValue(value, kThreeDecimals)}) + unit;
}

} // namespace

QStringList ModelListing(const MachineStatus& status, const MachineModel& model)
{
    QStringList lines;
    for (const ListingLine& line : kLines)
        if (IsAllKnown(line.needs, status))
            lines << LineText(line, model);
    return lines;
}

} // namespace korvanel
