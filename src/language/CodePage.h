// The ANSI code page 1252, in which language files are written.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringView>

#include <optional>

namespace korvanel {

/// Bytes of the code page 1252 as text. The five bytes without a character map to the control characters of the same
/// number.
QString FromCp1252(QByteArrayView bytes);

/// Text in the code page 1252; nothing if a character isn't in it.
std::optional<QByteArray> ToCp1252(QStringView text);

/// True for a byte that has no character in the code page.
bool IsUnusedInCp1252(char byte);

} // namespace korvanel
