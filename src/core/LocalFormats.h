// The user's own formats: the decimal character of the system, and dates and times as text. A system without a locale
// of its own counts as German, the language of the program.
#pragma once

#include <QDateTime>
#include <QLocale>
#include <QString>

#include <string>
#include <string_view>

namespace korvanel {

/// The locale whose formats are shown.
QLocale FormatLocale();

/// Decimal character of the system's number format, "," where the system has no setting.
QChar SystemDecimalChar();

/// "." where the decimal character is ",", and "," in every other case.
QChar OtherDecimalCharOf(QChar decimalChar);

/// The zero date: what a date holds that was never set.
QDateTime ZeroDate();

/// Date, one blank, time, in the local short formats; the year has four digits and the time its seconds, since sets
/// lie seconds apart.
QString DateTimeText(const QDateTime& moment);

/// The two formats of `DateTimeText`, for boxes that take a date or a time.
QString DateFormat();
QString TimeFormat();

/// `DateTimeText` of a moment as the project file stores it. Rearranges the text where the local formats are made of
/// numbers, since a grid or a pass over a recording needs it for every row. Any other text comes back as it is.
QString DateTimeTextOfStored(const QString& stored);

/// The same for a pass over a recording, in UTF-8: appended to `out`. False, and nothing appended, for a text that is
/// no stored date.
bool AppendDateTimeTextOfStored(std::string& out, std::string_view stored);

/// General date format: the date alone at midnight, the time alone on the zero date, else as `DateTimeText`.
QString GeneralDateText(const QDateTime& moment);

/// ISO text as the project file stores it, "YYYY-MM-DD HH:MM:SS", local time.
QString StoredDateText(const QDateTime& moment);

/// Reads `StoredDateText`; an invalid date for any other text. The moment has no zone: an hour that daylight saving
/// skips here may exist where the file was written.
QDateTime DateFromStoredText(const QString& text);

} // namespace korvanel
