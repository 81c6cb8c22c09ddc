// What a recording is to be: instrument, port, interval, transformers, start trigger and ends of the measuring range.
// Here stand the choices that the page offers and the rules by which typed text becomes a value of the block; whatever
// changes a stored value makes the project changed.
#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace korvanel {

/// Longest interval that can be typed, in seconds; the list of the choices ends before.
inline constexpr double kLongestInterval = 60;

/// Positions of the transformer values: primary and secondary voltage in volts, primary and secondary current in
/// amperes.
inline constexpr int kTransformerValues = 4;
inline constexpr int kTriggers = 2;
inline constexpr int kScaleEnds = 6;

/// Whose transformers: those this program applies, or those in the instrument.
enum class TransformerSide
{
    Program,
    Instrument
};

/// The series 1-5-10 from `lo` up to at most `hi`; after a 0 comes 0.05. Whether a number is doubled or goes on to five
/// times itself says the digit 5 in its text, so 0.25 is doubled. Nothing for a negative or endless range.
std::vector<double> FillSeries(double lo, double hi);

// Texts of the lists, in the local format.
QStringList ScaleEndChoices(int index);
QStringList TriggerChoices();
QStringList TransformerChoices(int index);
/// Whole seconds from the smallest interval of the instrument to 10.
QStringList IntervalChoices();

/// Brings the block into a state that the page can show: an instrument of the net configuration, looked up in the
/// catalogue, an interval that it can do, transformers and port above 0, and a fresh mask of validity.
void PrepareMeasurementConfiguration();

/// The part of it that a run needs too, whichever page was shown before: looks the instrument up and corrects interval,
/// transformers and port.
void CorrectStoredSettings();

/// Takes another instrument entry: it isn't connected, has no identity yet, and the interval follows its smallest one
/// if it was the smallest before or is too short now. Does nothing for the entry in force.
void ChooseInstrument(const QString& entry);

/// Outcome of typed text; `text` is what the box has to show.
struct TypedEntry
{
    QString text;
    bool isAccepted = true;
};

/// Interval in whole seconds, from the smallest one of the instrument to 60; 0 or less counts as 1. One out of range is
/// told and not taken.
TypedEntry EnterInterval(const QString& text);

/// Whether a family of instruments that has an own least interval can have the stored one; if not, the range is told.
/// Others pass: a project may come with an interval of its own.
bool CheckIntervalOfFamily();

/// Whether a run can have the stored interval; if not, the range is told. Beside the test of the family it must be one
/// that the instrument can keep, and not longer than a day.
bool CheckIntervalForRun();

/// Transformer value by its position from 0 to 3; 0 or less becomes 1. Values of the instrument are held only until
/// they are written to it, so they don't change the project. Returns what the box has to show.
QString EnterTransformer(TransformerSide side, int index, const QString& text);
QString TransformerText(TransformerSide side, int index);
/// Primary and secondary of voltage (0) or current (1), joined by " / ".
QString RatioText(TransformerSide side, int pair);

/// Start threshold of voltage (0) in volts or current (1) in amperes, limited to 0 to 1000.
QString EnterTrigger(int index, const QString& text);
QString TriggerText(int index);

/// End of the measuring range of U, I, P, f, M or n (0 to 5); that of P is typed and shown in kilowatts. A range has to
/// end above 0: any other text leaves the end as it was.
QString EnterScaleEnd(int index, const QString& text);
QString ScaleEndText(int index);

/// Number of the serial port; below 1 becomes 1.
QString EnterPort(const QString& text);

/// Acoustic beat at each sample.
void EnterBeat(bool isOn);

} // namespace korvanel
