#include "machine/ModelSteps.h"

#include "core/NumberText.h"
#include "machine/Algorithms_ASM_Leistung.h"
#include "machine/Algorithms_ASM_RZM.h"
#include "machine/MachineFormulas.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace korvanel {

namespace {

constexpr double kMostFrequencyDeviation = 0.05;

double Of(const std::optional<double>& value)
{
    return value.value_or(0);
}

std::u16string_view TextOf(const std::optional<QString>& text)
{
    return text ? std::u16string_view(QStringView(*text).utf16(), static_cast<std::size_t>(text->size()))
                : std::u16string_view();
}

/// Speed at which a friction torque takes its power.
double FrictionSpeed(const MachineInTheMaking& machine)
{
    return machine.record.Pmech ? machine.model.n_syn_n : machine.model.n_syn_o;
}

double RatedSpaceVectorTorque(const MachineInTheMaking& machine, StatorConnection connection)
{
    const MachineRecord& r = machine.record;
    return SpaceVectorTorque(Of(r.U), Of(r.I), Of(r.f), machine.model.phi_n, r.Polpaarzahl, machine.model.Rs_rech,
                             connection);
}

double NoLoadSpaceVectorTorque(const MachineInTheMaking& machine, StatorConnection connection)
{
    const MachineRecord& r = machine.record;
    return SpaceVectorTorque(Of(r.Uo), Of(r.Io), Of(r.fo), machine.model.phi_o, r.Polpaarzahl, machine.model.Rs_rech,
                             connection);
}

ModelMessage TakePolePairs(MachineRecord& record)
{
    record.Polpaarzahl = 0;
    if (Of(record.n) == 0 || Of(record.Pmech) == 0 || Of(record.f) == 0)
        return ModelMessage::CheckRating;
    const double pairs = PolePairsFromSpeed(*record.n, *record.f, *record.Pmech);
    const bool isValid = pairs != 0 && pairs <= kMostPolePairs && pairs >= std::numeric_limits<qint16>::min();
    if (!isValid)
        return ModelMessage::InvalidSpeed;
    record.Polpaarzahl = static_cast<qint16>(pairs);
    return ModelMessage::None;
}

ModelMessage TakeSlip(const MachineRecord& record, MachineModel& model)
{
    constexpr double kMostSlip = 0.5;
    const double slip = model.n_syn_n == 0 ? 0 : Slip(model.n_syn_n, *record.n);
    const bool isValid = slip != 0 && std::abs(slip) < kMostSlip;
    model.Nennschlupf = isValid ? slip : 0;
    return isValid ? ModelMessage::None : ModelMessage::CheckRating;
}

/// Torque, power, pole pairs and slip: what the rating plate says of the operating point.
ModelMessage TakeRatedPoint(MachineInTheMaking& machine)
{
    MachineRecord& r = machine.record;
    MachineModel& m = machine.model;
    r.M = RatedTorque(Of(r.Pmech), Of(r.n)); // whatever was entered
    if (Of(r.n) == 0 || !r.U || !r.I || !r.cosphi)
        return ModelMessage::CheckRating;
    m.Pelec_n = ElectricalPower(*r.U, *r.I, *r.cosphi);
    if (const ModelMessage message = TakePolePairs(r); message != ModelMessage::None)
        return message;
    m.n_syn_n = SynchronousSpeed(*r.f, r.Polpaarzahl);
    return TakeSlip(r, m);
}

void TakeRatedFriction(MachineInTheMaking& machine)
{
    const double M = Of(machine.record.M);
    MachineModel& m = machine.model;
    m.M_RZM_D_n = RatedSpaceVectorTorque(machine, StatorConnection::Delta);
    m.M_RZM_Y_n = RatedSpaceVectorTorque(machine, StatorConnection::Star);
    m.Mreib_D_n = m.M_RZM_D_n - M;
    m.Mreib_Y_n = m.M_RZM_Y_n - M;
    m.Po_D_n = ShaftPower(m.Mreib_D_n, FrictionSpeed(machine));
    m.Po_Y_n = ShaftPower(m.Mreib_Y_n, FrictionSpeed(machine));
    m.Po_RZM = (m.Po_D_n + m.Po_Y_n) / 2;
}

ModelMessage TakeNoLoadPower(const MachineRecord& r, MachineModel& m)
{
    if (!r.Po) {
        m.Po_rech = m.Po_polynom != 0 ? m.Po_polynom : m.Po_regress;
        return ModelMessage::None;
    }
    m.Po_rech = NoLoadPowerAt(*r.Po, *r.U, Of(r.Uo), *r.f, Of(r.fo));
    if (std::abs(m.Pelec_n) < std::abs(m.Po_rech))
        return ModelMessage::NoLoadBeyondRating;
    if (r.fo && std::abs((*r.f - *r.fo) / *r.f) > kMostFrequencyDeviation)
        return ModelMessage::NoLoadFrequency;
    return ModelMessage::None;
}

/// Constant of the load losses of a machine that draws `Pel` at its rated point.
void TakeLoadLosses(const MachineRecord& r, double Pel, MachineModel& m)
{
    const double P = Of(r.Pmech);
    const double M = Of(r.M);
    m.k_maschine = LoadLossConstant(Pel, P, m.Po_rech, Of(r.n) / m.n_syn_n, M);
    if (m.k_maschine < 0) {
        // A no-load power that leaves no room for load losses can't be right.
        m.Po_rech = 0;
        m.k_maschine = LoadLossConstant(Pel, P, 0, 0, M);
    }
}

/// Efficiency, load losses and rotor constant.
void TakeRatedLosses(MachineRecord& r, MachineModel& m)
{
    const double M = *r.M;
    r.eta = Efficiency(*r.Pmech, m.Pelec_n, 0); // whatever was entered
    TakeLoadLosses(r, m.Pelec_n, m);
    m.R2 = RotorConstant(*r.U, *r.f, *r.n, M, r.Polpaarzahl);
}

constexpr unsigned Needs(std::initializer_list<MachineKnowledge> pieces)
{
    unsigned bits = 0;
    for (const MachineKnowledge piece : pieces)
        bits |= 1U << static_cast<unsigned>(piece);
    return bits;
}

constexpr BuildLine kBuildOrder[] = {
    {ResistanceStep},
    {RatingStep, Needs({kRatingKnown})},
    {NoLoadCheck, Needs({kNoLoadKnown})},
    {NoLoadStep, Needs({kNoLoadKnown})},
    {StallStep, Needs({kRatingKnown, kStallRatioKnown})},
    {ThermalStep, Needs({kRatingKnown, kInsulationClassKnown, kMassKnown})},
    {ChoiceStep},
    {FactorStep, Needs({kConnectionKnown})},
};

/// Step 3 has nothing to do.
ModelMessage EmptyStep(MachineInTheMaking&)
{
    return ModelMessage::None;
}

/// By number, from 1.
constexpr ModelStepRoutine kSteps[] = {RatingStep,  NoLoadStep, EmptyStep,  StallStep,
                                       ThermalStep, FactorStep, ChoiceStep, ResistanceStep};

} // namespace

