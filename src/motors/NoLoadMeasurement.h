// The no-load test through the instrument: seven good samples, one each interval, whose means become the no-load data
// of the machine if they agree with each other. Everything runs in ticks, on the thread of the user interface.
#pragma once

#include "acquisition/PollingGrid.h"

#include <QString>

#include <array>
#include <optional>
#include <vector>

namespace korvanel {

/// No-load power [kW], voltage [V], current [A] and frequency [Hz], as their boxes show them.
using NoLoadTexts = std::array<QString, 4>;

/// One sample: power [W], voltage [V], current [A] and frequency [Hz].
using NoLoadSample = std::array<double, 4>;

/// What the page shows of the measurement.
class NoLoadDisplay
{
public:
    virtual ~NoLoadDisplay() = default;
    /// Starts or stops the ticks.
    virtual void EnableTicks(bool areEnabled) = 0;
    /// Locks the page for the length of a measurement, the button that ends it apart.
    virtual void ShowMeasuring(bool isMeasuring) = 0;
    virtual void ShowNoLoad(const NoLoadTexts& texts) = 0;
    /// Shows again what stood in the boxes before the measurement.
    virtual void RestoreNoLoad() = 0;
};

/// Means of the samples; nothing if a sample differs from them by more than 5 % of itself.
std::optional<NoLoadSample> MeanOfAgreeing(const std::vector<NoLoadSample>& samples);

/// A sample with five significant digits.
NoLoadTexts TextsOfNoLoad(const NoLoadSample& sample);

class NoLoadMeasurement
{
public:
    explicit NoLoadMeasurement(NoLoadDisplay& ofPage) : display(ofPage) {}

    /// The button: starts a measurement with an interval in seconds, or ends the one that goes on.
    void StartOrStop(double interval);
    /// Every 50 ms while a measurement goes on. A tick that comes while a box of an earlier one is on show does
    /// nothing.
    void Tick();
    /// Ends a measurement without a result; nothing without one.
    void Stop();

    bool IsMeasuring() const { return isMeasuring; }

private:
    bool OpenInstrument();
    void Poll();
    void TakeSample(const NoLoadSample& sample);
    void End();

    NoLoadDisplay& display;
    std::vector<NoLoadSample> samples;
    double interval = 1;
    PollingGrid grid;
    int ticks = 0; ///< polls since the start
    bool isMeasuring = false;
    bool isInTick = false;
};

} // namespace korvanel
