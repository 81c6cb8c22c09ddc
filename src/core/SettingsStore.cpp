#include "core/SettingsStore.h"

#include "core/Paths.h"

#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>

namespace korvanel {

namespace {

#ifdef Q_OS_WIN

QSettings OpenStore(const QString& application)
{
    return {QSettings::NativeFormat, QSettings::UserScope, application, application};
}

#else

/// The one file of the user's settings; files of the system are none of this program's.
QString StoreFile(const QString& application)
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + u'/' + application + u'/' +
           application + QStringLiteral(".ini");
}

/// Whether a store can be read: it is not there yet, or an ordinary file of a size that settings have.
bool IsUsableStore(const QString& file)
{
    constexpr qint64 kLargest = 1 << 20;
    const QFileInfo store(file);
    return store.isFile() ? store.size() <= kLargest : !store.exists() && !store.isSymLink();
}

/// A store that can't be read and couldn't be moved away is not touched; what is set lasts until the end then.
QSettings OpenStore(const QString& application)
{
    const QString file = StoreFile(application);
    return {IsUsableStore(file) ? file : QStringLiteral("/nowhere/") + application, QSettings::IniFormat};
}

#endif

bool isAnyValueLost = false;

void Synchronise(QSettings& store)
{
    store.sync();
    isAnyValueLost = isAnyValueLost || store.status() == QSettings::AccessError;
}

} // namespace

std::map<QString, QString> ReadSection(const QString& application, const QString& section)
{
    QSettings store = OpenStore(application);
    store.beginGroup(section);
    std::map<QString, QString> values;
    for (const QString& key : store.childKeys()) {
        const QVariant value = store.value(key);
        // A value with unquoted commas reads as a list; it was one text when it was written by hand. Any other type
        // was never stored by this program.
        if (value.typeId() == QMetaType::QStringList)
            values[key] = value.toStringList().join(u',');
        else if (value.typeId() == QMetaType::QString)
            values[key] = value.toString();
    }
    return values;
}

void StoreValue(const QString& application, const QString& section, const QString& key, const QString& value)
{
    QSettings store = OpenStore(application);
    store.beginGroup(section);
    store.setValue(key, value);
    store.endGroup();
    Synchronise(store);
}

void DeleteSection(const QString& application, const QString& section)
{
    QSettings store = OpenStore(application);
    store.remove(section);
    Synchronise(store);
}

bool IsAnyValueLost()
{
    return isAnyValueLost;
}

#ifndef Q_OS_WIN

namespace {

/// A pipe or a device in place of the store would hold the program up at the first look at it.
std::optional<QString> SetStrangeStoreAside(const QString& application)
{
    const QString file = StoreFile(application);
    if (IsUsableStore(file))
        return std::nullopt;
    const QString copy = file + QStringLiteral(".bak");
    QFile::remove(copy);
    return QFile::rename(file, copy) ? copy : QString();
}

} // namespace

#endif

std::optional<QString> SetDamagedStoreAside(const QString& application)
{
#ifndef Q_OS_WIN
    if (std::optional<QString> aside = SetStrangeStoreAside(application))
        return aside;
#endif
    const QSettings store = OpenStore(application);
    store.allKeys(); // sections are parsed when they are first looked at
    if (store.status() != QSettings::FormatError)
        return std::nullopt;
    const QString copy = store.fileName() + QStringLiteral(".bak");
    return CopyFileReplacing(store.fileName(), copy).isEmpty() ? copy : QString();
}

} // namespace korvanel
