#include "core/window/MainMenu.h"

#include "core/Common.h"
#include "core/Messages.h"
#include "core/Texts.h"
#include "core/texts/MainTexts.h"
#include "core/window/ActionName.h"

#include <QAction>
#include <QApplication>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>

#include <algorithm>
#include <array>
#include <optional>

namespace korvanel {

namespace {

struct MenuEntry
{
    const char* parent; ///< object name of the menu above; none for the menu bar
    const char* name;
    TextRef caption;
    bool isMenu = false;
    QKeySequence::StandardKey shortcut = QKeySequence::UnknownKey;
    bool hasSeparator = false; ///< a line stands above the entry
    /// What the typed input of the page is taken for before the entry does its work; nothing for an entry that is no
    /// concern of the page.
    std::optional<InputUse> input = InputUse::Leaving;
};

constexpr const char* kRecentFiles = "mnuFileMRU";

constexpr MenuEntry kEntries[] = {
    {.parent = nullptr, .name = "mnuFile", .caption = &texts::mnuFile, .isMenu = true},
    {.parent = "mnuFile", .name = "mnuNew", .caption = &texts::mnuNew, .shortcut = QKeySequence::New},
    {.parent = "mnuFile", .name = "mnuOpen", .caption = &texts::mnuOpen, .shortcut = QKeySequence::Open},
    {.parent = "mnuFile",
     .name = "mnuSave",
     .caption = &texts::mnuSave,
     .shortcut = QKeySequence::Save,
     .input = InputUse::Saving},
    {.parent = "mnuFile", .name = "mnuSaveAs", .caption = &texts::mnuSaveAs, .input = InputUse::Saving},
    {.parent = "mnuFile", .name = "mnuClose", .caption = &texts::mnuClose, .shortcut = QKeySequence::Close},
    {.parent = "mnuFile",
     .name = "mnuPrint",
     .caption = &texts::mnuPrint,
     .shortcut = QKeySequence::Print,
     .hasSeparator = true},
    {.parent = "mnuFile", .name = "mnuDelete", .caption = &texts::mnuDelete},
    {.parent = "mnuFile", .name = kRecentFiles, .caption = nullptr},
    {.parent = "mnuFile",
     .name = "mnuEnd",
     .caption = &texts::mnuEnd,
     .shortcut = QKeySequence::Quit,
     .hasSeparator = true},
    {.parent = nullptr, .name = "mnuProjectData", .caption = &texts::mnuProjectData, .isMenu = true},
    {.parent = "mnuProjectData", .name = "mnuGeneralData", .caption = &texts::mnuGeneralData},
    {.parent = "mnuProjectData", .name = "mnuConfiguration", .caption = &texts::mnuConfiguration},
    {.parent = nullptr, .name = "mnuEngine", .caption = &texts::mnuEngine, .isMenu = true},
    {.parent = "mnuEngine", .name = "mnuDatabase", .caption = &texts::mnuDatabase},
    {.parent = nullptr, .name = "mnuDevice", .caption = &texts::mnuDevice, .isMenu = true},
    {.parent = "mnuDevice", .name = "mnuDeviceConf", .caption = &texts::mnuDeviceConf},
    {.parent = "mnuDevice", .name = "mnuOnlineDevice", .caption = &texts::mnuOnlineDevice},
    {.parent = "mnuDevice", .name = "mnuOfflineDevice", .caption = &texts::mnuOfflineDevice},
    {.parent = "mnuDevice", .name = "mnuResTable", .caption = &texts::mnuResTable},
    {.parent = "mnuDevice", .name = "mnuResGraph", .caption = &texts::mnuResGraph},
    {.parent = "mnuDevice", .name = "mnuResPrint", .caption = &texts::mnuResPrint},
    {.parent = nullptr, .name = "mnuoptions", .caption = &texts::mnuoptions, .isMenu = true},
    {.parent = "mnuoptions", .name = "mnuModbus", .caption = &texts::mnuModbus, .input = InputUse::Saving},
    {.parent = "mnuoptions", .name = "mnuDatabaseOpt", .caption = &texts::mnuDatabaseOpt},
    {.parent = "mnuoptions", .name = "mnuConvert", .caption = &texts::mnuConvert},
    {.parent = "mnuoptions", .name = "mnuLang", .caption = &texts::mnuLang, .isMenu = true},
    {.parent = nullptr, .name = "mnuHelp", .caption = &texts::mnuHelp, .isMenu = true},
    {.parent = "mnuHelp",
     .name = "mnuBook",
     .caption = &texts::mnuBook,
     .shortcut = QKeySequence::HelpContents,
     .input = std::nullopt},
    {.parent = "mnuHelp", .name = "mnuInternet", .caption = &texts::mnuInternet, .input = std::nullopt},
    {.parent = "mnuHelp", .name = "mnuInfo", .caption = &texts::mnuInfo, .input = std::nullopt},
};

/// Entries that need an open project. `mnuEngine` needs a net configuration with a machine besides.
constexpr std::array kProjectEntries{"mnuSave", "mnuSaveAs", "mnuClose", "mnuPrint", "mnuProjectData", "mnuDevice"};

/// Menus that a run or a long calculation locks.
constexpr std::array kBusyMenus{"mnuFile", "mnuEngine", "mnuProjectData", "mnuDevice", "mnuHelp", "mnuoptions"};

/// What the entry of a name needs of the typed input; the recent files and the languages leave the page.
std::optional<InputUse> InputUseOf(const QString& name)
{
    const auto* entry = std::find_if(std::begin(kEntries), std::end(kEntries),
                                     [&](const MenuEntry& line) { return name == QLatin1String(line.name); });
    return entry == std::end(kEntries) ? InputUse::Leaving : entry->input;
}

/// A file name may hold an ampersand, which in a caption marks the key of the entry.
QString EscapedCaption(const QString& caption)
{
    return QString(caption).replace(u'&', QStringLiteral("&&"));
}

/// False if one of the menus above the entry is locked; the entry itself keeps its own state then.
bool AreMenusEnabled(const QAction& entry)
{
    for (const QObject* owner : entry.associatedObjects()) {
        const auto* menu = qobject_cast<const QMenu*>(owner);
        if (menu && menu->menuAction() != &entry)
            return menu->menuAction()->isEnabled() && AreMenusEnabled(*menu->menuAction());
    }
    return true;
}

} // namespace

MainMenu::MainMenu(QMainWindow& window) : QObject(&window)
{
    for (const MenuEntry& line : kEntries) {
        const QString name = QLatin1String(line.name);
        if (line.isMenu) {
            auto* menu = new QMenu(TextOf(line.caption), &window);
            menu->setObjectName(name);
            menu->menuAction()->setObjectName(name);
            if (line.parent)
                SubMenu(QLatin1String(line.parent))->addMenu(menu);
            else
                window.menuBar()->addMenu(menu);
            menus[name] = menu;
            entries[name] = menu->menuAction();
            continue;
        }
        QMenu& parent = *SubMenu(QLatin1String(line.parent));
        if (line.hasSeparator)
            parent.addSeparator()->setObjectName(name + QStringLiteral("_separator"));
        if (line.caption) {
            AddEntry(parent, name, TextOf(line.caption));
            Entry(name)->setShortcuts(line.shortcut);
        } else { // where the recent files go
            QAction* separator = parent.addSeparator();
            separator->setObjectName(name + QStringLiteral("_0"));
            recent.push_back(separator);
        }
    }
    Entry(QStringLiteral("mnuInternet"))->setVisible(false); // there is no address yet
    EnableProjectEntries(false);
}

void MainMenu::ApplyTexts()
{
    for (const MenuEntry& line : kEntries)
        if (line.caption)
            Entry(QLatin1String(line.name))->setText(TextOf(line.caption));
}

void MainMenu::AddEntry(QMenu& parent, const QString& name, const QString& caption)
{
    QAction* entry = parent.addAction(caption);
    entry->setObjectName(name);
    entries[name] = entry;
}

QAction* MainMenu::Entry(const QString& name) const
{
    return entries.at(name);
}
QMenu* MainMenu::SubMenu(const QString& name) const
{
    return menus.at(name);
}

void MainMenu::OnTriggered(const QString& name, const std::function<void()>& action)
{
    connect(Entry(name), &QAction::triggered, this, [this, name, action] { Run(*Entry(name), action); });
}

void MainMenu::Run(QAction& entry, const std::function<void()>& action)
{
    if (QApplication::activeModalWidget() || !AreMenusEnabled(entry))
        return;
    RunGuarded(ActionName(&entry), [&] {
        const std::optional<InputUse> use = InputUseOf(entry.objectName());
        if (!use || takeInput(*use))
            action();
    });
}

void MainMenu::EnableProjectEntries(bool isProjectOpen)
{
    for (const char* name : kProjectEntries)
        Entry(QLatin1String(name))->setEnabled(isProjectOpen);
    Entry(QStringLiteral("mnuConvert"))->setEnabled(!isProjectOpen);
    EnableMachine(isProjectOpen && HasMachine(App().iNetConfIndex));
}

void MainMenu::EnableMachine(bool isEnabled)
{
    Entry(QStringLiteral("mnuEngine"))->setEnabled(isEnabled);
}

void MainMenu::SetBusy(bool areEnabled)
{
    busyDepth = std::max(0, busyDepth + (areEnabled ? -1 : 1));
    if (!areEnabled && savedStates.empty()) {
        for (const char* name : kBusyMenus) {
            savedStates[QLatin1String(name)] = Entry(QLatin1String(name))->isEnabled();
            Entry(QLatin1String(name))->setEnabled(false);
        }
    } else if (busyDepth == 0) {
        for (const auto& [name, wasEnabled] : savedStates)
            Entry(name)->setEnabled(wasEnabled);
        savedStates.clear();
    }
}

void MainMenu::SetLanguages(const QStringList& names, const QStringList& files, const QString& used,
                            const std::function<void(const QString&)>& choose)
{
    QMenu& languages = *SubMenu(QStringLiteral("mnuLang"));
    for (qsizetype i = 0; i < names.size(); ++i) {
        const QString name = QStringLiteral("mnuLaname_%1").arg(i);
        AddEntry(languages, name, EscapedCaption(names[i]));
        QAction* entry = Entry(name);
        const bool isUsed = files[i] == used;
        entry->setCheckable(true);
        entry->setChecked(isUsed);
        const QString& file = files[i];
        connect(entry, &QAction::triggered, this, [this, entry, file, isUsed, choose] {
            entry->setChecked(isUsed); // the mark follows the language, not the click
            if (!isUsed)
                Run(*entry, [&] { choose(file); });
        });
    }
}

void MainMenu::SetCaption(int index, const QString& caption)
{
    if (index == 0) // a line
        return;
    recent.at(static_cast<std::size_t>(index))->setText(EscapedCaption(caption));
    recent.at(static_cast<std::size_t>(index))->setData(caption);
}

void MainMenu::SetVisible(int index, bool isVisible)
{
    recent.at(static_cast<std::size_t>(index))->setVisible(isVisible);
}

void MainMenu::Load(int index)
{
    if (index <= UpperBound())
        return;
    QMenu& file = *SubMenu(QStringLiteral("mnuFile"));
    auto* entry = new QAction(&file);
    entry->setObjectName(QStringLiteral("%1_%2").arg(QLatin1String(kRecentFiles)).arg(index));
    const QList<QAction*> all = file.actions();
    file.insertAction(all.at(all.indexOf(Entry(QStringLiteral("mnuEnd"))) - 1), entry); // above the line before End
    connect(entry, &QAction::triggered, this, [this, entry] {
        const QString path = entry->data().toString(); // the entry may be gone before the path has been used
        Run(*entry, [&] { openRecent(path); });
    });
    recent.push_back(entry);
}

void MainMenu::Unload(int index)
{
    QAction* entry = recent.at(static_cast<std::size_t>(index));
    recent.erase(recent.begin() + index);
    entry->setVisible(false);
    entry->deleteLater(); // it may be the one whose click is being answered
}

} // namespace korvanel
