#include "core/clsGraphColours.h"

#include "core/NumberText.h"
#include "core/QuantityTable.h"
#include "core/SettingsStore.h"

#include <stdexcept>

namespace korvanel {

clsGraphColours::clsGraphColours(const QString& settingsKey) : application(settingsKey)
{
    for (std::size_t i = 0; i < colours.size(); ++i)
        colours[i] = kQuantityTable[i].colour;
}

void clsGraphColours::ReadSettings()
{
    for (const auto& [key, value] : ReadSection(application, kGraphColoursSection)) {
        const double index = LeadingNumber(key);
        if (!IsBetween(index, 0, kQuantityCount - 1))
            throw std::out_of_range("GraphColours: " + key.toStdString());
        bool isNumber = false;
        const qint32 colour = value.toInt(&isNumber);
        if (isNumber) // else the default stands
            colours.at(static_cast<std::size_t>(index)) = colour;
    }
}

void clsGraphColours::SetColour(int index, qint32 colour)
{
    colours.at(static_cast<std::size_t>(index)) = colour;
    StoreValue(application, kGraphColoursSection, QString::number(index), QString::number(colour));
}

} // namespace korvanel
