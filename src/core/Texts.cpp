#include "core/Texts.h"

#include "core/texts/DefaultTexts.h"
#include "core/texts/DialoguesTexts.h"
#include "core/texts/FormF10Texts.h"
#include "core/texts/FormF1Texts.h"
#include "core/texts/FormF2Texts.h"
#include "core/texts/FormF3Texts.h"
#include "core/texts/FormF4Texts.h"
#include "core/texts/FormF5Texts.h"
#include "core/texts/FormF6Texts.h"
#include "core/texts/FormF8Texts.h"
#include "core/texts/FormF9Texts.h"
#include "core/texts/FormH10Texts.h"
#include "core/texts/FormH11Texts.h"
#include "core/texts/FormH12Texts.h"
#include "core/texts/FormH13Texts.h"
#include "core/texts/FormH14Texts.h"
#include "core/texts/FormH15Texts.h"
#include "core/texts/FormH16Texts.h"
#include "core/texts/FormH17Texts.h"
#include "core/texts/FormH3Texts.h"
#include "core/texts/FormH5Texts.h"
#include "core/texts/FormH6Texts.h"
#include "core/texts/FormH7Texts.h"
#include "core/texts/FormH9Texts.h"
#include "core/texts/MainTexts.h"
#include "core/texts/PrintExportTexts.h"
#include "core/texts/ValueNamesTexts.h"

namespace korvanel {

namespace texts {

#define TEXT(variable, number, german) QString variable;
#include "core/texts/DefaultTexts.inc"
#include "core/texts/DialoguesTexts.inc"
#include "core/texts/FormF10Texts.inc"
#include "core/texts/FormF1Texts.inc"
#include "core/texts/FormF2Texts.inc"
#include "core/texts/FormF3Texts.inc"
#include "core/texts/FormF4Texts.inc"
#include "core/texts/FormF5Texts.inc"
#include "core/texts/FormF6Texts.inc"
#include "core/texts/FormF8Texts.inc"
#include "core/texts/FormF9Texts.inc"
#include "core/texts/FormH10Texts.inc"
#include "core/texts/FormH11Texts.inc"
#include "core/texts/FormH12Texts.inc"
#include "core/texts/FormH13Texts.inc"
#include "core/texts/FormH14Texts.inc"
#include "core/texts/FormH15Texts.inc"
#include "core/texts/FormH16Texts.inc"
#include "core/texts/FormH17Texts.inc"
#include "core/texts/FormH3Texts.inc"
#include "core/texts/FormH5Texts.inc"
#include "core/texts/FormH6Texts.inc"
#include "core/texts/FormH7Texts.inc"
#include "core/texts/FormH9Texts.inc"
#include "core/texts/MainTexts.inc"
#include "core/texts/PrintExportTexts.inc"
#include "core/texts/ValueNamesTexts.inc"
#undef TEXT

} // namespace texts

namespace {

#define TEXT(variable, number, german) {&texts::variable, number, german},
constexpr TextLine kMain[] = {
#include "core/texts/MainTexts.inc"
};
constexpr TextLine kDefault[] = {
#include "core/texts/DefaultTexts.inc"
};
constexpr TextLine kValueNames[] = {
#include "core/texts/ValueNamesTexts.inc"
};
constexpr TextLine kDialogues[] = {
#include "core/texts/DialoguesTexts.inc"
};
constexpr TextLine kPrintExport[] = {
#include "core/texts/PrintExportTexts.inc"
};
constexpr TextLine kFormF1[] = {
#include "core/texts/FormF1Texts.inc"
};
constexpr TextLine kFormF2[] = {
#include "core/texts/FormF2Texts.inc"
};
constexpr TextLine kFormF3[] = {
#include "core/texts/FormF3Texts.inc"
};
constexpr TextLine kFormF4[] = {
#include "core/texts/FormF4Texts.inc"
};
constexpr TextLine kFormF5[] = {
#include "core/texts/FormF5Texts.inc"
};
constexpr TextLine kFormF6[] = {
#include "core/texts/FormF6Texts.inc"
};
constexpr TextLine kFormF8[] = {
#include "core/texts/FormF8Texts.inc"
};
constexpr TextLine kFormF9[] = {
#include "core/texts/FormF9Texts.inc"
};
constexpr TextLine kFormF10[] = {
#include "core/texts/FormF10Texts.inc"
};
constexpr TextLine kFormH3[] = {
#include "core/texts/FormH3Texts.inc"
};
constexpr TextLine kFormH5[] = {
#include "core/texts/FormH5Texts.inc"
};
constexpr TextLine kFormH6[] = {
#include "core/texts/FormH6Texts.inc"
};
constexpr TextLine kFormH7[] = {
#include "core/texts/FormH7Texts.inc"
};
constexpr TextLine kFormH9[] = {
#include "core/texts/FormH9Texts.inc"
};
constexpr TextLine kFormH10[] = {
#include "core/texts/FormH10Texts.inc"
};
constexpr TextLine kFormH11[] = {
#include "core/texts/FormH11Texts.inc"
};
constexpr TextLine kFormH12[] = {
#include "core/texts/FormH12Texts.inc"
};
constexpr TextLine kFormH13[] = {
#include "core/texts/FormH13Texts.inc"
};
constexpr TextLine kFormH14[] = {
#include "core/texts/FormH14Texts.inc"
};
constexpr TextLine kFormH15[] = {
#include "core/texts/FormH15Texts.inc"
};
constexpr TextLine kFormH16[] = {
#include "core/texts/FormH16Texts.inc"
};
constexpr TextLine kFormH17[] = {
#include "core/texts/FormH17Texts.inc"
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
    {"FORMF5", kFormF5},
    {"FORMF6", kFormF6},
    {"FORMF8", kFormF8},
    {"FORMF9", kFormF9},
    {"FORMF10", kFormF10},
    {"FORMH3", kFormH3},
    {"FORMH5", kFormH5},
    {"FORMH6", kFormH6},
    {"FORMH7", kFormH7},
    {"FORMH9", kFormH9},
    {"FORMH10", kFormH10},
    {"FORMH11", kFormH11},
    {"FORMH12", kFormH12},
    {"FORMH13", kFormH13},
    {"FORMH14", kFormH14},
    {"FORMH15", kFormH15},
    {"FORMH16", kFormH16},
    {"FORMH17", kFormH17},
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
