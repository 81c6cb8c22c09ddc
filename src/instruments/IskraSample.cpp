#include "instruments/IskraSample.h"

#include "core/Common.h"
#include "data/ElectricalFormulas.h"
#include "instruments/Frames.h"
#include "instruments/IskraValues.h"
#include "instruments/SerialLink.h"

#include <array>
#include <span>

namespace korvanel {

namespace {

using Row = tMeasuredRow;
using Kind = IskraValueKind;

constexpr double kQueryWait = 0.1;

/// Which of the program's transformers scale a value.
enum class Scale : quint8
{
    None,
    Voltage,
    Current,
    Power
};

struct Query
{
    quint8 code;
    Kind kind;
    double& (*field)(Row&);
    Scale scale = Scale::None;
    double divisor = 1;
};

template <auto Member, std::size_t Position = kSum>
double& Of(Row& row)
{
    if constexpr (std::is_same_v<std::remove_reference_t<decltype(row.*Member)>, double>)
        return row.*Member;
    else
        return (row.*Member)[Position];
}

constexpr Query kSinglePhaseQueries[] = {
    {16, Kind::Voltage, Of<&Row::dU>, Scale::Voltage},
    {13, Kind::Current, Of<&Row::dI>, Scale::Current},
    {28, Kind::Frequency, Of<&Row::df>},
    {32, Kind::PhaseAngle, Of<&Row::dPhi>},
};

// The overall current of these instruments is the total of the phases; what is stored is their mean.
constexpr double kPhases = 3;

constexpr Query kThreePhaseQueries[] = {
    {40, Kind::Voltage, Of<&Row::dU>, Scale::Voltage},
    {12, Kind::Current, Of<&Row::dI>, Scale::Current, kPhases},
    {28, Kind::Frequency, Of<&Row::df>},
    {32, Kind::PhaseAngle, Of<&Row::dPhi>},
};

constexpr Query kEnergyQueries[] = {
    {0, Kind::ActiveEnergy, Of<&Row::dWpPlusAbs>, Scale::Power},
    {2, Kind::ActiveEnergy, Of<&Row::dWpMinusAbs>, Scale::Power},
    {1, Kind::ReactiveEnergy, Of<&Row::dWqPlusAbs>, Scale::Power},
    {3, Kind::ReactiveEnergy, Of<&Row::dWqMinusAbs>, Scale::Power},
};

constexpr Query kSinglePhaseRecorder[] = {
    {16, Kind::Voltage, Of<&Row::dU>, Scale::Voltage},
    {12, Kind::Current, Of<&Row::dI>, Scale::Current},
    {36, Kind::Current, Of<&Row::dI, kNeutral>, Scale::Current},
    {28, Kind::Frequency, Of<&Row::df>},
    {4, Kind::ActivePower, Of<&Row::dP>, Scale::Power},
    {8, Kind::ReactivePower, Of<&Row::dQ>, Scale::Power},
    {20, Kind::ApparentPower, Of<&Row::dS>, Scale::Power},
    {32, Kind::PhaseAngle, Of<&Row::dPhi>},
    {24, Kind::PowerFactor, Of<&Row::dCosPhi>},
};

constexpr Query kVoltagesToNeutral[] = {
    {16, Kind::Voltage, Of<&Row::dU>, Scale::Voltage},
    {17, Kind::Voltage, Of<&Row::dU, kPhase1>, Scale::Voltage},
    {18, Kind::Voltage, Of<&Row::dU, kPhase2>, Scale::Voltage},
    {19, Kind::Voltage, Of<&Row::dU, kPhase3>, Scale::Voltage},
};

constexpr Query kVoltagesBetweenPhases[] = {
    {40, Kind::Voltage, Of<&Row::dU>, Scale::Voltage},
    {41, Kind::Voltage, Of<&Row::dU, kPhase1>, Scale::Voltage},
    {42, Kind::Voltage, Of<&Row::dU, kPhase2>, Scale::Voltage},
    {43, Kind::Voltage, Of<&Row::dU, kPhase3>, Scale::Voltage},
};

constexpr Query kFrequencyQueries[] = {{28, Kind::Frequency, Of<&Row::df>}};

constexpr Query kPhaseValues[] = {
    {12, Kind::Current, Of<&Row::dI>, Scale::Current, kPhases},
    {13, Kind::Current, Of<&Row::dI, kPhase1>, Scale::Current},
    {14, Kind::Current, Of<&Row::dI, kPhase2>, Scale::Current},
    {15, Kind::Current, Of<&Row::dI, kPhase3>, Scale::Current},
    {36, Kind::Current, Of<&Row::dI, kNeutral>, Scale::Current},
    {28, Kind::Frequency, Of<&Row::df>},
    {4, Kind::ActivePower, Of<&Row::dP>, Scale::Power},
    {5, Kind::ActivePower, Of<&Row::dP, kPhase1>, Scale::Power},
    {6, Kind::ActivePower, Of<&Row::dP, kPhase2>, Scale::Power},
    {7, Kind::ActivePower, Of<&Row::dP, kPhase3>, Scale::Power},
    {8, Kind::ReactivePower, Of<&Row::dQ>, Scale::Power},
    {9, Kind::ReactivePower, Of<&Row::dQ, kPhase1>, Scale::Power},
    {10, Kind::ReactivePower, Of<&Row::dQ, kPhase2>, Scale::Power},
    {11, Kind::ReactivePower, Of<&Row::dQ, kPhase3>, Scale::Power},
    {20, Kind::ApparentPower, Of<&Row::dS>, Scale::Power},
    {21, Kind::ApparentPower, Of<&Row::dS, kPhase1>, Scale::Power},
    {22, Kind::ApparentPower, Of<&Row::dS, kPhase2>, Scale::Power},
    {23, Kind::ApparentPower, Of<&Row::dS, kPhase3>, Scale::Power},
    {32, Kind::PhaseAngle, Of<&Row::dPhi>},
    {33, Kind::PhaseAngle, Of<&Row::dPhi, kPhase1>},
    {34, Kind::PhaseAngle, Of<&Row::dPhi, kPhase2>},
    {35, Kind::PhaseAngle, Of<&Row::dPhi, kPhase3>},
    {24, Kind::PowerFactor, Of<&Row::dCosPhi>},
    {25, Kind::PowerFactor, Of<&Row::dCosPhi, kPhase1>},
    {26, Kind::PowerFactor, Of<&Row::dCosPhi, kPhase2>},
    {27, Kind::PowerFactor, Of<&Row::dCosPhi, kPhase3>},
};

/// What is formed of the values that were queried.
enum class Rest : quint8
{
    Nothing,
    Powers,
    EnergySums
};

struct Plan
{
    std::array<std::span<const Query>, 3> queries;
    Rest rest = Rest::Nothing;
    bool isThreePhase = false; ///< for the powers that are formed
};

const Plan& PlanOf(IskraPlan plan)
{
    static constexpr std::array<Plan, 6> kPlans{{
        {{kSinglePhaseQueries}, Rest::Powers},
        {{kThreePhaseQueries}, Rest::Powers, true},
        {{kSinglePhaseRecorder, kEnergyQueries}, Rest::EnergySums},
        {{kVoltagesToNeutral, kPhaseValues, kEnergyQueries}, Rest::EnergySums},
        {{kVoltagesBetweenPhases, kPhaseValues, kEnergyQueries}, Rest::EnergySums},
        {{kVoltagesBetweenPhases, kFrequencyQueries}},
    }};
    return kPlans.at(static_cast<std::size_t>(plan));
}

/// One text query. A reply whose head is not the request's, or whose text is cut off, makes the sample invalid and
/// gives 0: half a number is no number.
double ReadIskraValue(quint8 code, Kind kind)
{
    constexpr qsizetype kTextStart = 3;
    QByteArray request;
    request.append(static_cast<char>(App().lModbusAddress));
    request.append('M');
    request.append(static_cast<char>(code));
    const QByteArray reply = Exchange(Crc16Append(request), kQueryWait);
    if (!IsAnswerTo(request, reply, kTextStart + IskraTextLength(kind))) {
        App().MeasuredRow.sValidMask = QStringLiteral("EEEE");
        return 0;
    }
    return ReadIskraText(reply.mid(kTextStart), kind);
}

double FactorOf(Scale scale)
{
    const auto& ratio = App().dTransRatio;
    switch (scale) {
    case Scale::None:
        return 1;
    case Scale::Voltage:
        return ratio[0];
    case Scale::Current:
        return ratio[1];
    case Scale::Power:
        return ratio[0] * ratio[1];
    }
    return 1;
}

void FormPowers(Row& row, bool isThreePhase)
{
    const Powers powers = PowersOfAngle(row.dU[kSum], row.dI[kSum], row.dPhi[kSum], isThreePhase);
    row.dS[kSum] = powers.S;
    row.dP[kSum] = powers.P;
    row.dQ[kSum] = powers.Q;
    row.dCosPhi[kSum] = powers.cosPhi;
}

} // namespace

int QueriesOf(IskraPlan plan)
{
    std::size_t count = 0;
    for (const std::span<const Query> queries : PlanOf(plan).queries)
        count += queries.size();
    return static_cast<int>(count);
}

void TakeIskraSample(IskraPlan plan)
{
    Row& row = App().MeasuredRow;
    const Plan& told = PlanOf(plan);
    for (const std::span<const Query> queries : told.queries)
        for (const Query& query : queries)
            query.field(row) = ReadIskraValue(query.code, query.kind) * FactorOf(query.scale) / query.divisor;
    if (told.rest == Rest::Powers)
        FormPowers(row, told.isThreePhase);
    if (told.rest == Rest::EnergySums) {
        row.dWpAbs = row.dWpPlusAbs - row.dWpMinusAbs;
        row.dWqAbs = row.dWqPlusAbs - row.dWqMinusAbs;
    }
}

} // namespace korvanel
