// The frame of the program: menu, status bar and the one page on show. It is the shell through which modules reach the
// user, and it keeps the flow from page to page.
#pragma once

#include "core/Shell.h"
#include "core/window/InputUse.h"
#include "core/window/PageFrame.h"
#include "core/window/clsMRUMenu.h"

#include <QMainWindow>
#include <QPointer>

#include <functional>
#include <map>
#include <memory>

class QDialog;
class QMdiArea;
class QMdiSubWindow;

namespace korvanel {

class MainMenu;
class Page;
class StatusPanels;
struct PageEntry;

/// Makes a page when it is shown.
using PageBuilder = std::function<Page*(PageFrame&, const PageEntry&)>;
template <typename Form>
Page* BuildPage(PageFrame& frame, const PageEntry& entry)
{
    return new Form(frame, entry);
}

/// Makes a dialog when it is shown.
using DialogBuilder = std::function<std::unique_ptr<QDialog>(QWidget* parent)>;
template <typename Form>
std::unique_ptr<QDialog> BuildDialog(QWidget* parent)
{
    return std::make_unique<Form>(parent);
}

class MainWindow : public QMainWindow, public Shell, public PageFrame
{
    Q_OBJECT

public:
    MainWindow();
    ~MainWindow() override;

    /// The builder of a page; the composition root registers one for each number.
    void RegisterPage(int number, PageBuilder builder);
    /// The builder of a dialog that other rooms than its own open.
    void RegisterDialog(int number, DialogBuilder builder);

    /// Puts title and version on the window and its first panel, and the texts of the table on the menu.
    void ApplyMainTexts();

    /// Tells whether the current page may be shown; without a valid machine it shows the machine page instead.
    bool CheckPageAllowed();
    /// Ends what the page keeps running and forgets it as the current one.
    void LeavePage();
    Page* PageOnShow() const { return page; }
    MainMenu& Menu() { return *menu; }

    /// The menu's End: closes unless the user cancels.
    void EndProgram();
    /// Starts the program anew in another language, if the user agrees.
    void ChooseLanguage(const QString& languageFile);

    // PageFrame
    void UnloadAndOpen(int page) override;
    void SetPageButtons(bool areEnabled) override;
    void ShowDatabase(const QString& name) override;

    // Shell
    Answer ShowBox(const Box& box) override;
    QString AskOpenPath(const FileQuestion& question) override;
    std::optional<QString> AskSavePath(const FileQuestion& question) override;
    void SetWaitCursor(bool isWaiting) override;
    void Beep() override;
    void ShowProgress(Progress mode, double fraction) override;
    void SetBusyMenus(bool areEnabled) override;
    void EnableProjectMenus(bool isProjectOpen) override;
    void EnableMachineMenu(bool isEnabled) override;
    void UnloadPage() override;
    void ShowPage() override;
    void RefreshPage() override;
    void RefreshStatusBar() override;
    void RefreshCaption() override;
    void AddFileMRU(const QString& path) override;
    void SelectRecentFile(const QString& path) override;
    bool ShowDialog(int number) override;
    QStringList PrinterNames() override;
    QString DefaultPrinterName() override;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void PlacePage(QMdiSubWindow& frame);
    /// Has the page on show take what has been typed; false if it asks for a look at a field first.
    bool TakeInput(InputUse use);

    std::unique_ptr<MainMenu> menu;
    clsMRUMenu recentFiles;
    std::map<int, PageBuilder> builders;
    std::map<int, DialogBuilder> dialogBuilders;
    QMdiArea* area;
    StatusPanels* panels;
    bool isProgressShown = false;
    QPointer<Page> page;
    quint64 pagesShown = 0; ///< since the start: tells one page from the next
    QPointer<QMdiSubWindow> pageFrame;
};

} // namespace korvanel
