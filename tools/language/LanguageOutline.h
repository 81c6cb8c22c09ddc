// Sections and entries of a language file as they stand there, faults included: where the program's reader gives up at
// the first fault, this goes on, so that a translator hears of all of them at once.
#pragma once

#include "language/Complaint.h"

#include <QByteArrayView>

#include <vector>

namespace korvanel {

struct OutlinedEntry
{
    int line;
    int number;
    QString text; ///< with line breaks
};

struct OutlinedSection
{
    int line; ///< of the header
    QString name;
    std::vector<OutlinedEntry> entries;

    /// The first entry of a number; none if it isn't there.
    const OutlinedEntry* Find(int number) const;
};

struct LanguageOutline
{
    int lineCount = 0;
    std::vector<OutlinedSection> sections;
    Complaints complaints; ///< about characters and format; without an error the program reads the file

    /// The last section of a name, which is the one that counts; none if it isn't there.
    const OutlinedSection* Find(const QString& name) const;
};

LanguageOutline OutlineLanguage(QByteArrayView content);

} // namespace korvanel
