// Paths as the program joins, splits and copies them. The separator is a parameter, so that both of its forms can be
// tried on any system; both are understood on input.
#pragma once

#include <QDir>
#include <QString>

#include <functional>

namespace korvanel {

/// `directory` and `name` with exactly one `separator` between them, however many of the two sides bring one.
QString JoinPath(const QString& directory, const QString& name, QChar separator = QDir::separator());

/// The path without one separator at its end, as the root of a drive brings it. The root "/" alone stays.
QString WithoutTrailingSeparator(const QString& path);

/// What stands behind the last separator.
QString FileNameOf(const QString& path);

/// The extension of projects and of motor databases.
inline const QString kProjectExtension = QStringLiteral(".MDB");

/// The path with an added extension (".MDB") unless it ends in it already; upper and lower case count as equal.
QString WithExtension(const QString& path, const QString& extension);

bool HasExtension(const QString& path, const QString& extension);

/// Copies a whole file, replacing a file of the target's name only once the copy is complete.
/// `beforeReplacing` is called in between. Returns an empty text, or the reason of the failure; the target is then as
/// it was.
QString CopyFileReplacing(const QString& source, const QString& target,
                          const std::function<void()>& beforeReplacing = {});

/// Puts a file in the place of another one, in one step. Returns an empty text, or the reason of the failure.
QString ReplaceFile(const QString& file, const QString& target);

} // namespace korvanel
