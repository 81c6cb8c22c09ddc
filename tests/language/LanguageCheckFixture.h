// A language file without fault, to put faults into, and what the check says of it.
#pragma once

#include "language/CodePage.h"
#include "language/LanguageCheck.h"
#include "language/LanguageFile.h"
#include "language/LanguageTemplate.h"

#include <QStringList>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>

namespace korvanel {

inline void PrintTo(const Complaint& complaint, std::ostream* out)
{
    *out << complaint.line << (complaint.severity == Severity::Error ? ": error: " : ": warning: ")
         << complaint.text.toStdString();
}

} // namespace korvanel

namespace korvanel::test {

inline Complaint Error(int line, const QString& text)
{
    return {line, Severity::Error, text};
}

inline Complaint Warning(int line, const QString& text)
{
    return {line, Severity::Warning, text};
}

/// A file without fault, line by line, to put faults into. Lines count from 1.
class LanguageCheckTest : public ::testing::Test
{
protected:
    int LineOfHeader(const QString& section) const
    {
        return static_cast<int>(lines.indexOf(u'[' + section + u']')) + 1;
    }
    int LineOf(const QString& section, int number) const
    {
        const QString mark = QStringLiteral("%1 ").arg(number, 3, 10, QLatin1Char('0'));
        qsizetype line = LineOfHeader(section);
        while (!lines.at(line).startsWith(mark))
            ++line;
        return static_cast<int>(line) + 1;
    }
    QString& Line(int line) { return lines[line - 1]; }
    /// Gives an entry another text; its line.
    int SetText(const QString& section, int number, const QString& text)
    {
        const int line = LineOf(section, number);
        Line(line) = Line(line).left(4) + text;
        return line;
    }
    QByteArray Content() const { return ToCp1252(lines.join("\r\n")).value(); }
    Complaints Check() const { return CheckLanguage(Content()); }
    bool IsRead() const { return ParseLanguage(Content()).has_value(); }

    QStringList lines = FromCp1252(LanguageTemplate()).split("\r\n");
};

} // namespace korvanel::test