MachineStatus StatusOf(const MachineRecord& record)
{
    return {record.Pmech.has_value(), record.Po.has_value(),
            record.Polpaarzahl >= 1,  !TextOf(record.Schaltungsart).empty(),
            record.Rs.has_value(),    record.Mkipp_Mn.has_value(),
            record.Tth.has_value(),   !TextOf(record.I_CL).empty(),
            record.Masse.has_value()};
}

double FrictionTorque(const MachineRecord& record, const MachineModel& model)
{
    const bool isStar = TextOf(record.Schaltungsart) == u"Y";
    const bool isDelta = TextOf(record.Schaltungsart) == u"D";
    if (record.Mreib || !(isStar || isDelta))
        return 0;
    if (record.Po)
        return isStar ? model.M_RZM_Y_o : model.M_RZM_D_o;
    if (record.Pmech)
        return isStar ? model.Mreib_Y_n : model.Mreib_D_n;
    return 0;
}

ModelMessage ResistanceStep(MachineInTheMaking& machine)
{
    const MachineRecord& r = machine.record;
    MachineModel& m = machine.model;
    m.Rs_polynom = StatorResistanceByPolynomial(Of(r.Pmech));
    m.Rs_rech = r.Rs.value_or(r.Pmech ? m.Rs_polynom : kNearlyZero);
    return ModelMessage::None;
}

