#include "language/OldProjectValues.h"

#include "core/TableDb.h"
#include "language/CodePage.h"

#include <QStringList>
#include <QtEndian>

#include <bit>
#include <cmath>
#include <limits>

namespace korvanel {

namespace {

constexpr QByteArrayView kNullWord{"NULL"};

/// The parts of a text between separators as whole numbers of at most four digits; nothing if one is none.
std::optional<QList<int>> NumbersBetween(QStringView text, QChar separator)
{
    constexpr qsizetype kMostDigits = 4;
    QList<int> numbers;
    for (const QStringView part : text.split(separator)) {
        const QStringView digits = part.trimmed();
        bool isNumber = !digits.isEmpty() && digits.size() <= kMostDigits && digits.front().isDigit();
        const int number = isNumber ? digits.toInt(&isNumber) : 0;
        if (!isNumber)
            return std::nullopt;
        numbers << number;
    }
    return numbers;
}

std::optional<QDate> DateOfOldText(QStringView text)
{
    const auto parts = NumbersBetween(text, u'.');
    if (!parts || parts->size() != 3)
        return std::nullopt;
    constexpr int kHundred = 100;
    constexpr int kFirstOfCenturyBefore = 30;
    int year = parts->at(2);
    if (year < kHundred)
        year += year < kFirstOfCenturyBefore ? 2000 : 1900;
    const QDate date(year, parts->at(1), parts->at(0));
    return date.isValid() ? std::optional(date) : std::nullopt;
}

std::optional<QTime> TimeOfOldText(QStringView text)
{
    if (text.trimmed().isEmpty())
        return QTime(0, 0);
    const auto parts = NumbersBetween(text, u':');
    if (!parts || parts->size() < 2 || parts->size() > 3)
        return std::nullopt;
    const QTime time(parts->at(0), parts->at(1), parts->value(2, 0));
    return time.isValid() ? std::optional(time) : std::nullopt;
}

std::optional<qint32> BinaryWholeNumber(QByteArrayView bytes)
{
    if (bytes.size() == sizeof(qint16))
        return qFromLittleEndian<qint16>(bytes.data());
    if (bytes.size() == sizeof(qint32))
        return qFromLittleEndian<qint32>(bytes.data());
    return std::nullopt;
}

/// Nothing for what isn't finite, "inf" and "nan" among it.
std::optional<double> NumberOfOldText(QByteArrayView bytes)
{
    constexpr qsizetype kLongestNumberText = 64;
    if (bytes.size() > kLongestNumberText)
        return std::nullopt;
    QByteArray text = bytes.toByteArray();
    text.replace('\0', ' ').replace(',', '.');
    bool isNumber = false;
    const double number = text.trimmed().toDouble(&isNumber);
    return isNumber && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

} // namespace

QString OldText(QByteArrayView bytes)
{
    QString text = FromCp1252(bytes);
    text.remove(QChar(u'\0'));
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
    return text.left(kLongestTypedText);
}

std::optional<QDateTime> OldDate(QByteArrayView bytes)
{
    constexpr qsizetype kLongestDateText = 64;
    if (bytes.size() > kLongestDateText)
        return std::nullopt;
    const QString text = OldText(bytes);
    const qsizetype comma = text.indexOf(u',');
    const auto date = DateOfOldText(QStringView(text).left(comma));
    const auto time = TimeOfOldText(comma < 0 ? QStringView() : QStringView(text).mid(comma + 1));
    if (!date || !time)
        return std::nullopt;
    return QDateTime(*date, *time, Qt::UTC); // the clock on the wall, without a zone
}

std::optional<double> OldNumber(QByteArrayView bytes)
{
    if (bytes == kNullWord)
        return std::nullopt;
    if (bytes.size() == sizeof(double)) {
        const double number = std::bit_cast<double>(qFromLittleEndian<quint64>(bytes.data()));
        return std::isfinite(number) ? std::optional(number) : std::nullopt;
    }
    if (const auto number = NumberOfOldText(bytes))
        return number;
    const auto whole = BinaryWholeNumber(bytes);
    return whole ? std::optional<double>(*whole) : std::nullopt;
}

std::optional<qint32> OldWholeNumber(QByteArrayView bytes)
{
    if (bytes != kNullWord)
        if (const auto whole = BinaryWholeNumber(bytes))
            return whole;
    const auto number = OldNumber(bytes);
    const bool isHeld = number && std::abs(*number) <= std::numeric_limits<qint32>::max();
    return isHeld ? std::optional(static_cast<qint32>(*number)) : std::nullopt;
}

bool OldFlag(QByteArrayView bytes)
{
    return BinaryWholeNumber(bytes).value_or(0) != 0;
}

} // namespace korvanel
