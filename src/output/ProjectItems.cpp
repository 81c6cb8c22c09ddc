#include "output/ProjectItems.h"

#include "core/Common.h"
#include "core/LocalFormats.h"
#include "core/NumberText.h"
#include "core/Units.h"
#include "core/texts/FormF10Texts.h"
#include "core/texts/PrintExportTexts.h"
#include "instruments/Catalogue.h"

#include <optional>
#include <type_traits>

namespace korvanel {

namespace {

using A = ApplicationBlock;
using R = MachineRecord;

QString TextOfMoment(const QDateTime& moment)
{
    return moment.isValid() && moment != ZeroDate() ? DateTimeText(moment) : QString();
}

/// A field of the block.
template <auto Field>
QString OfBlock()
{
    const auto& value = App().*Field;
    using Value = std::remove_cvref_t<decltype(value)>;
    if constexpr (std::is_same_v<Value, QString>)
        return value;
    else if constexpr (std::is_same_v<Value, QDateTime>)
        return TextOfMoment(value);
    else
        return NumberText(value);
}

/// A field of the measured machine's record, over a divisor; empty while it is not known.
template <auto Field, int Divisor = 1>
QString OfMachine(const MachineRecord& machine)
{
    const auto& value = machine.*Field;
    using Value = std::remove_cvref_t<decltype(value)>;
    if constexpr (std::is_same_v<Value, QString>)
        return value;
    else if constexpr (std::is_same_v<Value, std::optional<QString>>)
        return value.value_or(QString());
    else
        return value ? NumberText(*value / Divisor) : QString();
}

/// Primary and secondary rating of a transformer.
template <std::size_t Channel>
QString Transformer()
{
    return NumberText(App().dTransPrimary[Channel]) + QStringLiteral(" / ") +
           NumberText(App().dTransSecondary[Channel]);
}

QString MachineKind(const MachineRecord& machine)
{
    const std::optional<double>& Pmech = machine.Pmech;
    return !Pmech ? QString() : *Pmech < 0 ? texts::machineGenerator : texts::machineMotor;
}

QString PolePairs(const MachineRecord& machine)
{
    const int pairs = machine.Polpaarzahl;
    return pairs > 0 ? QString::number(pairs) : QString();
}

QString Friction(const MachineRecord& machine)
{
    return machine.Mreib ? texts::machineFrictionZero : QString();
}

constexpr ProjectItem kProjectItems[] = {
    {&texts::exportProjectName, OfBlock<&A::sProjectName>, nullptr, true},
    {&texts::exportCompany, OfBlock<&A::sCompany>, nullptr, true},
    {&texts::exportEditor, OfBlock<&A::sEditor>, nullptr, true},
    {&texts::exportDescription, OfBlock<&A::sDescription>, nullptr, true},
    {&texts::exportCreated, OfBlock<&A::dtProjectCreated>},
    {&texts::exportSaved, OfBlock<&A::dtProjectSaved>},
    {&texts::exportDevice, OfBlock<&A::sDevice>, nullptr, true},
    {&texts::exportDeviceId, OfBlock<&A::sDeviceId>, nullptr, true},
    {&texts::exportNetConfiguration, [] { return TextOf(NetConfigurationOf(App().iNetConfIndex).heading); }},
    {&texts::exportVoltageTransformer, Transformer<0>, &texts::exportUnitVolt},
    {&texts::exportCurrentTransformer, Transformer<1>, &texts::exportUnitAmpere},
    {&texts::exportBegin, OfBlock<&A::dtMeasurementBegin>},
    {&texts::exportEnd, OfBlock<&A::dtMeasurementEnd>},
    {&texts::exportTerm, OfBlock<&A::sMeasurementTerm>, nullptr, true},
    {&texts::exportInterval, OfBlock<&A::dInterval>},
    {&texts::exportSets, OfBlock<&A::iSetCount>},
    {&texts::exportCorrectedSets, [] { return NumberText(App().MachineI.evaluation.lCorrectedRows); }},
    {&texts::exportWindow, [] { return App().MachineI.evaluation.sWindow; }},
    {&texts::exportGaps, [] { return NumberText(App().MachineI.evaluation.lGaps); }},
    {&texts::exportMissing, [] { return NumberText(App().MachineI.evaluation.dMissing); }},
    {&texts::exportCoverage, [] { return RoundValue(100 * App().MachineI.evaluation.dCoverage, 100); },
     &texts::exportUnitPercent},
    {&texts::exportState, [] { return App().bEvaluated != 0 ? texts::exportUpToDate : texts::exportOutdated; }},
};

constexpr MachineItem kMachineItems[] = {
    {&texts::exportMachineKind, MachineKind},
    {&texts::exportMachineRemark, OfMachine<&R::Hersteller>, nullptr, true},
    {&texts::exportPmech, OfMachine<&R::Pmech, kPerKilo>, &texts::exportUnitKilowatt},
    {&texts::exportU, OfMachine<&R::U>, &texts::exportUnitVolt},
    {&texts::exportI, OfMachine<&R::I>, &texts::exportUnitAmpere},
    {&texts::exportF, OfMachine<&R::f>, &texts::exportUnitHertz},
    {&texts::exportN, OfMachine<&R::n>, &texts::exportUnitRpm},
    {&texts::exportM, OfMachine<&R::M>, &texts::exportUnitNewtonMetre},
    {&texts::exportCosphi, OfMachine<&R::cosphi>},
    {&texts::exportEta, OfMachine<&R::eta>},
    {&texts::exportPo, OfMachine<&R::Po, kPerKilo>, &texts::exportUnitKilowatt},
    {&texts::exportUo, OfMachine<&R::Uo>, &texts::exportUnitVolt},
    {&texts::exportIo, OfMachine<&R::Io>, &texts::exportUnitAmpere},
    {&texts::exportFo, OfMachine<&R::fo>, &texts::exportUnitHertz},
    {&texts::exportPolePairs, PolePairs},
    {&texts::exportConnection, OfMachine<&R::Schaltungsart>, nullptr, true},
    {&texts::exportResistance, OfMachine<&R::Rs>, &texts::exportUnitOhm},
    {&texts::exportStallRatio, OfMachine<&R::Mkipp_Mn>},
    {&texts::exportThermalTime, OfMachine<&R::Tth, kSecondsPerMinute>, &texts::exportUnitMinute},
    {&texts::exportInsulation, OfMachine<&R::I_CL>, nullptr, true},
    {&texts::exportMass, OfMachine<&R::Masse>, &texts::exportUnitKilogram},
    {&texts::exportFriction, Friction},
};

} // namespace

std::span<const ProjectItem> ProjectItems()
{
    return kProjectItems;
}

std::span<const MachineItem> MachineItems()
{
    return kMachineItems;
}

} // namespace korvanel
