#include "core/clsProgSettings.h"

#include "core/NumberText.h"
#include "core/Paths.h"
#include "core/SettingsStore.h"

#include <array>
#include <cmath>
#include <limits>
#include <map>
#include <type_traits>

namespace korvanel {

namespace {

using Section = std::map<QString, QString>;

void Read(const Section& section, const QString& key, QString& value)
{
    if (const auto entry = section.find(key); entry != section.end())
        value = entry->second;
}

void Read(const Section& section, const QString& key, double& value)
{
    const auto entry = section.find(key);
    if (entry == section.end())
        return;
    bool isNumber = false;
    const double number = entry->second.toDouble(&isNumber); // takes the point alone, and no separators of thousands
    if (isNumber && std::isfinite(number))
        value = number;
}

template <typename Whole>
requires std::is_integral_v<Whole>
void Read(const Section& section, const QString& key, Whole& value)
{
    double number = value;
    Read(section, key, number);
    number = std::nearbyint(number); // half to even
    if (number >= std::numeric_limits<Whole>::min() && number <= std::numeric_limits<Whole>::max())
        value = static_cast<Whole>(number);
}

void Store(const QString& key, const QString& value)
{
    StoreValue(kSettingsApplication, kSettingsSection, key, value);
}

void Store(const QString& key, double value)
{
    Store(key, QString::number(value, 'g', QLocale::FloatingPointShortest));
}

} // namespace

clsProgSettings::clsProgSettings(const QString& programDir)
{
#define SETTING(type, name, key, standard) values.stored##name = standard;
#include "core/ProgSettings.inc"
#undef SETTING
    const Section section = ReadSection(kSettingsApplication, kSettingsSection);
#define SETTING(type, name, key, standard) Read(section, QStringLiteral(key), values.stored##name);
#include "core/ProgSettings.inc"
#undef SETTING
}

#define SETTING(type, name, key, standard)                                                                             \
    void clsProgSettings::Set##name(const type& value)                                                                 \
    {                                                                                                                  \
        Store(QStringLiteral(key), values.stored##name = value);                                                       \
    }
#include "core/ProgSettings.inc"
#undef SETTING

namespace {

using Settings = clsProgSettings;

struct Price
{
    const double& (Settings::*get)() const;
    void (Settings::*set)(const double& value);
};
constexpr std::array<Price, 3> kPrices{{
    {&Settings::DrawnEnergyCosts, &Settings::SetDrawnEnergyCosts},
    {&Settings::DeliveredEnergyCosts, &Settings::SetDeliveredEnergyCosts},
    {&Settings::ReactiveEnergyCosts, &Settings::SetReactiveEnergyCosts},
}};

} // namespace

double clsProgSettings::EnergyCosts(std::size_t index) const
{
    return (this->*kPrices.at(index).get)();
}

void clsProgSettings::SetEnergyCosts(std::size_t index, double value)
{
    (this->*kPrices.at(index).set)(value);
}

} // namespace korvanel
