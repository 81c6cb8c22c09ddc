// The lines of a language file and what each may be: its first line, the header of a section, its size, an entry. Both
// the reader and the check for translators go by them.
#pragma once

#include <QByteArrayView>
#include <QString>
#include <QStringList>
#include <QStringView>

#include <limits>
#include <optional>

namespace korvanel {

inline constexpr QByteArrayView kUtf8Mark("\xEF\xBB\xBF");
inline constexpr int kMostEntries = std::numeric_limits<qint16>::max();

/// A file with the byte order mark of UTF-8 that holds valid UTF-8 is one; every other is of the code page 1252.
bool IsUtf8File(QByteArrayView content);

/// The lines of a file without their ends. Carriage returns before the line feed belong to the end.
QStringList LinesOf(QByteArrayView content);

/// What stands behind "lang=".
std::optional<QStringView> NameOfLine(QStringView line);

/// What stands between "[" in the first column and "]".
std::optional<QStringView> SectionOfHeader(QStringView line);

/// Number behind "size=", from 0 to `kMostEntries`.
std::optional<int> SizeOfLine(QStringView line);

bool IsComment(QStringView line);

struct EntryLine
{
    int number;       ///< of columns 1 to 3
    QStringView text; ///< from column 5 on
};

/// A line that begins with a number; it need not be the next one.
std::optional<EntryLine> EntryOfLine(QStringView line);

/// "~~" of a file as line breaks, and back.
QString WithLineBreaks(QStringView text);
QString WithoutLineBreaks(const QString& text);

} // namespace korvanel
