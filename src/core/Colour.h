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

} // namespace korvanel
