// The texts that the user sees, as variables in `korvanel::texts`. Each section of a language file has its lines in one
// file of `core/texts/` and a header of its own, so that a new text concerns only who uses its section. `language/`
// fills the variables: with the German defaults, then with what a language file says.
#pragma once

#include <QString>

#include <span>

namespace korvanel {

/// A text by its variable, for tables that name one.
using TextRef = const QString*;

inline const QString& TextOf(TextRef text)
{
    return *text;
}

/// One line of a section.
struct TextLine
{
    QString* variable;
    int number; ///< within the section, from 1
    const char* german;
};

/// A section of a language file.
struct TextSection
{
    const char* name; ///< as it stands there
    std::span<const TextLine> lines;
};

std::span<const TextSection> TextSections();

/// Sets every text to its German default.
void SetBuiltInTexts();

} // namespace korvanel
