#include "language/CodePage.h"

#include <algorithm>
#include <array>

namespace korvanel {

namespace {

/// The characters of 0x80 to 0x9F, where the code page differs from Latin 1. Unused places map to themselves.
constexpr std::array<char16_t, 32> kCp1252{0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                           0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                           0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                           0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
constexpr char16_t kFirst = 0x80;
constexpr char16_t kLatin1Size = 0x100;

bool IsOfTable(char16_t code)
{
    return code >= kFirst && code < kFirst + kCp1252.size();
}

std::optional<char> ByteOf(char16_t code)
{
    const auto place = std::find(kCp1252.begin(), kCp1252.end(), code);
    if (place != kCp1252.end())
        return static_cast<char>(kFirst + (place - kCp1252.begin()));
    return code < kLatin1Size && !IsOfTable(code) ? std::optional(static_cast<char>(code)) : std::nullopt;
}

} // namespace

QString FromCp1252(QByteArrayView bytes)
{
    QString text = QString::fromLatin1(bytes);
    for (QChar& c : text)
        if (IsOfTable(c.unicode()))
            c = kCp1252[c.unicode() - kFirst];
    return text;
}

std::optional<QByteArray> ToCp1252(QStringView text)
{
    QByteArray bytes;
    bytes.reserve(text.size());
    for (const QChar c : text) {
        const std::optional<char> byte = ByteOf(c.unicode());
        if (!byte)
            return std::nullopt;
        bytes += *byte;
    }
    return bytes;
}

bool IsUnusedInCp1252(char byte)
{
    const char16_t code = static_cast<unsigned char>(byte);
    return IsOfTable(code) && kCp1252[code - kFirst] == code;
}

} // namespace korvanel
