// A language file: numbered texts in sections, one record a line, in the ANSI code page 1252.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <map>
#include <optional>

namespace korvanel {

/// Texts of each section by its name; entry n stands at position n - 1.
using LanguageSections = std::map<QString, QStringList>;

/// Bytes of the code page 1252 as text.
QString FromCp1252(const QByteArray& bytes);

/// Name of the language from the first line "lang=..."; nothing if the file is no language file or can't be read.
std::optional<QString> LanguageName(const QString& path);

/// Largest file in bytes that is read; the texts of the program are a hundredth of it.
inline constexpr qint64 kLargestLanguageFile = 1 << 20;

/// Reads the sections of a file. Nothing if it can't be read, is larger than `kLargestLanguageFile` or doesn't follow
/// the format: a section without its size, an entry out of sequence, the end of the file within a section.
std::optional<LanguageSections> ReadLanguageFile(const QString& path);

} // namespace korvanel
