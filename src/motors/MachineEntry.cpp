#include "motors/MachineEntry.h"

#include "core/Messages.h"
#include "core/NumberText.h"
#include "core/Units.h"
#include "core/texts/FormF10Texts.h"

#include <algorithm>
#include <cmath>

namespace korvanel {

namespace {

using R = MachineRecord;

constexpr double kLeastCosphi = 0.0000001;
constexpr double kGreatestCosphi = 0.9999999;

constexpr std::array<MachineFieldEntry, kMachineFieldCount> kFields{{
    {"txtBemess_0", &texts::machinePmech, &R::Pmech, kRatingKnown, kPerKilo, 0, 1000000, true},
    {"txtBemess_1", &texts::machineU, &R::U, kRatingKnown, 1, 0, 100000},
    {"txtBemess_2", &texts::machineF, &R::f, kRatingKnown, 1, 0, 1000},
    {"txtBemess_3", &texts::machineN, &R::n, kRatingKnown, 1, 0, 6000},
    {"txtBemess_4", &texts::machineI, &R::I, kRatingKnown, 1, 0, 100000},
    {"txtBemess_5", &texts::machineCosphi, &R::cosphi, kRatingKnown, 1, 0, 1, true},
    {"txtLeerlauf_0", &texts::machinePo, &R::Po, kNoLoadKnown, kPerKilo, 0, 1000000},
    {"txtLeerlauf_1", &texts::machineUo, &R::Uo, kNoLoadKnown, 1, 0, 100000},
    {"txtLeerlauf_2", &texts::machineIo, &R::Io, kNoLoadKnown, 1, 0, 100000},
    {"txtLeerlauf_3", &texts::machineFo, &R::fo, kNoLoadKnown, 1, 0, 1000},
    {"txtStaender", &texts::machineRs, &R::Rs, kRsKnown, 1, 0, 1000},
    {"txtMoment", &texts::machineStallRatio, &R::Mkipp_Mn, kStallRatioKnown, 1, 1, 10},
    {"txtErwaerm", &texts::machineTth, &R::Tth, kTimeConstantKnown, kSecondsPerMinute, 0, 1000},
    {"txtMasse", &texts::machineMass, &R::Masse, kMassKnown, 1, 0, 100000},
}};

constexpr std::array kInsulationClasses{"A", "B", "F", "H"};

const QString kStar = QStringLiteral("Y");
const QString kDelta = QStringLiteral("D");

double WithSignOfMode(double value, bool isGenerator)
{
    return isGenerator ? -std::abs(value) : std::abs(value);
}

double AwayFromZeroAndOne(double cosphi)
{
    return std::copysign(Clamp(std::abs(cosphi), kLeastCosphi, kGreatestCosphi), cosphi);
}

/// Reads what is typed with either decimal character.
std::optional<double> NumberOf(const QString& text)
{
    return LocalNumber(ToLocalDecimal(text.trimmed()));
}

bool IsGroupComplete(const MachineEntry& entry, MachineKnowledge group)
{
    if (!entry.isKnown.at(group))
        return false;
    for (std::size_t field = 0; field < kFields.size(); ++field)
        if (kFields[field].group == group && !NumberOf(entry.numbers[field]))
            return false;
    return true;
}

void TakeNumbers(const MachineEntry& entry, MachineRecord& record)
{
    for (std::size_t field = 0; field < kFields.size(); ++field) {
        auto& value = record.*kFields[field].value;
        if (!IsGroupComplete(entry, kFields[field].group))
            value.reset();
        else if (entry.numbers[field] != MachineFieldText(field, record))
            value = *NumberOf(entry.numbers[field]) * kFields[field].factor;
    }
    if (!record.Pmech)
        record.M = record.eta = std::nullopt;
}

std::optional<QString> KnownText(const std::optional<QString>& text)
{
    return text && !text->isEmpty() ? text : std::nullopt;
}

int InsulationPlace(const QString& text)
{
    const auto* place = std::find(kInsulationClasses.begin(), kInsulationClasses.end(), text);
    return place == kInsulationClasses.end() ? -1 : static_cast<int>(place - kInsulationClasses.begin());
}

} // namespace

const MachineFieldEntry& MachineFieldOf(std::size_t field)
{
    return kFields.at(field);
}

std::span<const char* const> InsulationClasses()
{
    return kInsulationClasses;
}

MachineEntry NewMachineEntry()
{
    MachineEntry entry;
    entry.isKnown[kRatingKnown] = true;
    entry.polePairs = 1;
    entry.connection = entry.insulationClass = 0;
    return entry;
}

QString MachineFieldText(std::size_t field, const MachineRecord& record)
{
    const std::optional<double>& value = record.*MachineFieldOf(field).value;
    return value ? NumberText(*value / MachineFieldOf(field).factor) : QString();
}

MachineEntry EntryOfMachine(const MachineRecord& record)
{
    MachineEntry entry;
    entry.comment = record.Hersteller;
    entry.isGenerator = record.Pmech.value_or(0) < 0;
    // Backwards, so that of several values the first decides, which stands for all of them in the model too.
    for (std::size_t field = kFields.size(); field-- > 0;) {
        entry.numbers[field] = MachineFieldText(field, record);
        entry.isKnown.at(kFields[field].group) = (record.*kFields[field].value).has_value();
    }
    entry.isKnown[kPolePairsKnown] = record.Polpaarzahl >= 1;
    const bool isListed = record.Polpaarzahl >= 1 && record.Polpaarzahl <= kGreatestListedPolePairs;
    entry.polePairs = isListed ? record.Polpaarzahl : 0;
    if (const std::optional<QString> connection = KnownText(record.Schaltungsart)) {
        entry.isKnown[kConnectionKnown] = true;
        entry.connection = *connection == kStar ? 0 : 1;
    }
    if (const std::optional<QString> insulation = KnownText(record.I_CL)) {
        entry.isKnown[kInsulationClassKnown] = true;
        entry.insulationClass = InsulationPlace(*insulation);
    }
    entry.isFrictionZero = record.Mreib;
    return entry;
}

void TakeMachineEntry(const MachineEntry& entry, MachineRecord& record)
{
    record.Hersteller = entry.comment;
    TakeNumbers(entry, record);
    if (entry.isKnown[kPolePairsKnown] && entry.polePairs > 0)
        record.Polpaarzahl = static_cast<qint16>(entry.polePairs);
    record.Schaltungsart.reset();
    if (entry.isKnown[kConnectionKnown])
        record.Schaltungsart = entry.connection == 0 ? kStar : kDelta;
    if (!entry.isKnown[kInsulationClassKnown])
        record.I_CL.reset();
    else if (entry.insulationClass >= 0) // a class that the list doesn't have stays
        record.I_CL = QLatin1String(kInsulationClasses.at(static_cast<std::size_t>(entry.insulationClass)));
    record.Mreib = entry.isFrictionZero;
}

bool HasMachineData(const MachineRecord& record)
{
    const bool hasNumber = std::any_of(kFields.begin(), kFields.end(), [&record](const MachineFieldEntry& field) {
        return (record.*field.value).has_value();
    });
    return hasNumber || record.Polpaarzahl >= 1 || KnownText(record.Schaltungsart) || KnownText(record.I_CL) ||
           !record.Hersteller.isEmpty();
}

EnteredNumber EnterMachineNumber(std::size_t field, const QString& text, bool isGenerator)
{
    const MachineFieldEntry& told = MachineFieldOf(field);
    const QString typed = text.trimmed();
    const std::optional<double> value = NumberOf(typed);
    if (!value || *value == 0)
        return {};
    const bool isMirrored = told.hasSignOfMode && isGenerator;
    EnteredNumber entered{TextForMode(field, typed, isGenerator)};
    entered.isAccepted = isMirrored ? CheckNumberRange(entered.text, -told.highest, -told.lowest)
                                    : CheckNumberRange(entered.text, told.lowest, told.highest);
    if (entered.isAccepted && field == kFieldCosphi) {
        const double cosphi = *NumberOf(entered.text);
        if (AwayFromZeroAndOne(cosphi) != cosphi)
            entered.text = NumberText(AwayFromZeroAndOne(cosphi));
    }
    return entered;
}

QString TextForMode(std::size_t field, const QString& text, bool isGenerator)
{
    const std::optional<double> value = NumberOf(text);
    if (!MachineFieldOf(field).hasSignOfMode || !value || *value == WithSignOfMode(*value, isGenerator))
        return text;
    return NumberText(-*value);
}

} // namespace korvanel