ModelMessage RatingStep(MachineInTheMaking& machine)
{
    MachineRecord& r = machine.record;
    MachineModel& m = machine.model;
    if (const ModelMessage message = TakeRatedPoint(machine); message != ModelMessage::None)
        return message;
    m.phi_n = PhaseAngle(*r.cosphi);
    m.Po_regress = NoLoadPowerByRegression(*r.Pmech);
    m.Po_polynom = NoLoadPowerByPolynomial(*r.Pmech, r.Polpaarzahl);
    TakeRatedFriction(machine);
    if (const ModelMessage message = TakeNoLoadPower(r, m); message != ModelMessage::None)
        return message;
    TakeRatedLosses(r, m);
    return ModelMessage::None;
}

ModelMessage NoLoadCheck(MachineInTheMaking& machine)
{
    constexpr double kMostCurrentRatio = 1.5;
    const MachineRecord& r = machine.record;
    const bool isCurrentTooHigh = r.Io && r.I && *r.Io > kMostCurrentRatio * *r.I;
    const bool isFactorTooHigh = r.cosphi && std::abs(*r.cosphi) < machine.model.cosphi_o;
    return isCurrentTooHigh || isFactorTooHigh ? ModelMessage::NoLoadBeyondRating : ModelMessage::None;
}

ModelMessage NoLoadStep(MachineInTheMaking& machine)
{
    const MachineRecord& r = machine.record;
    MachineModel& m = machine.model;
    m.cosphi_o = 0;
    if (Of(r.Po) == 0 || Of(r.Uo) == 0 || Of(r.Io) == 0)
        return ModelMessage::CheckNoLoad;
    const double cosphi = NoLoadPowerFactor(*r.Po, *r.Uo, *r.Io);
    if (!(cosphi > 0 && cosphi < 1))
        return ModelMessage::CheckNoLoad;
    m.cosphi_o = cosphi;
    m.phi_o = PhaseAngle(cosphi);
    m.n_syn_o = kNearlyZero;
    if (!r.fo)
        return ModelMessage::CheckNoLoad;
    if (r.Polpaarzahl < 1)
        return ModelMessage::CheckRatingAndPolePairs;
    m.n_syn_o = SynchronousSpeed(*r.fo, r.Polpaarzahl);
    m.M_RZM_D_o = NoLoadSpaceVectorTorque(machine, StatorConnection::Delta);
    m.M_RZM_Y_o = NoLoadSpaceVectorTorque(machine, StatorConnection::Star);
    m.Po_D_o = ShaftPower(m.M_RZM_D_o, FrictionSpeed(machine));
    m.Po_Y_o = ShaftPower(m.M_RZM_Y_o, FrictionSpeed(machine));
    return ModelMessage::None;
}

ModelMessage StallStep(MachineInTheMaking& machine)
{
    const double ratio = Of(machine.record.Mkipp_Mn);
    machine.model.Kippschlupf = StallSlip(machine.model.Nennschlupf, ratio);
    machine.model.Kippmoment = ratio * Of(machine.record.M);
    return ModelMessage::None;
}

ModelMessage ThermalStep(MachineInTheMaking& machine)
{
    const MachineRecord& r = machine.record;
    machine.model.Tth_ICL = ThermalTimeConstant(TemperatureRise(TextOf(r.I_CL)), Of(r.Masse), Of(r.eta), Of(r.Pmech));
    return ModelMessage::None;
}

