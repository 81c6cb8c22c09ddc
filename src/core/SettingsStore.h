// The user's key-value store: texts under application, section and key, independent of any project.
#pragma once

#include <QString>

#include <map>
#include <optional>

namespace korvanel {

inline const QString kSettingsApplication = QStringLiteral("KORVANEL");

// The sections of the store. Those but the first have keys by number.
inline const QString kSettingsSection = QStringLiteral("Settings");
inline const QString kPortsSection = QStringLiteral("Ports");               ///< "COMn": a device
inline const QString kGraphColoursSection = QStringLiteral("GraphColours"); ///< a quantity: its colour
inline const QString kRecentSection = QStringLiteral("MRU");                ///< a place: a recent file; and "Max"

/// All keys of a section with their values; empty if the section is missing or can't be read.
std::map<QString, QString> ReadSection(const QString& application, const QString& section);

/// Stores one value at once.
void StoreValue(const QString& application, const QString& section, const QString& key, const QString& value);

void DeleteSection(const QString& application, const QString& section);

/// True if a value could not be stored since the start, as on a full disk or without the right to write.
bool IsAnyValueLost();

/// Looks at the store before its first use. A damaged one is copied aside, since the next write would replace it.
/// Returns the path of the copy, empty if it could not be made; nothing if the store is sound or new.
std::optional<QString> SetDamagedStoreAside(const QString& application);

} // namespace korvanel
