// The fixed table of the quantities: symbol, unit and default colour of the curve.
#pragma once

#include "core/Quantities.h"

#include <QtGlobal>

#include <array>

namespace korvanel {

struct QuantityEntry
{
    const char* symbol;
    const char* unit;
    qint32 colour; ///< blue, green, red from the high to the low byte; 0 black where no colour was chosen
};

inline constexpr std::array<QuantityEntry, kQuantityCount> kQuantityTable{{
    {"U", "V", 0x00FF00},
    {"I", "A", 0x0000FF},
    {"f", "Hz", 0xFF0000},
    {"Pel", "W", 0x00FFFF},
    {"S", "VA", 0xFF00FF},
    {"Q", "var", 0xFFFF00},
    {"cosphi", "", 0x000000},
    {"n", "rpm", 0x00C000},
    {"M", "Nm", 0xC0C000},
    {"Pmech", "W", 0x0080FF},
    {"eta", "", 0x808080},
    {"Phi", "°", 0xC0C0FF},
    {"Wp", "Wh", 0x8080FF},
    {"Wq", "varh", 0x0000C0},
    {"Wp+", "Wh", 0},
    {"Wp-", "Wh", 0},
    {"U 1", "V", 0x00FF00},
    {"U 2", "V", 0x00FF00},
    {"U 3", "V", 0x00FF00},
    {"I 1", "A", 0x0000FF},
    {"I 2", "A", 0x0000FF},
    {"I 3", "A", 0x0000FF},
    {"P 1", "W", 0x00FFFF},
    {"P 2", "W", 0x00FFFF},
    {"P 3", "W", 0x00FFFF},
    {"Q 1", "var", 0xFFFF00},
    {"Q 2", "var", 0xFFFF00},
    {"Q 3", "var", 0xFFFF00},
    {"S 1", "VA", 0xFF00FF},
    {"S 2", "VA", 0xFF00FF},
    {"S 3", "VA", 0xFF00FF},
    {"Phi 1", "°", 0xC0C0FF},
    {"Phi 2", "°", 0xC0C0FF},
    {"Phi 3", "°", 0xC0C0FF},
    {"cosphi 1", "", 0x000000},
    {"cosphi 2", "", 0x000000},
    {"cosphi 3", "", 0x000000},
    {"In", "A", 0x0000CD},
    {"Wp abs", "Wh", 0},
    {"Wp+ abs", "Wh", 0},
    {"Wp- abs", "Wh", 0},
    {"Wq abs", "varh", 0},
    {"Wq+ abs", "varh", 0},
    {"Wq- abs", "varh", 0},
    {"Wp rel", "Wh", 0},
    {"Wp+ rel", "Wh", 0x8080FF},
    {"Wp- rel", "Wh", 0x8080FF},
    {"Wq rel", "varh", 0},
    {"Wq+ rel", "varh", 0x0000C0},
    {"Wq- rel", "varh", 0x0000C0},
}};

} // namespace korvanel
