#include "language/LanguageFile.h"

#include "language/LanguageLines.h"

#include <QFile>
#include <QFileInfo>

namespace korvanel {

namespace {

/// The first bytes of a file, `most` of them at most. A pipe or a device in place of a file isn't waited for.
std::optional<QByteArray> ReadBeginning(const QString& path, qint64 most)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return std::nullopt;
    QByteArray content = file.read(most);
    return file.error() == QFileDevice::NoError ? std::optional(std::move(content)) : std::nullopt;
}

/// Walks over the lines of a file.
struct LineReader
{
    const QStringList& lines;
    qsizetype next = 0;

    bool IsAtEnd() const { return next >= lines.size(); }
    QStringView Read() { return lines.at(next++); }
};

std::optional<QStringList> ReadEntries(LineReader& reader)
{
    const std::optional<int> size = reader.IsAtEnd() ? std::nullopt : SizeOfLine(reader.Read());
    if (!size)
        return std::nullopt;
    QStringList entries;
    while (entries.size() < *size) {
        if (reader.IsAtEnd())
            return std::nullopt;
        const QStringView line = reader.Read();
        if (IsComment(line))
            continue;
        const std::optional<EntryLine> entry = EntryOfLine(line);
        if (!entry || entry->number != entries.size() + 1)
            return std::nullopt;
        entries << WithLineBreaks(entry->text);
    }
    return entries;
}

} // namespace

std::optional<LanguageSections> ParseLanguage(QByteArrayView content)
{
    const QStringList lines = LinesOf(content);
    LineReader reader{lines};
    if (reader.IsAtEnd() || !NameOfLine(reader.Read()))
        return std::nullopt;
    LanguageSections sections;
    while (!reader.IsAtEnd()) {
        const std::optional<QStringView> name = SectionOfHeader(reader.Read());
        if (!name)
            continue;
        std::optional<QStringList> entries = ReadEntries(reader);
        if (!entries)
            return std::nullopt;
        sections[name->toString()] = std::move(*entries);
    }
    return sections;
}

std::optional<QByteArray> ReadLanguageContent(const QString& path)
{
    std::optional<QByteArray> content = ReadBeginning(path, kLargestLanguageFile + 1);
    return content && content->size() <= kLargestLanguageFile ? content : std::nullopt;
}

std::optional<LanguageSections> ReadLanguageFile(const QString& path)
{
    const std::optional<QByteArray> content = ReadLanguageContent(path);
    return content ? ParseLanguage(*content) : std::nullopt;
}

std::optional<QString> LanguageName(const QString& path)
{
    constexpr qint64 kLongestName = 1024; // in bytes; the rest of a longer first line isn't shown
    const std::optional<QByteArray> beginning = ReadBeginning(path, kLongestName);
    if (!beginning)
        return std::nullopt;
    const qsizetype end = beginning->indexOf('\n');
    const QStringList lines = LinesOf(QByteArrayView(*beginning).first(end < 0 ? beginning->size() : end));
    const std::optional<QStringView> name = lines.isEmpty() ? std::nullopt : NameOfLine(lines.front());
    return name ? std::optional(name->toString()) : std::nullopt;
}

} // namespace korvanel
