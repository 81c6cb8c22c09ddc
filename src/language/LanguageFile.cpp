#include "language/LanguageFile.h"

#include <QFile>
#include <QFileInfo>

#include <array>
#include <limits>

namespace korvanel {

namespace {

/// The characters of 0x80 to 0x9F, where the code page differs from Latin 1. Unused places map to themselves.
constexpr std::array<char16_t, 32> kCp1252{0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                           0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                           0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                           0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

std::optional<QString> ReadLine(QFile& file, qint64 most = kLargestLanguageFile)
{
    if (file.atEnd())
        return std::nullopt;
    QByteArray line = file.readLine(most);
    while (line.endsWith('\n') || line.endsWith('\r'))
        line.chop(1);
    return FromCp1252(line);
}

/// The name from the first line. A longer first line is none of a language.
std::optional<QString> ReadName(QFile& file)
{
    constexpr qint64 kLongestName = 1024;
    const std::optional<QString> line = ReadLine(file, kLongestName);
    const QString mark = QStringLiteral("lang=");
    return line && line->startsWith(mark) ? std::optional(line->mid(mark.size())) : std::nullopt;
}

std::optional<QString> SectionOfHeader(const QString& line)
{
    const qsizetype end = line.indexOf(u']');
    return line.startsWith(u'[') && end > 0 ? std::optional(line.mid(1, end - 1)) : std::nullopt;
}

/// Number of entries from "size=n".
std::optional<int> SizeOf(const std::optional<QString>& line)
{
    const QString mark = QStringLiteral("size=");
    if (!line || !line->startsWith(mark))
        return std::nullopt;
    bool isNumber = false;
    const int size = line->mid(mark.size()).trimmed().toInt(&isNumber);
    return isNumber && size >= 0 && size <= std::numeric_limits<qint16>::max() ? std::optional(size) : std::nullopt;
}

std::optional<QStringList> ReadEntries(QFile& file, int size)
{
    constexpr qsizetype kNumberWidth = 3;
    QStringList entries;
    while (entries.size() < size) {
        const std::optional<QString> line = ReadLine(file);
        if (!line)
            return std::nullopt;
        if (line->startsWith(u';'))
            continue;
        bool isNumber = false;
        const int number = line->left(kNumberWidth).trimmed().toInt(&isNumber);
        if (!isNumber || number != entries.size() + 1)
            return std::nullopt;
        entries << line->mid(kNumberWidth + 1).replace(QStringLiteral("~~"), QStringLiteral("\n"));
    }
    return entries;
}

} // namespace

QString FromCp1252(const QByteArray& bytes)
{
    constexpr char16_t kFirst = 0x80;
    QString text = QString::fromLatin1(bytes);
    for (QChar& c : text)
        if (c.unicode() >= kFirst && c.unicode() < kFirst + kCp1252.size())
            c = kCp1252[c.unicode() - kFirst];
    return text;
}

std::optional<QString> LanguageName(const QString& path)
{
    QFile file(path);
    return QFileInfo(path).isFile() && file.open(QIODevice::ReadOnly) ? ReadName(file) : std::nullopt;
}

std::optional<LanguageSections> ReadLanguageFile(const QString& path)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly) || file.size() > kLargestLanguageFile ||
        !ReadName(file))
        return std::nullopt;
    LanguageSections sections;
    while (const std::optional<QString> line = ReadLine(file)) {
        const std::optional<QString> name = SectionOfHeader(*line);
        if (!name)
            continue;
        const std::optional<int> size = SizeOf(ReadLine(file));
        if (!size)
            return std::nullopt;
        std::optional<QStringList> entries = ReadEntries(file, *size);
        if (!entries)
            return std::nullopt;
        sections[*name] = std::move(*entries);
    }
    if (file.error() != QFileDevice::NoError)
        return std::nullopt;
    return sections;
}

} // namespace korvanel
