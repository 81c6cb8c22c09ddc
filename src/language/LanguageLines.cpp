#include "language/LanguageLines.h"

#include "language/CodePage.h"

#include <QUtf8StringView>

#include <algorithm>

namespace korvanel {

namespace {

const QString kLineBreak = QStringLiteral("~~");

std::optional<QStringView> Behind(QStringView line, QStringView mark)
{
    return line.startsWith(mark) ? std::optional(line.mid(mark.size())) : std::nullopt;
}

} // namespace

bool IsUtf8File(QByteArrayView content)
{
    return content.startsWith(kUtf8Mark) && QUtf8StringView(content.data(), content.size()).isValidUtf8();
}

QStringList LinesOf(QByteArrayView content)
{
    const QString text =
        IsUtf8File(content) ? QString::fromUtf8(content.sliced(kUtf8Mark.size())) : FromCp1252(content);
    QStringList lines = text.split(u'\n');
    if (lines.constLast().isEmpty()) // behind the last line feed
        lines.removeLast();
    for (QString& line : lines)
        while (line.endsWith(u'\r'))
            line.chop(1);
    return lines;
}

std::optional<QStringView> NameOfLine(QStringView line)
{
    return Behind(line, u"lang=");
}

std::optional<QStringView> SectionOfHeader(QStringView line)
{
    const qsizetype end = line.indexOf(u']');
    return line.startsWith(u'[') && end > 0 ? std::optional(line.mid(1, end - 1)) : std::nullopt;
}

std::optional<int> SizeOfLine(QStringView line)
{
    const std::optional<QStringView> digits = Behind(line, u"size=");
    bool isNumber = false;
    const int size = digits ? digits->trimmed().toInt(&isNumber) : 0;
    return isNumber && size >= 0 && size <= kMostEntries ? std::optional(size) : std::nullopt;
}

bool IsComment(QStringView line)
{
    return line.startsWith(u';');
}

std::optional<EntryLine> EntryOfLine(QStringView line)
{
    constexpr qsizetype kNumberWidth = 3;
    bool isNumber = false;
    const int number = line.left(kNumberWidth).trimmed().toInt(&isNumber);
    return isNumber ? std::optional(EntryLine{number, line.mid(std::min(kNumberWidth + 1, line.size()))})
                    : std::nullopt;
}

QString WithLineBreaks(QStringView text)
{
    return text.toString().replace(kLineBreak, QStringLiteral("\n"));
}

QString WithoutLineBreaks(const QString& text)
{
    return QString(text).replace(u'\n', kLineBreak);
}

} // namespace korvanel
