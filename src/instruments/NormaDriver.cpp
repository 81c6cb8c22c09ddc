#include "instruments/NormaDriver.h"

#include "core/Common.h"
#include "core/NumberText.h"
#include "core/RowFields.h"
#include "core/texts/DefaultTexts.h"
#include "data/ElectricalFormulas.h"
#include "instruments/EntryTable.h"
#include "instruments/Frames.h"
#include "instruments/SerialLink.h"

#include <cmath>
#include <numbers>
#include <span>

namespace korvanel {

namespace {

constexpr double kNormaWait = 0.2;       // s, after a query
constexpr double kNormaSetupWait = 0.15; // s, after a command of the configuration

constexpr const char* kPhase1 = "form:ph l1";
constexpr const char* kAllPhases = "form:ph all";

/// A query of a sample, or a command between two.
struct NormaQuery
{
    const char* command;
    RowField field = nullptr; ///< none: nothing is read
};

constexpr NormaQuery kNormaSinglePhase[] = {
    {"pow:act?", Element<&tValueRow::dP, kSum>},
    {"pow:rea?", Element<&tValueRow::dQ, kSum>},
    {"volt:rms?", Element<&tValueRow::dU, kSum>},
    {"curr:rms?", Element<&tValueRow::dI, kSum>},
    {"freq?", Single<&tValueRow::df>},
};
// The frequency is that of one phase.
constexpr NormaQuery kNormaFourWire[] = {
    {"pow:act?", Element<&tValueRow::dP, kSum>},
    {"pow:rea?", Element<&tValueRow::dQ, kSum>},
    {"volt:rms?", Element<&tValueRow::dU, kSum>},
    {"curr:rms?", Element<&tValueRow::dI, kSum>},
    {kPhase1},
    {"freq?", Single<&tValueRow::df>},
    {kAllPhases},
};

struct NormaMode
{
    const char* entry;
    const char* phases; ///< that are measured
    std::span<const NormaQuery> queries;
    bool isFourWire;
};

constexpr NormaMode kNormaModes[] = {
    {.entry = "NORMA D4355 1Ø2W", .phases = kPhase1, .queries = kNormaSinglePhase, .isFourWire = false},
    {.entry = "NORMA D4355 3Ø4W", .phases = kAllPhases, .queries = kNormaFourWire, .isFourWire = true},
};

/// Whether the instrument takes the name of a line end and gives it back.
bool KnowsItsLineEnd()
{
    Exchange(Line("rs232:TERM vbCrLf"), kNormaWait);
    return Exchange(Line("rs232:TERM?"), kNormaWait).startsWith("vbCrLf");
}

} // namespace

const NormaDriver kNormaDriver{};

InstrumentDriver::Identity NormaDriver::Identify() const
{
    constexpr qsizetype kLongestGoodAnswer = 3;
    const QByteArray reply = Exchange(Line("*TST?"), kNormaWait);
    const bool hasPassed = reply.startsWith('0') && reply.size() <= kLongestGoodAnswer;
    return {.reply = reply, .isOfFamily = hasPassed && KnowsItsLineEnd(), .refusal = &texts::devSelfTestFailed};
}

void NormaDriver::Configure() const
{
    for (const char* command : {"acq:ran:volt auto", "acq:ran:curr auto", ChosenEntry(kNormaModes).phases})
        Exchange(Line(command), kNormaSetupWait);
}

void NormaDriver::Sample() const
{
    ApplicationBlock& app = App();
    const NormaMode& mode = ChosenEntry(kNormaModes);
    for (const NormaQuery& query : mode.queries) {
        const QByteArray answer = Exchange(Line(query.command), kNormaWait);
        if (!query.field)
            continue;
        if (answer.isEmpty()) // the others are asked all the same, so that every sample takes the same time
            app.MeasuredRow.sValidMask = QStringLiteral("EEEE");
        else
            query.field(app.MeasuredRow) = LeadingNumber(QString::fromLatin1(answer)) + 0.0; // no negative zero
    }
    FinishNormaRow(app.MeasuredRow, app.dTransRatio, mode.isFourWire);
}

void FinishNormaRow(tMeasuredRow& row, const std::array<double, 2>& ratio, bool isFourWire)
{
    constexpr double kLeastVoltage = 0.5;
    if (row.dU[kSum] < kLeastVoltage) {
        row.sValidMask = QStringLiteral("EEEE");
        return;
    }
    const double power = ratio[0] * ratio[1];
    row.dP[kSum] *= power;
    row.dQ[kSum] *= power;
    row.dI[kSum] *= ratio[1];
    row.dU[kSum] *= ratio[0] * (isFourWire ? std::numbers::sqrt3 : 1);
    const double S = std::sqrt(row.dQ[kSum] * row.dQ[kSum] + row.dP[kSum] * row.dP[kSum]);
    row.dS[kSum] = S;
    row.dCosPhi[kSum] = S == 0 ? 0 : row.dP[kSum] / S;
    const double phi = AngleOfPowerFactor(row.dCosPhi[kSum]);
    row.dPhi[kSum] = row.dQ[kSum] < 0 && phi != 0 ? -phi : phi;
}

} // namespace korvanel
