// A language file: numbered texts in sections, one record a line, in the ANSI code page 1252 or in UTF-8 with a byte
// order mark.
#pragma once

#include <QByteArrayView>
#include <QString>
#include <QStringList>

#include <map>
#include <optional>

namespace korvanel {

/// Texts of each section by its name; entry n stands at position n - 1.
using LanguageSections = std::map<QString, QStringList>;

/// Largest file in bytes that is read; the texts of the program are a hundredth of it.
inline constexpr qint64 kLargestLanguageFile = 1 << 20;

/// The sections of a file from its content; of two of the same name the later counts. Nothing if the content doesn't
/// follow the format: no name in the first line, a section without its size, an entry out of sequence, the end of the
/// file within a section.
std::optional<LanguageSections> ParseLanguage(QByteArrayView content);

/// Content of a file. Nothing if it can't be read, is no ordinary file or is larger than `kLargestLanguageFile`.
std::optional<QByteArray> ReadLanguageContent(const QString& path);

/// Reads and parses a file.
std::optional<LanguageSections> ReadLanguageFile(const QString& path);

/// Name of the language from the first line "lang=..."; nothing if the file is no language file or can't be read.
std::optional<QString> LanguageName(const QString& path);

} // namespace korvanel
