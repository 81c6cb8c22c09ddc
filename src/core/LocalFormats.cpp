#include "core/LocalFormats.h"

#include <QRegularExpression>

namespace korvanel {

QLocale FormatLocale()
{
    const QLocale system = QLocale::system();
    return system.language() == QLocale::C ? QLocale(QLocale::German, QLocale::Germany) : system;
}

QChar SystemDecimalChar()
{
    const QString point = FormatLocale().decimalPoint();
    return point.isEmpty() ? QChar(u',') : point.front();
}

QChar OtherDecimalCharOf(QChar decimalChar) { return decimalChar == u',' ? u'.' : u','; }

QDateTime ZeroDate()
{
    static const QDateTime zero(QDate(1899, 12, 30), QTime(0, 0, 0));
    return zero;
}

namespace {

QString DateText(const QDate& date)
{
    static const QRegularExpression shortYear(QStringLiteral("(?<!y)yy(?!y)"));
    QString format = FormatLocale().dateFormat(QLocale::ShortFormat);
    format.replace(shortYear, QStringLiteral("yyyy"));
    return FormatLocale().toString(date, format);
}

QString TimeText(const QTime& time)
{
    QString format = FormatLocale().timeFormat(QLocale::ShortFormat);
    if (!format.contains(QStringLiteral("ss")))
        format.replace(QStringLiteral("mm"), QStringLiteral("mm:ss"));
    return FormatLocale().toString(time, format);
}

} // namespace

QString DateTimeText(const QDateTime& moment)
{
    return DateText(moment.date()) + QLatin1Char(' ') + TimeText(moment.time());
}

QString GeneralDateText(const QDateTime& moment)
{
    if (moment.date() == ZeroDate().date())
        return TimeText(moment.time());
    if (moment.time() == QTime(0, 0, 0))
        return DateText(moment.date());
    return DateTimeText(moment);
}

QString StoredDateText(const QDateTime& moment) { return moment.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")); }

QDateTime DateFromStoredText(const QString& text)
{
    // Date and time are read apart: an hour that daylight saving skips here may exist where the file was written.
    constexpr qsizetype kDateLength = 10;
    const QDate date = QDate::fromString(text.left(kDateLength), QStringLiteral("yyyy-MM-dd"));
    const QTime time = QTime::fromString(text.mid(kDateLength), QStringLiteral(" HH:mm:ss"));
    return date.isValid() && time.isValid() ? QDateTime(date, time) : QDateTime();
}

} // namespace korvanel
