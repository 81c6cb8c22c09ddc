#include "output/ExportItems.h"

#include "core/Common.h"
#include "core/LocalFormats.h"
#include "core/NumberText.h"
#include "evaluation/TimeWindow.h"
#include "instruments/Catalogue.h"
#include "output/ExportText.h"

#include <optional>
#include <type_traits>

namespace korvanel {

namespace {

using T = TextTable;
using A = ApplicationBlock;
using R = MachineRecord;

constexpr int kPerKilo = 1000;
constexpr int kSecondsPerMinute = 60;

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
        return TypedFieldText(value);
    else if constexpr (std::is_same_v<Value, QDateTime>)
        return TextOfMoment(value);
    else
        return NumberText(value);
}

/// A field of the measured machine's record, over a divisor; empty while it is not known.
template <auto Field, int Divisor = 1>
QString OfMachine()
{
    const auto& value = App().MachineI.*Field;
    using Value = std::remove_cvref_t<decltype(value)>;
    if constexpr (std::is_same_v<Value, QString>)
        return TypedFieldText(value);
    else if constexpr (std::is_same_v<Value, std::optional<QString>>)
        return TypedFieldText(value.value_or(QString()));
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

QString MachineKind()
{
    const std::optional<double>& Pmech = App().MachineI.Pmech;
    return !Pmech ? QString() : *Pmech < 0 ? Texts().machineGenerator : Texts().machineMotor;
}

QString PolePairs()
{
    const int pairs = App().MachineI.Polpaarzahl;
    return pairs > 0 ? QString::number(pairs) : QString();
}

QString Friction()
{
    return App().MachineI.Mreib ? Texts().machineFrictionZero : QString();
}

constexpr ExportItem kProjectItems[] = {
    {&T::exportProjectName, OfBlock<&A::sProjectName>},
    {&T::exportCompany, OfBlock<&A::sCompany>},
    {&T::exportEditor, OfBlock<&A::sEditor>},
    {&T::exportDescription, OfBlock<&A::sDescription>},
    {&T::exportCreated, OfBlock<&A::dtProjectCreated>},
    {&T::exportSaved, OfBlock<&A::dtProjectSaved>},
    {&T::exportDevice, OfBlock<&A::sDevice>},
    {&T::exportDeviceId, OfBlock<&A::sDeviceId>},
    {&T::exportNetConfiguration, [] { return TextOf(NetConfigurationOf(App().iNetConfIndex).heading); }},
    {&T::exportVoltageTransformer, Transformer<0>, &T::exportUnitVolt},
    {&T::exportCurrentTransformer, Transformer<1>, &T::exportUnitAmpere},
    {&T::exportBegin, OfBlock<&A::dtMeasurementBegin>},
    {&T::exportEnd, OfBlock<&A::dtMeasurementEnd>},
    {&T::exportTerm, OfBlock<&A::sMeasurementTerm>},
    {&T::exportInterval, OfBlock<&A::dInterval>},
    {&T::exportSets, OfBlock<&A::iSetCount>},
    {&T::exportCorrectedSets, [] { return NumberText(App().Evaluation.lCorrectedRows); }},
    {&T::exportWindow, TimeWindowText},
};

constexpr ExportItem kMachineItems[] = {
    {&T::exportMachineKind, MachineKind},
    {&T::exportMachineRemark, OfMachine<&R::Hersteller>},
    {&T::exportPmech, OfMachine<&R::Pmech, kPerKilo>, &T::exportUnitKilowatt},
    {&T::exportU, OfMachine<&R::U>, &T::exportUnitVolt},
    {&T::exportI, OfMachine<&R::I>, &T::exportUnitAmpere},
    {&T::exportF, OfMachine<&R::f>, &T::exportUnitHertz},
    {&T::exportN, OfMachine<&R::n>, &T::exportUnitRpm},
    {&T::exportM, OfMachine<&R::M>, &T::exportUnitNewtonMetre},
    {&T::exportCosphi, OfMachine<&R::cosphi>},
    {&T::exportEta, OfMachine<&R::eta>},
    {&T::exportPo, OfMachine<&R::Po, kPerKilo>, &T::exportUnitKilowatt},
    {&T::exportUo, OfMachine<&R::Uo>, &T::exportUnitVolt},
    {&T::exportIo, OfMachine<&R::Io>, &T::exportUnitAmpere},
    {&T::exportFo, OfMachine<&R::fo>, &T::exportUnitHertz},
    {&T::exportPolePairs, PolePairs},
    {&T::exportConnection, OfMachine<&R::Schaltungsart>},
    {&T::exportResistance, OfMachine<&R::Rs>, &T::exportUnitOhm},
    {&T::exportStallRatio, OfMachine<&R::Mkipp_Mn>},
    {&T::exportThermalTime, OfMachine<&R::Tth, kSecondsPerMinute>, &T::exportUnitMinute},
    {&T::exportInsulation, OfMachine<&R::I_CL>},
    {&T::exportMass, OfMachine<&R::Masse>, &T::exportUnitKilogram},
    {&T::exportFriction, Friction},
};

} // namespace

std::span<const ExportItem> ProjectItems()
{
    return kProjectItems;
}

std::span<const ExportItem> MachineItems()
{
    return kMachineItems;
}

} // namespace korvanel
