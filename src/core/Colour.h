// Colours as the program keeps them, in settings and tables: one number, blue, green, red from the high to the low
// byte.
#pragma once

#include <QColor>
#include <QtGlobal>

namespace korvanel {

inline QColor ColourOf(qint32 number)
{
    return {number & 0xFF, number >> 8 & 0xFF, number >> 16 & 0xFF};
}

/// The way back; transparency is lost.
inline qint32 ColourNumber(const QColor& colour)
{
    return colour.red() | colour.green() << 8 | colour.blue() << 16;
}

} // namespace korvanel
