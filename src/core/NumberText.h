// Numbers and texts as all pages, reports and messages print and read them: rounding, prefixes, local decimal
// characters, range checks. Free of state but for the decimal characters of the application block.
#pragma once

#include <QString>
#include <QVariant>

#include <cstddef>
#include <optional>

namespace korvanel {

/// A number as text: up to 15 significant digits, no trailing zeros, no grouping, the local decimal character, and no
/// exponent from 1e-15 up to below 1e15.
QString NumberText(double value);

/// The same with a point, whatever the local setting.
QString DotNumberText(double value);

/// Room that `WriteExactNumber` and `WriteTime` may need.
inline constexpr std::size_t kLongestNumber = 48;

/// As `DotNumberText`, but with as many digits as are needed to read the same number back. For passes over a recording:
/// written to `first`, which has room for `kLongestNumber` characters; returns the end.
char* WriteExactNumber(char* first, double value);

/// The same with the local decimal character.
QString ExactNumberText(double value);

/// Reads a number with a point as decimal character from the start of the text, after blanks; what follows it is
/// ignored, and a text without a number gives 0; one beyond the range of a double is infinite. Takes no other decimal
/// character, no "inf" and no "nan".
double LeadingNumber(const QString& text);

/// Reads a whole text as a number in the local format; nothing for any text that is not one finite number.
std::optional<double> LocalNumber(const QString& text);

/// Every local decimal character becomes a point.
QString ToDotDecimal(const QString& text);

/// The number at the start of typed text, with either decimal character. What is no number, or is beyond the range of a
/// double, counts as 0.
double TypedNumber(const QString& text);

/// The whole number at the start of typed text, its fraction cut; limited to `minimum` and the range of the type.
qint32 TypedWholeNumber(const QString& text, qint32 minimum);

/// The first of the other decimal characters becomes the local one; any further one stays.
QString ToLocalDecimal(const QString& text);

/// The text with the one character at `position` (from 1) replaced. A position outside the text leaves it unchanged.
QString ReplaceCharAt(const QString& text, const QString& replacement, qsizetype position);

/// The text with its "#" placeholders replaced from left to right.
QString FillPlaceholders(const QString& text, std::initializer_list<QString> values);

/// Outcome of `CheckNumberRange` before anybody is told. `text` is the normalised input.
struct RangeCheck
{
    QString text;
    bool isAccepted = false;
};

/// Normalises typed text and tests it against a range. An emptied box counts as 1.
RangeCheck TestNumberRange(const QString& text, double minimum, double maximum);

/// Int(value x factor + 0.5) / factor: half up, so that -2.5 at factor 1 gives -2. `factor` is not 0.
double RoundTo(double value, double factor);

/// `RoundTo` as text; the empty text for no value.
QString RoundValue(std::optional<double> value, double factor);

/// Rounds typed text after `ToLocalDecimal`, which is applied in place; without `keepFraction` the result is truncated
/// toward zero. The text has passed a range check before; one that is no number raises std::invalid_argument.
double RoundText(QString& text, double factor, bool keepFraction);

/// As `RoundValue`, but for 0 < |value| < 1 the factor is first raised in place by as many powers of ten as the value
/// has leading zeros, so that small values keep their digits.
QString RoundSignificant(double value, double& factor);

/// One blank, the text, one blank.
QString Pad(const QString& text);

double Clamp(double x, double low, double high);

/// The value with G, M, k or m in front of the unit that the caller adds. `withBlank` puts one blank behind the number,
/// also where there is no prefix.
QString FormatPrefixed(double value, double factor, bool withBlank);

/// Value, one blank, unit. With `asKilo` a magnitude above 10 is divided by 1000 in place and printed with "k".
QString FormatValueUnit(double& value, const QString& unit, double factor, bool asKilo);

/// Logarithm to base 10.
double Log10(double x);

/// The empty text for a null, else the value as text.
QString NullToText(const QVariant& value);

/// A value as a word of an SQL statement: "Null" for a null or empty one, text in single quotes without escaping,
/// a number with points. Statements of this program bind their values; this is for texts shown or compared only.
QString SqlLiteral(const QVariant& value, bool isText);

QString BoolText(bool flag);

/// True if x lies between a and b, both included, whichever of the two is the greater.
bool IsBetween(double x, double a, double b);

/// A step width of 5 or 10 times a power of ten from twice the magnitude of x, limited to `high`, then to `low`.
/// 0 gives `low`.
double NiceStep(double x, double low, double high);

/// Hours (not capped), minutes and seconds with colons, each of at least two digits; `withFraction` adds the hundredths
/// of a second if there are any.
QString SecondsToTime(double seconds, bool withFraction);

/// Seconds of a text as `SecondsToTime` writes it, without a fraction; nothing for any other text.
std::optional<double> TimeToSeconds(const QString& text);

/// `SecondsToTime` without the fraction for passes over a recording: written to `first`, which has room for
/// `kLongestNumber` characters; returns the end.
char* WriteTime(char* first, double seconds);

/// Text that reaches the motor database's provider, reading only or writing too.
QString MotorDbConnection(bool forWriting);

} // namespace korvanel
