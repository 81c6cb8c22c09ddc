#include "language/LanguageOutline.h"

#include "language/CodePage.h"
#include "language/LanguageFile.h"
#include "language/LanguageLines.h"

#include <QUtf8StringView>

#include <algorithm>
#include <optional>

namespace korvanel {

namespace {

class Outliner
{
public:
    LanguageOutline Outline(QByteArrayView content)
    {
        const QStringList lines = LinesOf(content);
        outline.lineCount = static_cast<int>(lines.size());
        CheckCharacters(content);
        CheckName(lines.isEmpty() ? QStringView() : lines.front());
        for (line = 2; line <= outline.lineCount; ++line)
            TakeLine(lines.at(line - 1));
        EndSection();
        return std::move(outline);
    }

private:
    void Tell(int at, Severity severity, const QString& text) { outline.complaints.push_back({at, severity, text}); }
    void TellError(const QString& text) { Tell(line, Severity::Error, text); }

    void CheckCharacters(QByteArrayView content)
    {
        if (IsUtf8File(content))
            return;
        if (content.startsWith(kUtf8Mark)) {
            Tell(1, Severity::Error, QStringLiteral("begins with the mark of UTF-8, but isn't valid UTF-8"));
            return;
        }
        const auto isForeign = [](char byte) { return static_cast<unsigned char>(byte) >= 0x80; };
        const auto* const first = std::find_if(content.begin(), content.end(), isForeign);
        if (first != content.end() && QUtf8StringView(content.data(), content.size()).isValidUtf8()) {
            Tell(LineAt(content, first), Severity::Error,
                 QStringLiteral("is UTF-8 without a byte order mark: save it with one, or in Windows-1252"));
            return;
        }
        int told = 0;
        for (const auto* byte = content.begin(); byte != content.end(); ++byte)
            if (IsUnusedInCp1252(*byte) && LineAt(content, byte) != told) {
                told = LineAt(content, byte);
                Tell(told, Severity::Error, QStringLiteral("a byte that is no character of Windows-1252"));
            }
    }

    static int LineAt(QByteArrayView content, const char* place)
    {
        return static_cast<int>(std::count(content.begin(), place, '\n')) + 1;
    }

    void CheckName(QStringView firstLine)
    {
        const std::optional<QStringView> name = NameOfLine(firstLine);
        if (!name)
            Tell(1, Severity::Error, QStringLiteral("the first line isn't \"lang=\" and the name of the language"));
        else if (name->trimmed().isEmpty())
            Tell(1, Severity::Error, QStringLiteral("no name of the language behind \"lang=\""));
    }

    void TakeLine(const QString& text)
    {
        if (isSizeNext) {
            isSizeNext = false;
            size = SizeOfLine(text);
            sizeLine = line;
            if (size)
                return;
            TellError(QStringLiteral("\"size=\" and a number up to %1 is missing below [%2]")
                          .arg(kMostEntries)
                          .arg(outline.sections.back().name));
            if (text.startsWith(QStringLiteral("size=")))
                return;
        }
        if (const std::optional<QStringView> name = SectionOfHeader(text))
            BeginSection(name->toString());
        else if (!IsComment(text))
            TakeEntry(text);
    }

    void BeginSection(const QString& name)
    {
        EndSection();
        outline.sections.push_back({line, name, {}});
        isSizeNext = true;
        size.reset();
    }

    void EndSection()
    {
        if (outline.sections.empty())
            return;
        const OutlinedSection& section = outline.sections.back();
        if (isSizeNext)
            Tell(section.line, Severity::Error, QStringLiteral("nothing stands below [%1]").arg(section.name));
        else if (size && static_cast<std::size_t>(*size) != section.entries.size())
            Tell(
                sizeLine, Severity::Error,
                QStringLiteral("[%1] has %2 entries, not %3").arg(section.name).arg(section.entries.size()).arg(*size));
    }

    /// How many entries are read doesn't tell here where a section ends: its size may be the fault.
    void TakeEntry(const QString& text)
    {
        const std::optional<EntryLine> entry = EntryOfLine(text);
        if (outline.sections.empty() || !entry) {
            TellStray(text);
            return;
        }
        OutlinedSection& section = outline.sections.back();
        const int expected = section.entries.empty() ? 1 : section.entries.back().number + 1;
        if (section.Find(entry->number))
            TellError(QStringLiteral("a second entry %1 in [%2]").arg(entry->number).arg(section.name));
        else if (entry->number != expected)
            TellError(QStringLiteral("entry %1 in [%2] where %3 is expected")
                          .arg(entry->number)
                          .arg(section.name)
                          .arg(expected));
        section.entries.push_back({line, entry->number, WithLineBreaks(entry->text)});
    }

    void TellStray(const QString& text)
    {
        const bool isWithinSection = !outline.sections.empty() && size &&
                                     outline.sections.back().entries.size() < static_cast<std::size_t>(*size);
        if (isWithinSection)
            TellError(QStringLiteral("neither an entry nor a comment"));
        else if (!text.trimmed().isEmpty())
            Tell(line, Severity::Warning, QStringLiteral("is ignored: no header, no entry, no comment"));
    }

    LanguageOutline outline;
    int line = 1;
    bool isSizeNext = false;
    std::optional<int> size; ///< of the present section
    int sizeLine = 0;
};

} // namespace

const OutlinedEntry* OutlinedSection::Find(int number) const
{
    const auto entry = std::find_if(entries.begin(), entries.end(),
                                    [number](const OutlinedEntry& candidate) { return candidate.number == number; });
    return entry == entries.end() ? nullptr : &*entry;
}

const OutlinedSection* LanguageOutline::Find(const QString& name) const
{
    const auto section = std::find_if(sections.rbegin(), sections.rend(),
                                      [&](const OutlinedSection& candidate) { return candidate.name == name; });
    return section == sections.rend() ? nullptr : &*section;
}

LanguageOutline OutlineLanguage(QByteArrayView content)
{
    if (content.size() <= kLargestLanguageFile)
        return Outliner().Outline(content);
    LanguageOutline outline;
    outline.complaints.push_back(
        {1, Severity::Error, QStringLiteral("larger than the %1 bytes that are read").arg(kLargestLanguageFile)});
    return outline;
}

} // namespace korvanel
