// The languages of the program: which there are, and loading the one in use over the built-in German texts. A language
// is known by the name of its file; "standard" is the built-in one.
#pragma once

#include <QString>
#include <QStringList>

namespace korvanel {

inline const QString kStandardLanguage = QStringLiteral("standard");

struct Languages
{
    QStringList LangNames; ///< as shown in the menu; the first is "standard"
    QStringList LangFiles;
};

/// True for what can name a translation of the toolkit, such as "de" or "pt_BR". The name comes from a language file;
/// nothing else in it may lead to another file.
bool IsLocaleName(const QString& name);

/// "standard" and the language files of the program's folder, in the order of the directory.
Languages FindLanguages();

/// Sets the built-in texts and, if the settings name another language, reads its file over them. A missing or broken
/// file is told; the standard language is then in use and saved.
Languages LoadLanguage();

} // namespace korvanel
