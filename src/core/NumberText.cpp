#include "core/NumberText.h"

#include "core/Common.h"
#include "core/Units.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <stdexcept>

namespace korvanel {

namespace {

constexpr int kSignificantDigits = 15;
constexpr double kLeastPlain = 1e-15;
constexpr double kLeastExponent = 1e15;

/// Plain notation for a number given as d.ddde+xx.
QString PlainNotation(const QString& scientific)
{
    const qsizetype exponentAt = scientific.indexOf(u'e');
    const bool isNegative = scientific.startsWith(u'-');
    QString digits = scientific.mid(isNegative ? 1 : 0, exponentAt - (isNegative ? 1 : 0)).remove(u'.');
    const int exponent = scientific.mid(exponentAt + 1).toInt();
    while (digits.size() > 1 && digits.endsWith(u'0'))
        digits.chop(1);
    QString result;
    if (exponent < 0)
        result = QStringLiteral("0.") + QString(-exponent - 1, u'0') + digits;
    else if (digits.size() > exponent + 1)
        result = digits.left(exponent + 1) + u'.' + digits.mid(exponent + 1);
    else
        result = digits + QString(exponent + 1 - digits.size(), u'0');
    return isNegative ? u'-' + result : result;
}

} // namespace

QString DotNumberText(double value)
{
    if (value == 0 || !std::isfinite(value))
        return value == 0 ? QStringLiteral("0") : QString::number(value);
    // Rounding to 15 digits may lift a value over the limit, so the rounded value decides on the notation.
    const QString scientific = QString::number(value, 'e', kSignificantDigits - 1);
    const double magnitude = std::abs(scientific.toDouble());
    if (magnitude >= kLeastPlain && magnitude < kLeastExponent)
        return PlainNotation(scientific);
    return QString::number(value, 'g', kSignificantDigits).toUpper();
}

QString NumberText(double value)
{
    return DotNumberText(value).replace(u'.', App().DecimalChar);
}

char* WriteExactNumber(char* first, double value)
{
    char* const last = first + kLongestNumber;
    if (value == 0) // either sign
        return std::to_chars(first, last, 0).ptr;
    const double magnitude = std::abs(value);
    if (magnitude >= kLeastPlain && magnitude < kLeastExponent)
        return std::to_chars(first, last, value, std::chars_format::fixed).ptr;
    char* const end = std::to_chars(first, last, value, std::chars_format::scientific).ptr;
    if (std::isfinite(value))
        *std::find(first, end, 'e') = 'E';
    return end;
}

QString ExactNumberText(double value)
{
    std::array<char, kLongestNumber> text{};
    const char* const end = WriteExactNumber(text.data(), value);
    return QString::fromLatin1(text.data(), end - text.data()).replace(u'.', App().DecimalChar);
}

double LeadingNumber(const QString& text)
{
    static const QRegularExpression number(QStringLiteral("^\\s*([+-]?(?:\\d+\\.?\\d*|\\.\\d+)(?:[eE][+-]?\\d+)?)"));
    const QRegularExpressionMatch match = number.match(text);
    return match.hasMatch() ? match.captured(1).toDouble() : 0;
}

std::optional<double> LocalNumber(const QString& text)
{
    const QChar point = App().DecimalChar;
    QString dotted = text.trimmed();
    if (point != u'.' && dotted.contains(u'.'))
        return std::nullopt;
    dotted.replace(point, u'.');
    bool isNumber = false;
    const double value = dotted.toDouble(&isNumber);
    return isNumber && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

QString ToDotDecimal(const QString& text)
{
    return QString(text).replace(App().DecimalChar, u'.');
}

double TypedNumber(const QString& text)
{
    const double value = LeadingNumber(ToDotDecimal(ToLocalDecimal(text)));
    return std::isfinite(value) ? value : 0;
}

qint32 TypedWholeNumber(const QString& text, qint32 minimum)
{
    return static_cast<qint32>(Clamp(std::trunc(TypedNumber(text)), minimum, std::numeric_limits<qint32>::max()));
}

QString ToLocalDecimal(const QString& text)
{
    const qsizetype at = text.indexOf(App().OtherDecimalChar);
    return at < 0 ? text : ReplaceCharAt(text, App().DecimalChar, at + 1);
}

QString ReplaceCharAt(const QString& text, const QString& replacement, qsizetype position)
{
    if (position < 1 || position > text.size())
        return text;
    return text.left(position - 1) + replacement + text.mid(position);
}

QString FillPlaceholders(const QString& text, std::initializer_list<QString> values)
{
    QString result = text;
    qsizetype from = 0;
    for (const QString& value : values) {
        const qsizetype at = result.indexOf(u'#', from);
        if (at < 0)
            break;
        result = ReplaceCharAt(result, value, at + 1);
        from = at + value.size();
    }
    return result;
}

RangeCheck TestNumberRange(const QString& text, double minimum, double maximum)
{
    RangeCheck check;
    check.text = ToLocalDecimal(text.isEmpty() ? QStringLiteral("1") : text);
    const std::optional<double> number = LocalNumber(check.text);
    if (!number)
        return check;
    const double d = *number;
    const QString printed = NumberText(d);
    const QString withSignPlace = (d < 0 ? QString() : QStringLiteral(" ")) + DotNumberText(d);
    const bool isWrittenAsNumber = NumberText(LeadingNumber(check.text)).contains(printed) ||
                                   printed.contains(check.text) || check.text.contains(printed) ||
                                   check.text.contains(withSignPlace);
    check.isAccepted = isWrittenAsNumber && d >= minimum && d <= maximum;
    return check;
}

double RoundTo(double value, double factor)
{
    return std::floor(value * factor + 0.5) / factor;
}

QString RoundValue(std::optional<double> value, double factor)
{
    return value ? NumberText(RoundTo(*value, factor)) : QString();
}

double RoundText(QString& text, double factor, bool keepFraction)
{
    text = ToLocalDecimal(text);
    const std::optional<double> value = LocalNumber(text);
    if (!value)
        throw std::invalid_argument("RoundText: not a number");
    const double rounded = RoundTo(*value, factor);
    return keepFraction ? rounded : std::trunc(rounded);
}

QString RoundSignificant(double value, double& factor)
{
    const double magnitude = std::abs(value);
    if (magnitude > 0 && magnitude < 1)
        factor *= std::pow(10.0, -std::floor(std::log10(magnitude)));
    return RoundValue(value, factor);
}

QString Pad(const QString& text)
{
    return u' ' + text + u' ';
}

double Clamp(double x, double low, double high)
{
    if (x < low)
        return low;
    return x > high ? high : x;
}

QString FormatPrefixed(double value, double factor, bool withBlank)
{
    struct Prefix
    {
        double from;
        double divisor;
        const char* text;
    };
    static constexpr std::array kPrefixes{Prefix{1e10, 1e9, "G"}, Prefix{1e7, 1e6, "M"},     Prefix{1e4, 1e3, "k"},
                                          Prefix{0.01, 1, ""},    Prefix{0.001, 0.001, "m"}, Prefix{0, 1, ""}};
    const double magnitude = std::abs(value);
    const auto* prefix =
        std::find_if(kPrefixes.begin(), kPrefixes.end(), [&](const Prefix& p) { return magnitude >= p.from; });
    if (prefix == kPrefixes.end()) // not a number
        prefix = &kPrefixes.back();
    return NumberText(RoundTo(value / prefix->divisor, factor)) + (withBlank ? QStringLiteral(" ") : QString()) +
           QLatin1String(prefix->text);
}

QString FormatValueUnit(double& value, const QString& unit, double factor, bool asKilo)
{
    const bool isScaled = asKilo && std::abs(value) > 10;
    if (isScaled)
        value /= 1000;
    return RoundValue(value, factor) + u' ' + (isScaled ? QStringLiteral("k") : QString()) + unit;
}

double Log10(double x)
{
    return std::log10(x);
}

QString NullToText(const QVariant& value)
{
    if (value.isNull())
        return {};
    return value.typeId() == QMetaType::Double ? NumberText(value.toDouble()) : value.toString();
}

QString SqlLiteral(const QVariant& value, bool isText)
{
    const QString text = NullToText(value);
    if (text.isEmpty())
        return QStringLiteral("Null");
    return isText ? u'\'' + text + u'\'' : QString(text).replace(u',', u'.');
}

QString BoolText(bool flag)
{
    return flag ? QStringLiteral("True") : QStringLiteral("False");
}

bool IsBetween(double x, double a, double b)
{
    return x >= std::min(a, b) && x <= std::max(a, b);
}

double NiceStep(double x, double low, double high)
{
    double scaled = 2 * std::abs(x);
    if (scaled == 0 || !std::isfinite(scaled))
        return scaled == 0 ? low : Clamp(scaled, low, high);
    int exponent = 0;
    for (; scaled < 1; --exponent)
        scaled *= 10;
    for (; scaled > 10; ++exponent)
        scaled /= 10;
    const double step = (scaled <= 5 ? 5 : 10) * std::pow(10.0, exponent);
    return std::max(std::min(step, high), low);
}

namespace {

/// Seconds that can be counted singly in a double; 0 for what is no number of seconds.
double CountableSeconds(double seconds)
{
    constexpr double kLongest = 9e15;
    return std::isfinite(seconds) ? Clamp(seconds, -kLongest, kLongest) : 0;
}

char* WriteTwoDigits(char* first, char* last, qint64 n)
{
    if (n >= 0 && n < 10)
        *first++ = '0';
    return std::to_chars(first, last, n).ptr;
}

} // namespace

char* WriteTime(char* first, double seconds)
{
    char* const last = first + kLongestNumber;
    const auto total = static_cast<qint64>(std::floor(CountableSeconds(seconds)));
    char* at = WriteTwoDigits(first, last, total / 3600);
    *at++ = ':';
    at = WriteTwoDigits(at, last, total / 60 % 60);
    *at++ = ':';
    return WriteTwoDigits(at, last, total % 60);
}

QString SecondsToTime(double seconds, bool withFraction)
{
    std::array<char, kLongestNumber> time{};
    const char* const end = WriteTime(time.data(), seconds);
    QString text = QString::fromLatin1(time.data(), end - time.data());
    seconds = CountableSeconds(seconds);
    const int hundredths = static_cast<int>(std::floor((seconds - std::floor(seconds)) * 100));
    if (withFraction && hundredths > 0)
        text += App().DecimalChar + QStringLiteral("%1").arg(hundredths, 2, 10, QLatin1Char('0'));
    return text;
}

std::optional<double> TimeToSeconds(const QString& text)
{
    static const QRegularExpression time(QStringLiteral("^(\\d{2,9}):([0-5]\\d):([0-5]\\d)$"));
    const QRegularExpressionMatch match = time.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    return match.captured(1).toDouble() * kSecondsPerHour + match.captured(2).toDouble() * kSecondsPerMinute +
           match.captured(3).toDouble();
}

QString MotorDbConnection(bool forWriting)
{
    return QStringLiteral("Provider=Microsoft.Jet.OLEDB.4.0;Persist Security Info=False;Data Source=") +
           App().sMotorDbPath + QStringLiteral("; Mode=Read") + (forWriting ? QStringLiteral("|Write") : QString());
}

} // namespace korvanel
