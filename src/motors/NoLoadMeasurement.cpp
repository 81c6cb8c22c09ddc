#include "motors/NoLoadMeasurement.h"

#include "core/Common.h"
#include "core/Messages.h"
#include "core/NumberText.h"
#include "core/Units.h"
#include "instruments/DevManaging.h"
#include "instruments/SerialPort.h"
#include "machine/Algorithms_ASM_Start.h"

#include <QScopedValueRollback>

#include <algorithm>
#include <cmath>

namespace korvanel {

namespace {

constexpr std::size_t kSamples = 7;
constexpr int kMostTicks = 13;
constexpr int kFailedMessage = 6;
constexpr int kScatteredMessage = 7;
constexpr double kTolerance = 0.05;

constexpr std::size_t kNoLoadPower = 0;

NoLoadTexts Everywhere(const QString& text)
{
    NoLoadTexts texts;
    texts.fill(text);
    return texts;
}

QString SignificantText(double value)
{
    constexpr int kDigits = 5;
    return NumberText(QString::number(value, 'g', kDigits).toDouble());
}

/// A transformer value that nothing can be divided by counts as 1.
double UsableTransformer(double value)
{
    return value > 0 && std::isfinite(value) ? value : 1;
}

/// The sample in the block, if it is one of a machine that takes power.
std::optional<NoLoadSample> AcceptedSample()
{
    const tMeasuredRow& row = App().MeasuredRow;
    const NoLoadSample sample{row.dP[kSum], row.dU[kSum], row.dI[kSum], row.df};
    const bool isAccepted = row.sValidMask == kGoodSample &&
                            std::all_of(sample.begin(), sample.begin() + 3, [](double value) { return value >= 0; });
    return isAccepted ? std::optional(sample) : std::nullopt;
}

} // namespace

std::optional<NoLoadSample> MeanOfAgreeing(const std::vector<NoLoadSample>& samples)
{
    NoLoadSample means{};
    for (std::size_t i = 0; i < means.size(); ++i) {
        for (const NoLoadSample& sample : samples)
            means[i] += sample[i];
        means[i] /= static_cast<double>(samples.size());
        for (const NoLoadSample& sample : samples)
            if (!(std::abs(means[i] - sample[i]) <= kTolerance * sample[i])) // of the sample, not of the mean
                return std::nullopt;
    }
    return means;
}

NoLoadTexts TextsOfNoLoad(const NoLoadSample& sample)
{
    NoLoadTexts texts;
    for (std::size_t i = 0; i < sample.size(); ++i)
        texts[i] = SignificantText(i == kNoLoadPower ? sample[i] / kPerKilo : sample[i]);
    return texts;
}

void NoLoadMeasurement::StartOrStop(double seconds)
{
    if (isMeasuring) {
        Stop();
        return;
    }
    interval = seconds;
    samples.clear();
    ticks = 0;
    isMeasuring = true;
    display.ShowMeasuring(true);
    display.ShowNoLoad(Everywhere(QStringLiteral("-")));
    if (!OpenInstrument()) {
        Stop();
        return;
    }
    grid.Start(interval);
    display.EnableTicks(true);
}

bool NoLoadMeasurement::OpenInstrument()
{
    ApplicationBlock& app = App();
    app.bShowDevErrors = true;
    if (!app.sDevError.isEmpty()) { // left over from an operation that was to tell nothing itself
        ShowError(std::exchange(app.sDevError, {}));
        return false;
    }
    for (std::size_t i = 0; i < app.dTransRatio.size(); ++i)
        app.dTransRatio[i] = UsableTransformer(app.dTransPrimary[i]) / UsableTransformer(app.dTransSecondary[i]);
    return DevCommand(kDevOpen) && DevCommand(kDevPrepare);
}

void NoLoadMeasurement::Tick()
{
    if (isInTick || !isMeasuring)
        return;
    const QScopedValueRollback guard(isInTick, true);
    if (grid.TakeDuePoll(interval))
        Poll();
}

void NoLoadMeasurement::Poll()
{
    ++ticks;
    App().MeasuredRow.sValidMask = kGoodSample;
    if (!DevCommand(kDevSample)) {
        Stop();
        return;
    }
    if (const std::optional<NoLoadSample> sample = AcceptedSample()) {
        TakeSample(*sample);
        return;
    }
    display.ShowNoLoad(Everywhere(QStringLiteral("-")));
    if (ticks >= kMostTicks) {
        End();
        display.ShowNoLoad({});
        ShowError(ModelMessages(kFailedMessage));
    }
}

void NoLoadMeasurement::TakeSample(const NoLoadSample& sample)
{
    samples.push_back(sample);
    if (samples.size() < kSamples) {
        display.ShowNoLoad(TextsOfNoLoad(sample));
        return;
    }
    End();
    const std::optional<NoLoadSample> means = MeanOfAgreeing(samples);
    display.ShowNoLoad(means ? TextsOfNoLoad(*means) : NoLoadTexts());
    if (!means)
        ShowError(ModelMessages(kScatteredMessage));
}

void NoLoadMeasurement::Stop()
{
    if (!isMeasuring)
        return;
    End();
    display.RestoreNoLoad();
}

void NoLoadMeasurement::End()
{
    isMeasuring = false;
    display.EnableTicks(false);
    if (App().ThePort->IsOpen())
        DevCommand(kDevClose);
    display.ShowMeasuring(false);
}

} // namespace korvanel
