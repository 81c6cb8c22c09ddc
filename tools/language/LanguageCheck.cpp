#include "language/LanguageCheck.h"

#include "core/Texts.h"
#include "language/LanguageOutline.h"
#include "language/MnemonicGroups.h"
#include "language/TextCheck.h"

#include <QKeySequence>

#include <algorithm>
#include <map>
#include <set>

namespace korvanel {

namespace {

/// A text of the program and its translation, where the file has one.
struct TranslatedText
{
    const TextSection* section;
    const TextLine* german;
    int line;
    QString translation;
};

QString Place(const TranslatedText& text)
{
    return QStringLiteral("entry %1 of [%2]").arg(text.german->number).arg(QLatin1String(text.section->name));
}

class Check
{
public:
    Check(const LanguageOutline& ofFile, bool isToBeStrict)
        : outline(ofFile), isStrict(isToBeStrict), complaints(ofFile.complaints)
    {}

    Complaints Run()
    {
        std::set<QString> known;
        for (const TextSection& section : TextSections()) {
            known.insert(QLatin1String(section.name));
            CheckSection(section);
        }
        TellStrangeSections(known);
        for (const MnemonicGroup& group : MnemonicGroups())
            CheckKeys(group);
        std::stable_sort(complaints.begin(), complaints.end(),
                         [](const Complaint& a, const Complaint& b) { return a.line < b.line; });
        return std::move(complaints);
    }

private:
    void Tell(int line, Severity severity, const QString& text) { complaints.push_back({line, severity, text}); }

    void TellStrangeSections(const std::set<QString>& known)
    {
        std::set<QString> seen;
        for (const OutlinedSection& section : outline.sections) {
            if (!known.contains(section.name))
                Tell(section.line, Severity::Warning,
                     QStringLiteral("the program has no section [%1]").arg(section.name));
            else if (!seen.insert(section.name).second)
                Tell(section.line, Severity::Error,
                     QStringLiteral("a second section [%1], which takes the place of the first").arg(section.name));
        }
    }

    void CheckSection(const TextSection& section)
    {
        const OutlinedSection* const outlined = outline.Find(QLatin1String(section.name));
        if (!outlined) {
            Tell(std::max(1, outline.lineCount), Severity::Error,
                 QStringLiteral("the section [%1] is missing").arg(QLatin1String(section.name)));
            return;
        }
        std::set<int> numbers;
        for (const TextLine& line : section.lines) {
            numbers.insert(line.number);
            CheckEntry(section, line, *outlined);
        }
        for (const OutlinedEntry& entry : outlined->entries)
            if (!numbers.contains(entry.number) && !entry.text.isEmpty())
                Tell(entry.line, Severity::Warning,
                     QStringLiteral("the program has no entry %1 in [%2]").arg(entry.number).arg(outlined->name));
    }

    void CheckEntry(const TextSection& section, const TextLine& german, const OutlinedSection& outlined)
    {
        const OutlinedEntry* const entry = outlined.Find(german.number);
        if (!entry) {
            Tell(outlined.line, Severity::Error,
                 QStringLiteral("entry %1 of [%2] is missing: \"%3\"")
                     .arg(german.number)
                     .arg(outlined.name, QString::fromUtf8(german.german)));
            return;
        }
        const Complaints found = CheckText(entry->line, german, entry->text, isStrict);
        complaints.insert(complaints.end(), found.begin(), found.end());
        texts[german.variable] = {&section, &german, entry->line, entry->text};
    }

    void CheckKeys(const MnemonicGroup& group)
    {
        for (std::size_t i = 0; i < group.texts.size(); ++i) {
            for (std::size_t other = 0; other < i; ++other)
                CheckPair(group, group.texts[i], group.texts[other]);
            for (const TextRef other : group.around)
                CheckPair(group, group.texts[i], other);
        }
    }

    /// A key that the German texts share already is no fault of the translation: the two are never seen together, or
    /// it is known.
    void CheckPair(const MnemonicGroup& group, TextRef one, TextRef other)
    {
        const auto text = texts.find(one);
        const auto beside = texts.find(other);
        if (text == texts.end() || beside == texts.end())
            return;
        const QKeySequence key = QKeySequence::mnemonic(text->second.translation);
        if (key.isEmpty() || key != QKeySequence::mnemonic(beside->second.translation) ||
            IsSharedInGerman(*text->second.german, *beside->second.german))
            return;
        Tell(text->second.line, Severity::Error,
             QStringLiteral("%1 is the key of %2 too (%3)").arg(key.toString(), Place(beside->second), group.name));
    }

    static bool IsSharedInGerman(const TextLine& one, const TextLine& other)
    {
        return QKeySequence::mnemonic(QString::fromUtf8(one.german)) ==
               QKeySequence::mnemonic(QString::fromUtf8(other.german));
    }

    const LanguageOutline& outline;
    bool isStrict;
    Complaints complaints;
    std::map<TextRef, TranslatedText> texts;
};

} // namespace

Complaints CheckLanguage(QByteArrayView content, Strictness strictness)
{
    const LanguageOutline outline = OutlineLanguage(content);
    if (outline.lineCount == 0 && HasErrors(outline.complaints)) // empty, or too large to be looked at
        return outline.complaints;
    return Check(outline, strictness == Strictness::Strict).Run();
}

} // namespace korvanel
