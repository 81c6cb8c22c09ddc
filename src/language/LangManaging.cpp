#include "language/LangManaging.h"

#include "core/Common.h"
#include "core/Messages.h"
#include "core/Paths.h"
#include "core/Texts.h"
#include "core/clsProgSettings.h"
#include "language/LanguageFile.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

namespace korvanel {

namespace {

// No table can be relied on when these are shown.
const QString kFileMissing = QStringLiteral("Couldn't find the saved language file.\nLoading standard language!");
const QString kFileBroken = QStringLiteral("Unable to load the language file!\nLoading standard language!");

QString LanguageFolder()
{
    return JoinPath(App().sProgramDir, QStringLiteral("LANGUAGES"));
}

/// A section that the file lacks keeps the built-in texts; an entry that its section lacks is empty.
void ApplyTexts(const LanguageSections& sections)
{
    for (const TextSection& section : TextSections()) {
        const auto entries = sections.find(QLatin1String(section.name));
        if (entries == sections.end())
            continue;
        for (const TextLine& line : section.lines)
            *line.variable = entries->second.value(line.number - 1);
    }
}

void FallBack(const QString& message)
{
    ShowError(message);
    App().ProgSettings->SetLanguageFile(kStandardLanguage);
}

} // namespace

bool IsLocaleName(const QString& name)
{
    static const QRegularExpression form(
        QRegularExpression::anchoredPattern(QStringLiteral("[a-z]{2,3}(_[A-Za-z]{2,4})?")));
    return form.match(name).hasMatch();
}

Languages FindLanguages()
{
    Languages languages{{kStandardLanguage}, {kStandardLanguage}};
    const QDir folder(LanguageFolder());
    for (const QString& file : folder.entryList({QStringLiteral("*.lng")}, QDir::Files)) {
        if (const std::optional<QString> name = LanguageName(folder.filePath(file))) {
            languages.LangNames << *name;
            languages.LangFiles << file;
        }
    }
    return languages;
}

Languages LoadLanguage()
{
    SetBuiltInTexts();
    const QString used = App().ProgSettings->LanguageFile();
    if (used != kStandardLanguage) {
        // The name comes from the settings store; only a file of the folder itself is meant.
        const QString path = JoinPath(LanguageFolder(), used);
        const bool isThere = used == FileNameOf(used) && QFileInfo(path).isFile();
        const std::optional<LanguageSections> sections = isThere ? ReadLanguageFile(path) : std::nullopt;
        if (sections)
            ApplyTexts(*sections);
        else
            FallBack(isThere ? kFileBroken : kFileMissing);
    }
    return FindLanguages();
}

} // namespace korvanel
