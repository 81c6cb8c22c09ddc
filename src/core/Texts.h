// The texts that the user sees, as variables. `language/` fills them: with the German defaults, then with what a
// language file says. The table itself is vocabulary, for the messages of this room need it as much as every page.
#pragma once

#include <QString>

#include <span>

namespace korvanel {

/// Sections of a language file.
enum class TextSection
{
    Main,
    Default,
    ValueNames,
    Dialogues,
    PrintExport,
    FormF1,
    FormF2,
    FormF3,
    FormF4,
    FormF6,
    FormF10,
    FormH3,
    FormH5,
    FormH6,
    FormH7,
    FormH8,
    FormH9,
    FormH10,
    FormH11,
    FormH15,
};

struct TextTable
{
#define TEXT(variable, section, number, german) QString variable;
#include "core/TextTable.inc"
#undef TEXT
};

/// A text by its variable, for tables that name one.
using TextMember = QString TextTable::*;

/// One line of the table.
struct TextEntry
{
    TextMember variable;
    TextSection section;
    int number; ///< within the section, from 1
    const char* german;
};

std::span<const TextEntry> TextEntries();

/// Name of a section as it stands in a language file.
const char* SectionName(TextSection section);

/// The texts in use.
TextTable& Texts();

inline const QString& TextOf(TextMember member)
{
    return Texts().*member;
}

/// Sets every text to its German default.
void SetBuiltInTexts();

} // namespace korvanel
