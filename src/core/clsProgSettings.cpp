#include "core/clsProgSettings.h"

#include "core/NumberText.h"
#include "core/Paths.h"
#include "core/SettingsStore.h"

#include <cmath>
#include <limits>
#include <map>

namespace korvanel {

namespace {

const QString kSection = QStringLiteral("Settings");
const QString kLanguage = QStringLiteral("LangFile");
const QString kExport = QStringLiteral("Export");
const QString kMotorDatabase = QStringLiteral("Mdb");
const QString kWindowSize = QStringLiteral("TWin0");
const QString kWindowFactor = QStringLiteral("TWin1");
const QString kWindowSelection = QStringLiteral("TWin2");
const QString kCycles = QStringLiteral("Cycles");
const QString kCurrency = QStringLiteral("Currency");

QString EnergyCostsKey(std::size_t index)
{
    return QStringLiteral("ECosts%1").arg(index);
}

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
void ReadWhole(const Section& section, const QString& key, Whole& value)
{
    double number = value;
    Read(section, key, number);
    number = std::nearbyint(number); // half to even
    if (number >= std::numeric_limits<Whole>::min() && number <= std::numeric_limits<Whole>::max())
        value = static_cast<Whole>(number);
}

void Store(const QString& key, const QString& value)
{
    StoreValue(kSettingsApplication, kSection, key, value);
}

void Store(const QString& key, double value)
{
    Store(key, QString::number(value, 'g', QLocale::FloatingPointShortest));
}

} // namespace

clsProgSettings::clsProgSettings(const QString& programDir)
    : exportPath(JoinPath(JoinPath(programDir, QStringLiteral("PROJECTS")), QString())),
      motorDatabase(JoinPath(JoinPath(programDir, QStringLiteral("MOTORDATABASE")), QStringLiteral("MOTOR_DB.MDB")))
{
    const Section section = ReadSection(kSettingsApplication, kSection);
    Read(section, kLanguage, languageFile);
    Read(section, kExport, exportPath);
    Read(section, kMotorDatabase, motorDatabase);
    Read(section, kWindowSize, windowSize);
    Read(section, kWindowFactor, windowFactor);
    ReadWhole(section, kWindowSelection, windowSelection);
    ReadWhole(section, kCycles, cycles);
    Read(section, kCurrency, currency);
    for (std::size_t i = 0; i < energyCosts.size(); ++i)
        Read(section, EnergyCostsKey(i), energyCosts[i]);
}

void clsProgSettings::SetLanguageFile(const QString& value)
{
    Store(kLanguage, languageFile = value);
}
void clsProgSettings::SetExportPath(const QString& value)
{
    Store(kExport, exportPath = value);
}
void clsProgSettings::SetMotorDatabase(const QString& value)
{
    Store(kMotorDatabase, motorDatabase = value);
}
void clsProgSettings::SetTWindowSize(double value)
{
    Store(kWindowSize, windowSize = value);
}
void clsProgSettings::SetTWindowFactor(double value)
{
    Store(kWindowFactor, windowFactor = value);
}
void clsProgSettings::SetTWindowSelection(qint16 value)
{
    Store(kWindowSelection, windowSelection = value);
}
void clsProgSettings::SetCycles(qint32 value)
{
    Store(kCycles, cycles = value);
}
void clsProgSettings::SetUsedCurrency(const QString& value)
{
    Store(kCurrency, currency = value);
}

void clsProgSettings::SetEnergyCosts(std::size_t index, double value)
{
    Store(EnergyCostsKey(index), energyCosts.at(index) = value);
}

} // namespace korvanel