ModelMessage ChoiceStep(MachineInTheMaking& machine)
{
    const MachineRecord& r = machine.record;
    MachineModel& m = machine.model;
    const bool hasThermalData = !TextOf(r.I_CL).empty() && r.Pmech && r.Masse;
    m.Tth = r.Tth.value_or(hasThermalData ? m.Tth_ICL : 0);
    m.Mreib_rech = FrictionTorque(r, m);
    return ModelMessage::None;
}

ModelMessage FactorStep(MachineInTheMaking& machine)
{
    machine.model.k_RZM = 1;
    return ModelMessage::None;
}

ModelMessage SecondMachineStep(MachineInTheMaking& machine)
{
    const MachineRecord& r = machine.record;
    MachineModel& m = machine.model;
    if (!r.Pmech || !r.n || !r.U || !r.I || !r.f || !r.cosphi)
        return ModelMessage::CheckRating;
    m.Pelec_n = std::abs(ElectricalPower(*r.U, *r.I, *r.cosphi));
    m.Kippmoment = Of(r.Mkipp_Mn) * Of(r.M);
    m.n_syn_n = SynchronousSpeed(*r.f, r.Polpaarzahl);
    if (const ModelMessage message = TakeSlip(r, m); message != ModelMessage::None)
        return message;
    m.Po_regress = NoLoadPowerByRegression(*r.Pmech);
    m.Po_polynom = NoLoadPowerByPolynomial(*r.Pmech, r.Polpaarzahl);
    if (const ModelMessage message = TakeNoLoadPower(r, m); message != ModelMessage::None)
        return message;
    TakeLoadLosses(r, std::copysign(m.Pelec_n, *r.Pmech), m);
    return ModelMessage::None;
}

std::span<const BuildLine> BuildOrder()
{
    return kBuildOrder;
}

bool IsAllKnown(unsigned needs, const MachineStatus& status)
{
    for (std::size_t piece = 0; piece < status.size(); ++piece)
        if ((needs >> piece & 1U) != 0 && !status[piece])
            return false;
    return true;
}

ModelStepRoutine StepOf(int code)
{
    return code >= 1 && code <= static_cast<int>(std::size(kSteps)) ? kSteps[code - 1] : nullptr;
}

bool IsFinite(const MachineInTheMaking& machine)
{
    const MachineModel& m = machine.model;
    const double results[] = {Of(machine.record.M),
                              Of(machine.record.eta),
                              m.Pelec_n,
                              m.n_syn_n,
                              m.phi_n,
                              m.Nennschlupf,
                              m.Kippschlupf,
                              m.Kippmoment,
                              m.Mreib_rech,
                              m.cosphi_o,
                              m.phi_o,
                              m.n_syn_o,
                              m.Po_rech,
                              m.Po_regress,
                              m.Po_polynom,
                              m.Po_RZM,
                              m.Po_D_n,
                              m.Po_Y_n,
                              m.Po_D_o,
                              m.Po_Y_o,
                              m.M_RZM_D_n,
                              m.M_RZM_Y_n,
                              m.M_RZM_D_o,
                              m.M_RZM_Y_o,
                              m.Mreib_D_n,
                              m.Mreib_Y_n,
                              m.k_RZM,
                              m.Tth_ICL,
                              m.Tth,
                              m.R2,
                              m.Rs_rech,
                              m.Rs_polynom,
                              m.k_maschine};
    return std::all_of(std::begin(results), std::end(results), [](double result) { return std::isfinite(result); });
}

bool IsUsable(const MachineStatus& status)
{
    return status[kRatingKnown] || (status[kConnectionKnown] && status[kPolePairsKnown]);
}

DiagramLimitList DiagramLimitsOf(const MachineInTheMaking& machine)
{
    const MachineRecord& r = machine.record;
    return {
        NiceStep(Of(r.U), 5, 100000), NiceStep(Of(r.I), 0.5, 100000), NiceStep(machine.model.Pelec_n, 0.1, 100000000),
        NiceStep(Of(r.f), 10, 500),   NiceStep(Of(r.M), 0.1, 10000),  NiceStep(Of(r.n), 10, 10000)};
}

} // namespace korvanel
