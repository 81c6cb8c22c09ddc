#include "core/Texts.h"

#include "core/texts/Default.h"
#include "core/texts/Dialogues.h"
#include "core/texts/FormF1.h"
#include "core/texts/FormF10.h"
#include "core/texts/FormF2.h"
#include "core/texts/FormF3.h"
#include "core/texts/FormF4.h"
#include "core/texts/FormF6.h"
#include "core/texts/FormH10.h"
#include "core/texts/FormH11.h"
#include "core/texts/FormH15.h"
#include "core/texts/FormH3.h"
#include "core/texts/FormH5.h"
#include "core/texts/FormH6.h"
#include "core/texts/FormH7.h"
#include "core/texts/FormH9.h"
#include "core/texts/Main.h"
#include "core/texts/PrintExport.h"
#include "core/texts/ValueNames.h"

namespace korvanel {

namespace texts {

#define TEXT(variable, number, german) QString variable;
#include "core/texts/Default.inc"
#include "core/texts/Dialogues.inc"
#include "core/texts/FormF1.inc"
#include "core/texts/FormF10.inc"
#include "core/texts/FormF2.inc"
#include "core/texts/FormF3.inc"
#include "core/texts/FormF4.inc"
#include "core/texts/FormF6.inc"
#include "core/texts/FormH10.inc"
#include "core/texts/FormH11.inc"
#include "core/texts/FormH15.inc"
#include "core/texts/FormH3.inc"
#include "core/texts/FormH5.inc"
#include "core/texts/FormH6.inc"
#include "core/texts/FormH7.inc"
#include "core/texts/FormH9.inc"
#include "core/texts/Main.inc"
#include "core/texts/PrintExport.inc"
#include "core/texts/ValueNames.inc"
#undef TEXT

} // namespace texts

namespace {

#define TEXT(variable, number, german) {&texts::variable, number, german},
constexpr TextLine kMain[] = {
#include "core/texts/Main.inc"
};
constexpr TextLine kDefault[] = {
#include "core/texts/Default.inc"
};
constexpr TextLine kValueNames[] = {
#include "core/texts/ValueNames.inc"
};
constexpr TextLine kDialogues[] = {
#include "core/texts/Dialogues.inc"
};
constexpr TextLine kPrintExport[] = {
#include "core/texts/PrintExport.inc"
};
constexpr TextLine kFormF1[] = {
#include "core/texts/FormF1.inc"
};
constexpr TextLine kFormF2[] = {
#include "core/texts/FormF2.inc"
};
constexpr TextLine kFormF3[] = {
#include "core/texts/FormF3.inc"
};
constexpr TextLine kFormF4[] = {
#include "core/texts/FormF4.inc"
};
constexpr TextLine kFormF6[] = {
#include "core/texts/FormF6.inc"
};
constexpr TextLine kFormF10[] = {
#include "core/texts/FormF10.inc"
};
constexpr TextLine kFormH3[] = {
#include "core/texts/FormH3.inc"
};
constexpr TextLine kFormH5[] = {
#include "core/texts/FormH5.inc"
};
constexpr TextLine kFormH6[] = {
#include "core/texts/FormH6.inc"
};
constexpr TextLine kFormH7[] = {
#include "core/texts/FormH7.inc"
};
constexpr TextLine kFormH9[] = {
#include "core/texts/FormH9.inc"
};
constexpr TextLine kFormH10[] = {
#include "core/texts/FormH10.inc"
};
constexpr TextLine kFormH11[] = {
#include "core/texts/FormH11.inc"
};
constexpr TextLine kFormH15[] = {
#include "core/texts/FormH15.inc"
};
#undef TEXT

constexpr TextSection kSections[] = {
    {"MAIN", kMain},
    {"DEFAULT", kDefault},
    {"VALUE NAMES", kValueNames},
    {"DIALOGUES", kDialogues},
    {"PRINT/EXPORT", kPrintExport},
    {"FORMF1", kFormF1},
    {"FORMF2", kFormF2},
    {"FORMF3", kFormF3},
    {"FORMF4", kFormF4},
    {"FORMF6", kFormF6},
    {"FORMF10", kFormF10},
    {"FORMH3", kFormH3},
    {"FORMH5", kFormH5},
    {"FORMH6", kFormH6},
    {"FORMH7", kFormH7},
    {"FORMH9", kFormH9},
    {"FORMH10", kFormH10},
    {"FORMH11", kFormH11},
    {"FORMH15", kFormH15},
};

} // namespace

std::span<const TextSection> TextSections()
{
    return kSections;
}

void SetBuiltInTexts()
{
    for (const TextSection& section : kSections)
        for (const TextLine& line : section.lines)
            *line.variable = QString::fromUtf8(line.german);
}

} // namespace korvanel
