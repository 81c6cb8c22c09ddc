// Colours of the curves: a setting of the user, not of the project. A colour is stored when it is set; the defaults
// are never written.
#pragma once

#include "core/Quantities.h"

#include <QString>

#include <array>

namespace korvanel {

class clsGraphColours
{
public:
    /// Sets the defaults. `ReadSettings` puts the user's own over them.
    explicit clsGraphColours(const QString& application);
    /// Reads the stored colours. An entry whose key is no number counts as one of quantity 0; a key beyond 49 throws
    /// std::out_of_range.
    void ReadSettings();

    /// Blue, green, red from the high to the low byte. Throws std::out_of_range for an index outside 0 to 49.
    qint32 colour(int index) const { return colours.at(static_cast<std::size_t>(index)); }
    void SetColour(int index, qint32 colour);

private:
    QString application;
    std::array<qint32, kQuantityCount> colours{};
};

} // namespace korvanel
