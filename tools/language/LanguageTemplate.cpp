#include "language/LanguageTemplate.h"

#include "core/Texts.h"
#include "language/CodePage.h"
#include "language/LanguageLines.h"

#include <QStringList>

#include <map>
#include <stdexcept>

namespace korvanel {

namespace {

/// What a translator has to know, between the first line and the first section, where nothing is read.
constexpr const char* kAdvice[] = {
    "Put the name of the language behind \"lang=\"; it is shown in the menu of languages.",
    "Below each comment with the German text stands the entry to translate: its number, a blank, the text.",
    "Numbers stay, and so do the lines size=. An entry \"not in use\" stays empty.",
    "#   a value is put in here; there are as many as in German, in the same order",
    "~~  a new line",
    "&   the next letter is the key of the entry; no two on one page, in one menu or in one dialog are alike",
    "|   parts names and patterns of a file dialog; only the names are translated",
};

void AddSection(const TextSection& section, QStringList& lines)
{
    std::map<int, QString> texts;
    for (const TextLine& line : section.lines)
        texts[line.number] = WithoutLineBreaks(QString::fromUtf8(line.german));
    const int size = texts.rbegin()->first;
    lines << QString() << QLatin1Char('[') + QLatin1String(section.name) + u']' << QStringLiteral("size=%1").arg(size);
    for (int number = 1; number <= size; ++number) {
        const auto text = texts.find(number);
        const bool isUsed = text != texts.end();
        lines << u';' + (isUsed ? text->second : QStringLiteral("not in use"));
        lines << QStringLiteral("%1 ").arg(number, 3, 10, QLatin1Char('0')) + (isUsed ? text->second : QString());
    }
}

} // namespace

QByteArray LanguageTemplate()
{
    QStringList lines{QStringLiteral("lang=Deutsch")};
    for (const char* rule : kAdvice)
        lines << QStringLiteral("; ") + QString::fromUtf8(rule);
    for (const TextSection& section : TextSections())
        AddSection(section, lines);
    const std::optional<QByteArray> content = ToCp1252(lines.join(QStringLiteral("\r\n")) + QStringLiteral("\r\n"));
    if (!content)
        throw std::logic_error("a German text isn't in the code page 1252");
    return *content;
}

} // namespace korvanel
