// What the bytes of a field in a project of the predecessor mean: texts in the code page 1252, dates and numbers that
// are texts themselves, and binary numbers with the low byte first.
#pragma once

#include <QByteArrayView>
#include <QDateTime>
#include <QString>

#include <optional>

namespace korvanel {

/// Text of a field: without zero bytes, each line ending in a line feed, cut to `kLongestTypedText` characters, beyond
/// which no project can be opened.
QString OldText(QByteArrayView bytes);

/// "day.month.year, hour:minute:second". Blanks don't matter, the time or its seconds may be missing, and of a year in
/// two digits those from 30 on belong to the century before. Nothing for any other text.
std::optional<QDateTime> OldDate(QByteArrayView bytes);

/// A number that is a double in eight bytes, or a text with either decimal character. Where two or four bytes are no
/// such text they are a whole number. Nothing for "NULL", any other text, and what is not finite.
std::optional<double> OldNumber(QByteArrayView bytes);

/// A whole number in two or four bytes, or whatever else `OldNumber` takes, without its fraction.
std::optional<qint32> OldWholeNumber(QByteArrayView bytes);

/// True for a whole number in two or four bytes other than 0.
bool OldFlag(QByteArrayView bytes);

} // namespace korvanel
