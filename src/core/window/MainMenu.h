// The menu of the main window: one table of entries, their enabling with and without a project, their saving while the
// program is busy, and the recent files.
#pragma once

#include "core/window/InputUse.h"
#include "core/window/clsMRUMenu.h"

#include <QObject>

#include <functional>
#include <map>

class QAction;
class QMainWindow;
class QMenu;

namespace korvanel {

class MainMenu : public QObject, public MenuArray
{
    Q_OBJECT

public:
    explicit MainMenu(QMainWindow& window);

    /// Puts the texts of the table on all entries.
    void ApplyTexts();
    /// An entry or a submenu by its name; never null for a name of the table.
    QAction* Entry(const QString& name) const;
    QMenu* SubMenu(const QString& name) const;
    /// What an entry does; its failure ends in the general error report.
    void OnTriggered(const QString& name, const std::function<void()>& action);
    /// Called before an entry does its work, unless the entry is no concern of the page; false drops the entry.
    void BeforeEntry(const std::function<bool(InputUse)>& routine) { takeInput = routine; }
    void OnRecentFile(const std::function<void(const QString&)>& action) { openRecent = action; }

    void EnableProjectEntries(bool isProjectOpen);
    void EnableMachine(bool isEnabled);
    /// false saves the state of the top menus and disables them, true gives it back. Calls nest.
    void SetBusy(bool areEnabled);
    /// Entries of the language menu; the one in use is checked.
    void SetLanguages(const QStringList& names, const QStringList& files, const QString& used,
                      const std::function<void(const QString&)>& choose);

    // MenuArray: the recent files.
    void SetCaption(int index, const QString& caption) override;
    void SetVisible(int index, bool isVisible) override;
    void Load(int index) override;
    void Unload(int index) override;
    int UpperBound() const override { return static_cast<int>(recent.size()) - 1; }

private:
    /// Runs what an entry does: not while a modal window is on show or its menu is locked, and with its failure
    /// reported.
    void Run(QAction& entry, const std::function<void()>& action);
    void AddEntry(QMenu& parent, const QString& name, const QString& caption);

    std::map<QString, QAction*> entries;
    std::map<QString, QMenu*> menus;
    std::vector<QAction*> recent;
    std::map<QString, bool> savedStates;
    int busyDepth = 0;
    std::function<void(const QString&)> openRecent;
    std::function<bool(InputUse)> takeInput = [](InputUse) { return true; };
};

} // namespace korvanel
