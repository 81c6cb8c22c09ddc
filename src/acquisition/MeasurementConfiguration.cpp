#include "acquisition/MeasurementConfiguration.h"

#include "core/Clock.h"
#include "core/Common.h"
#include "core/Messages.h"
#include "core/NumberText.h"
#include "core/Units.h"
#include "instruments/Catalogue.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

namespace korvanel {

namespace {

constexpr int kLongestListedInterval = 10;
constexpr double kGreatestTrigger = 1000;
constexpr int kScaleEndOfPower = 2;

struct SeriesRange
{
    double low;
    double high;
};

/// In the units in which they are shown.
constexpr std::array<SeriesRange, kScaleEnds> kScaleEndRanges{{
    {5, 100000},      // U in V
    {0.5, 100000},    // I in A
    {0.0001, 100000}, // P in kW
    {10, 500},        // f in Hz
    {0.1, 10000},     // M in Nm
    {10, 10000},      // n in rpm
}};

constexpr std::array<const char*, kTransformerValues> kTransformerChoices{
    "1#230#1500#3000#5000#6000#10000#15000#20000#25000#30000#45000#50000#60000",
    "1#100#230",
    "1#5#10#25#50#75#100#150#200#250#500#750#1000#1200#1500#2000#2500",
    "1#5#10",
};

template <typename Value>
void Store(Value& field, Value value)
{
    if (field == value)
        return;
    field = value;
    App().bProjectDirty = true;
}

/// Energies and windows are formed with the interval, so that another one makes an evaluation outdated.
void StoreInterval(double seconds)
{
    if (App().dInterval == seconds)
        return;
    Store(App().dInterval, seconds);
    RecordingChanged();
}

QStringList SeriesTexts(const SeriesRange& range)
{
    QStringList texts;
    for (const double value : FillSeries(range.low, range.high))
        texts << NumberText(value);
    return texts;
}

double& TransformerField(TransformerSide side, int index)
{
    ApplicationBlock& app = App();
    const bool isPrimary = index % 2 == 0;
    const bool isOfProgram = side == TransformerSide::Program;
    auto& pair = isPrimary ? (isOfProgram ? app.dTransPrimary : app.dDevTransPrimary)
                           : (isOfProgram ? app.dTransSecondary : app.dDevTransSecondary);
    return pair.at(static_cast<std::size_t>(index / 2));
}

double AtLeastSomething(double value)
{
    return std::isfinite(value) && value > 0 ? value : 1;
}

void StoreTransformer(TransformerSide side, int index, double value)
{
    double& field = TransformerField(side, index);
    if (side == TransformerSide::Program)
        Store(field, AtLeastSomething(value));
    else
        field = AtLeastSomething(value);
}

double UnitOfScaleEnd(int index)
{
    return index == kScaleEndOfPower ? kPerKilo : 1;
}

} // namespace

std::vector<double> FillSeries(double lo, double hi)
{
    constexpr double kAfterZero = 0.05;
    std::vector<double> series;
    if (lo < 0 || !std::isfinite(hi))
        return series;
    for (double value = lo; value <= hi;) {
        series.push_back(value);
        if (value == 0)
            value = kAfterZero;
        else
            value = DotNumberText(value).contains(u'5') ? value * 2 : value * 10 / 2;
    }
    return series;
}

QStringList ScaleEndChoices(int index)
{
    return SeriesTexts(kScaleEndRanges.at(static_cast<std::size_t>(index)));
}

QStringList TriggerChoices()
{
    return SeriesTexts({0, kGreatestTrigger});
}

QStringList TransformerChoices(int index)
{
    return QString::fromLatin1(kTransformerChoices.at(static_cast<std::size_t>(index))).split(u'#');
}

QStringList IntervalChoices()
{
    QStringList texts;
    for (int seconds = App().iMinInterval; seconds <= kLongestListedInterval; ++seconds)
        texts << QString::number(seconds);
    return texts;
}

void PrepareMeasurementConfiguration()
{
    ApplicationBlock& app = App();
    app.MeasuredRow.sValidMask = kGoodSample;
    const QStringList entries = InstrumentEntries(app.iNetConfIndex);
    if (!entries.contains(app.sDevice)) {
        Store(app.sDevice, entries.value(0));
        app.bDevConnected = false;
    }
    CorrectStoredSettings();
}

void CorrectStoredSettings()
{
    ApplicationBlock& app = App();
    LookUpInstrument(app.sDevice);
    if (!(app.dInterval >= app.iMinInterval && std::isfinite(app.dInterval)))
        StoreInterval(app.iMinInterval);
    for (const TransformerSide side : {TransformerSide::Program, TransformerSide::Instrument})
        for (int i = 0; i < kTransformerValues; ++i)
            StoreTransformer(side, i, TransformerField(side, i));
    Store(app.lComPort, std::max<qint32>(1, app.lComPort));
}

void ChooseInstrument(const QString& entry)
{
    ApplicationBlock& app = App();
    if (entry == app.sDevice)
        return;
    const bool wasShortest = app.dInterval == FactsOf(app.sDevice, app.iNetConfIndex).minInterval;
    app.bDevConnected = false;
    app.sDeviceId.clear();
    Store(app.sDevice, entry);
    LookUpInstrument(entry);
    if (wasShortest || app.dInterval < app.iMinInterval)
        StoreInterval(app.iMinInterval);
}

TypedEntry EnterInterval(const QString& text)
{
    double seconds = TypedNumber(text);
    seconds = seconds <= 0 ? 1 : std::trunc(seconds);
    TypedEntry entry{NumberText(seconds)};
    entry.isAccepted = CheckNumberRange(entry.text, App().iMinInterval, kLongestInterval);
    if (entry.isAccepted)
        StoreInterval(seconds);
    return entry;
}

bool CheckIntervalOfFamily()
{
    const std::optional<double> least = FactsOf(App().sDevice, App().iNetConfIndex).leastRunInterval;
    QString text = NumberText(App().dInterval);
    return !least || CheckNumberRange(text, *least, kLongestInterval);
}

bool CheckIntervalForRun()
{
    QString text = NumberText(App().dInterval);
    return CheckIntervalOfFamily() && CheckNumberRange(text, App().iMinInterval, kSecondsPerDay);
}

QString EnterTransformer(TransformerSide side, int index, const QString& text)
{
    StoreTransformer(side, index, TypedNumber(text));
    return TransformerText(side, index);
}

QString TransformerText(TransformerSide side, int index)
{
    return NumberText(TransformerField(side, index));
}

QString RatioText(TransformerSide side, int pair)
{
    return TransformerText(side, 2 * pair) + QStringLiteral(" / ") + TransformerText(side, 2 * pair + 1);
}

QString EnterTrigger(int index, const QString& text)
{
    Store(App().dTrigger.at(static_cast<std::size_t>(index)), Clamp(TypedNumber(text), 0, kGreatestTrigger));
    return TriggerText(index);
}

QString TriggerText(int index)
{
    return NumberText(App().dTrigger.at(static_cast<std::size_t>(index)));
}

QString EnterScaleEnd(int index, const QString& text)
{
    const double end = TypedNumber(text) * UnitOfScaleEnd(index);
    const bool isRange = std::isfinite(end) && end > 0;
    if (isRange && text != ScaleEndText(index)) // the text may have fewer digits than the value that it shows
        Store(App().ScaleEnds.at(static_cast<std::size_t>(index)), end);
    return ScaleEndText(index);
}

QString ScaleEndText(int index)
{
    return NumberText(App().ScaleEnds.at(static_cast<std::size_t>(index)) / UnitOfScaleEnd(index));
}

QString EnterPort(const QString& text)
{
    Store(App().lComPort, TypedWholeNumber(text, 1));
    return QString::number(App().lComPort);
}

void EnterBeat(bool isOn)
{
    Store(App().lSound, qint32{isOn});
}

} // namespace korvanel
