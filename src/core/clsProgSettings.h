// Program settings of the user, independent of any project; which they are says the table in ProgSettings.inc. The
// store is read once, by the constructor; every change goes through to it at once. A value that can't be read as its
// type counts as absent.
#pragma once

#include <QString>
#include <QtGlobal>

#include <cstddef>

namespace korvanel {

class clsProgSettings
{
public:
    /// `programDir` is the base of the default paths.
    explicit clsProgSettings(const QString& programDir);

#define SETTING(type, name, key, standard)                                                                             \
    const type& name() const                                                                                           \
    {                                                                                                                  \
        return values.stored##name;                                                                                    \
    }                                                                                                                  \
    void Set##name(const type& value);
#include "core/ProgSettings.inc"
#undef SETTING

    /// Price of a kilowatt hour drawn (0), of one delivered (1), of a kilovar hour (2); any other index throws
    /// std::out_of_range.
    double EnergyCosts(std::size_t index) const;
    void SetEnergyCosts(std::size_t index, double value);

private:
    struct Values
    {
#define SETTING(type, name, key, standard) type stored##name{};
#include "core/ProgSettings.inc"
#undef SETTING
    };
    Values values;
};

} // namespace korvanel
