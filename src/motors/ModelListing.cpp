#include "motors/ModelListing.h"

#include "core/NumberText.h"
#include "core/Texts.h"
#include "core/texts/DefaultTexts.h"
#include "core/texts/ValueNamesTexts.h"

#include <optional>

namespace korvanel {

namespace {

using Model = MachineModel;

/// How a value is shown: what it is multiplied with and divided by, and the unit behind it.
struct Shown
{
    TextRef unit = nullptr;
    double factor = 1;
    double divisor = 1;
};
constexpr Shown kTorque{&texts::modelTorqueUnit};
constexpr Shown kKilowatts{&texts::modelPowerUnit, 1, 1000};
constexpr Shown kSpeed{&texts::modelSpeedUnit};
constexpr Shown kAngle{&texts::modelAngleUnit};
constexpr Shown kPercent{&texts::modelPercentUnit, 100};
constexpr Shown kResistance{&texts::modelResistanceUnit};
constexpr Shown kMinutes{&texts::modelTimeUnit, 1, 60};
constexpr Shown kPlain{};

/// One line, shown if all that it needs is known. Without a label it is a rule.
struct ListingLine
{
    unsigned needs;
    TextRef label = nullptr;
    double Model::*value = nullptr;
    Shown shown = {};
};

constexpr unsigned Bit(MachineKnowledge piece)
{
    return 1U << static_cast<unsigned>(piece);
}
constexpr unsigned kRating = Bit(kRatingKnown);
constexpr unsigned kStall = Bit(kStallRatioKnown);
constexpr unsigned kThermalData = Bit(kInsulationClassKnown) | Bit(kMassKnown);
constexpr unsigned kNoLoad = Bit(kNoLoadKnown);
constexpr unsigned kConnection = Bit(kConnectionKnown);

constexpr ListingLine kLines[] = {
    {0, &texts::modelFrictionTorque, &Model::Mreib_rech, kTorque},
    {kRating, &texts::modelRatedPower, &Model::Pelec_n, kKilowatts},
    {kRating, &texts::modelRatedSynchronousSpeed, &Model::n_syn_n, kSpeed},
    {kRating, &texts::modelRatedAngle, &Model::phi_n, kAngle},
    {kRating, &texts::modelRatedSlip, &Model::Nennschlupf, kPercent},
    {kRating},
    {kRating, &texts::modelNoLoadRegress, &Model::Po_regress, kKilowatts},
    {kRating, &texts::modelNoLoadPolynom, &Model::Po_polynom, kKilowatts},
    {kRating, &texts::modelNoLoadRzm, &Model::Po_RZM, kKilowatts},
    {kRating, &texts::modelNoLoadPower, &Model::Po_rech, kKilowatts},
    {kRating},
    {kRating, &texts::modelRatedRzmD, &Model::M_RZM_D_n, kTorque},
    {kRating, &texts::modelRatedRzmY, &Model::M_RZM_Y_n, kTorque},
    {kRating, &texts::modelRatedFrictionD, &Model::Mreib_D_n, kTorque},
    {kRating, &texts::modelRatedFrictionY, &Model::Mreib_Y_n, kTorque},
    {kRating, &texts::modelRatedPowerD, &Model::Po_D_n, kKilowatts},
    {kRating, &texts::modelRatedPowerY, &Model::Po_Y_n, kKilowatts},
    {kRating},
    {kRating, &texts::modelLoadLoss, &Model::k_maschine, kPlain},
    {kRating, &texts::modelRotorConstant, &Model::R2, kPlain},
    {kRating, &texts::modelResistancePolynom, &Model::Rs_polynom, kResistance},
    {kRating, &texts::modelResistance, &Model::Rs_rech, kResistance},
    {kStall},
    {kStall, &texts::modelStallSlip, &Model::Kippschlupf, kPercent},
    {kStall, &texts::modelStallTorque, &Model::Kippmoment, kTorque},
    {kThermalData},
    {kThermalData, &texts::modelThermalTime, &Model::Tth_ICL, kMinutes},
    {kNoLoad},
    {kNoLoad, &texts::modelNoLoadFactor, &Model::cosphi_o, kPlain},
    {kNoLoad, &texts::modelNoLoadAngle, &Model::phi_o, kAngle},
    {kNoLoad, &texts::modelNoLoadSynchronousSpeed, &Model::n_syn_o, kSpeed},
    {kNoLoad},
    {kNoLoad, &texts::modelNoLoadRzmD, &Model::M_RZM_D_o, kTorque},
    {kNoLoad, &texts::modelNoLoadRzmY, &Model::M_RZM_Y_o, kTorque},
    {kNoLoad, &texts::modelNoLoadPowerD, &Model::Po_D_o, kKilowatts},
    {kNoLoad, &texts::modelNoLoadPowerY, &Model::Po_Y_o, kKilowatts},
    {kConnection},
    {kConnection, &texts::modelRzmFactor, &Model::k_RZM, kPlain},
};

QString LineText(const ListingLine& line, const MachineModel& model)
{
    constexpr double kThreeDecimals = 1000;
    if (line.label == nullptr)
        return texts::modelSeparator;
    const double value = model.*line.value * line.shown.factor / line.shown.divisor;
    const QString unit = line.shown.unit == nullptr ? QString() : TextOf(line.shown.unit);
    return FillPlaceholders(texts::modelLine, {TextOf(line.label), RoundValue(value, kThreeDecimals)}) + unit;
}

} // namespace

namespace {

/// One line of the short listing: a value of the record or of the model; without either the head of a group.
struct ShortLine
{
    TextRef label;
    std::optional<double> (*value)(const MachineRecord&, const Model&) = nullptr;
    Shown shown = {};
};

template <auto Member>
std::optional<double> OfRecord(const MachineRecord& record, const Model&)
{
    return record.*Member;
}

template <auto Member>
std::optional<double> OfModel(const MachineRecord&, const Model& model)
{
    return model.*Member;
}

std::optional<double> PolePairs(const MachineRecord& record, const Model&)
{
    return record.Polpaarzahl > 0 ? std::optional<double>(record.Polpaarzahl) : std::nullopt;
}

using Record = MachineRecord;
constexpr Shown kVolts{&texts::modelVoltageUnit};
constexpr Shown kAmperes{&texts::modelCurrentUnit};
constexpr Shown kHertz{&texts::modelFrequencyUnit};

constexpr ShortLine kShortLines[] = {
    {&texts::shortRating},
    {&texts::shortTorque, OfRecord<&Record::M>, kTorque},
    {&texts::shortShaftPower, OfRecord<&Record::Pmech>, kKilowatts},
    {&texts::shortElectricalPower, OfModel<&Model::Pelec_n>, kKilowatts},
    {&texts::shortVoltage, OfRecord<&Record::U>, kVolts},
    {&texts::shortCurrent, OfRecord<&Record::I>, kAmperes},
    {&texts::shortFrequency, OfRecord<&Record::f>, kHertz},
    {&texts::shortSpeed, OfRecord<&Record::n>, kSpeed},
    {&texts::shortEfficiency, OfRecord<&Record::eta>, kPercent},
    {&texts::shortPowerFactor, OfRecord<&Record::cosphi>, kPlain},
    {&texts::shortPolePairs, PolePairs, kPlain},
    {&texts::shortNoLoad},
    {&texts::shortNoLoadPower, OfRecord<&Record::Po>, kKilowatts},
    {&texts::shortNoLoadVoltage, OfRecord<&Record::Uo>, kVolts},
    {&texts::shortNoLoadFrequency, OfRecord<&Record::fo>, kHertz},
    {&texts::shortCurrent, OfRecord<&Record::Io>, kAmperes},
    {&texts::shortFurther},
    {&texts::shortSynchronousSpeed, OfModel<&Model::n_syn_n>, kSpeed},
    {&texts::shortSlip, OfModel<&Model::Nennschlupf>, kPercent},
    {&texts::shortNoLoadRegress, OfModel<&Model::Po_regress>, kKilowatts},
    {&texts::shortNoLoadPolynom, OfModel<&Model::Po_polynom>, kKilowatts},
    {&texts::shortNoLoadInUse, OfModel<&Model::Po_rech>, kKilowatts},
    {&texts::shortLoadLoss, OfModel<&Model::k_maschine>, kPlain},
};

QString ShortText(const ShortLine& line, const MachineRecord& record, const Model& model)
{
    constexpr double kThreeDecimals = 1000;
    if (line.value == nullptr)
        return TextOf(line.label);
    const std::optional<double> value = line.value(record, model);
    if (!value)
        return TextOf(line.label);
    return TextOf(line.label) + RoundValue(*value * line.shown.factor / line.shown.divisor, kThreeDecimals) +
           (line.shown.unit == nullptr ? QString() : TextOf(line.shown.unit));
}

} // namespace

QStringList SecondMachineListing(const MachineRecord& record, const MachineModel& model)
{
    QStringList lines;
    for (const ShortLine& line : kShortLines)
        lines << ShortText(line, record, model);
    return lines;
}

QStringList ModelListing(const MachineStatus& status, const MachineModel& model)
{
    QStringList lines;
    for (const ListingLine& line : kLines)
        if (IsAllKnown(line.needs, status))
            lines << LineText(line, model);
    return lines;
}

} // namespace korvanel
