#include "core/Texts.h"

#include <array>

namespace korvanel {

namespace {

constexpr TextEntry kEntries[] = {
#define TEXT(variable, section, number, german) {&TextTable::variable, TextSection::section, number, german},
#include "core/TextTable.inc"
#undef TEXT
};

constexpr std::array kSectionNames{"MAIN",   "DEFAULT", "VALUE NAMES", "DIALOGUES", "PRINT/EXPORT", "FORMF1", "FORMF2",
                                   "FORMF3", "FORMF4",  "FORMF6",      "FORMF10",   "FORMH3",       "FORMH5", "FORMH6",
                                   "FORMH7", "FORMH8",  "FORMH9",      "FORMH10",   "FORMH11",      "FORMH15"};

} // namespace

std::span<const TextEntry> TextEntries()
{
    return kEntries;
}

const char* SectionName(TextSection section)
{
    return kSectionNames.at(static_cast<std::size_t>(section));
}

TextTable& Texts()
{
    static TextTable table;
    return table;
}

void SetBuiltInTexts()
{
    for (const TextEntry& entry : kEntries)
        Texts().*entry.variable = QString::fromUtf8(entry.german);
}

} // namespace korvanel
