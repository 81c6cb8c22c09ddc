#include "language/TextCheck.h"

#include "core/Paths.h"
#include "core/texts/DefaultTexts.h"
#include "core/texts/MainTexts.h"
#include "language/LangManaging.h"

#include <QKeySequence>

#include <algorithm>
#include <cmath>
#include <optional>

namespace korvanel {

namespace {

using Finding = std::optional<QString>;

/// A rule looks at the German text and the translation of it.
struct Rule
{
    Severity severity;
    Finding (*find)(const QString& german, const QString& translation);
};

template <char16_t character>
Finding FindOtherCount(const QString& german, const QString& translation, const char* what)
{
    const qsizetype wanted = german.count(QChar(character));
    const qsizetype found = translation.count(QChar(character));
    return wanted == found ? Finding()
                           : QStringLiteral("%1 %2 instead of %3").arg(found).arg(QLatin1String(what)).arg(wanted);
}

Finding FindPlaceholders(const QString& german, const QString& translation)
{
    return FindOtherCount<u'#'>(german, translation, "placeholders \"#\"");
}

Finding FindLineBreaks(const QString& german, const QString& translation)
{
    return FindOtherCount<u'\n'>(german, translation, "line breaks \"~~\"");
}

Finding FindTabs(const QString& german, const QString& translation)
{
    return FindOtherCount<u'\t'>(german, translation, "tabs");
}

/// Names and patterns take turns in the filter of a file dialog; the patterns are what the program goes by.
Finding FindFilter(const QString& german, const QString& translation)
{
    if (!german.contains(QStringLiteral("|*")))
        return {};
    const QStringList wanted = german.split(u'|');
    const QStringList found = translation.split(u'|');
    bool isAlike = wanted.size() == found.size();
    for (qsizetype i = 1; isAlike && i < wanted.size(); i += 2)
        isAlike = wanted[i] == found[i];
    return isAlike ? Finding() : QStringLiteral("another filter of files than \"%1\"").arg(german);
}

bool HasKey(const QString& text)
{
    return !QKeySequence::mnemonic(text).isEmpty();
}

Finding FindLostKey(const QString& german, const QString& translation)
{
    return HasKey(german) && !HasKey(translation) ? Finding(QStringLiteral("no key is marked with \"&\"")) : Finding();
}

Finding FindLostBlank(const QString& german, const QString& translation)
{
    const bool isLost =
        german.startsWith(u' ') != translation.startsWith(u' ') || german.endsWith(u' ') != translation.endsWith(u' ');
    return isLost ? Finding(QStringLiteral("blanks at its ends differ from \"%1\"").arg(german)) : Finding();
}

qsizetype LongestLine(const QString& text)
{
    qsizetype longest = 0;
    for (const QStringView line : QStringView(text).split(u'\n'))
        longest = std::max(longest, line.size());
    return longest;
}

/// Pages have room for somewhat more than the German text.
Finding FindTooLong(const QString& german, const QString& translation)
{
    constexpr double kFactor = 1.6;
    constexpr qsizetype kSpare = 8;
    const qsizetype most = std::lround(kFactor * static_cast<double>(LongestLine(german))) + kSpare;
    const qsizetype length = LongestLine(translation);
    return length > most ? Finding(QStringLiteral("%1 characters may not fit where the German text has %2")
                                       .arg(length)
                                       .arg(LongestLine(german)))
                         : Finding();
}

constexpr Rule kRules[] = {
    {Severity::Error, FindPlaceholders}, {Severity::Error, FindFilter},    {Severity::Warning, FindLineBreaks},
    {Severity::Warning, FindTabs},       {Severity::Warning, FindLostKey}, {Severity::Warning, FindLostBlank},
    {Severity::Warning, FindTooLong},
};

bool IsManualName(const QString& name)
{
    return name == FileNameOf(name) && HasExtension(name, QStringLiteral(".pdf"));
}

/// Texts that aren't shown, but tell the program something.
struct SpecialText
{
    TextRef text;
    bool (*isValid)(const QString& value);
    const char* what;
};
constexpr SpecialText kSpecialTexts[] = {
    {&texts::manualFile, IsManualName, "the name of a file *.pdf in the folder LANGUAGES"},
    {&texts::toolkitLocale, IsLocaleName, "the name of a locale, such as \"en\" or \"pt_BR\""},
};

Finding FindSpecial(TextRef text, const QString& translation)
{
    for (const SpecialText& special : kSpecialTexts)
        if (special.text == text)
            return special.isValid(translation)
                       ? Finding()
                       : QStringLiteral("\"%1\" isn't %2").arg(translation, QLatin1String(special.what));
    return {};
}

/// Symbols and units are the same everywhere; what has a word in it should not be.
bool HasWord(const QString& text)
{
    constexpr int kLongestUnit = 3;
    int letters = 0;
    for (const QChar c : text) {
        letters = c.isLetter() ? letters + 1 : 0;
        if (letters > kLongestUnit)
            return true;
    }
    return false;
}

Finding FindGerman(const QString& german, const QString& translation)
{
    return german == translation && HasWord(german)
               ? Finding(QStringLiteral("is the German text still: \"%1\"").arg(german))
               : Finding();
}

} // namespace

Complaints CheckText(int line, const TextLine& german, const QString& translation, bool isStrict)
{
    const QString original = QString::fromUtf8(german.german);
    if (translation.isEmpty())
        return {{line, Severity::Error, QStringLiteral("the text is empty, in German \"%1\"").arg(original)}};
    Complaints complaints;
    const auto take = [&](Severity severity, const Finding& finding) {
        if (finding)
            complaints.push_back({line, severity, *finding});
    };
    for (const Rule& rule : kRules)
        take(rule.severity, rule.find(original, translation));
    take(Severity::Error, FindSpecial(german.variable, translation));
    if (isStrict)
        take(Severity::Warning, FindGerman(original, translation));
    return complaints;
}

} // namespace korvanel
