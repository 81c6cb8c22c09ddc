#include "core/window/MainWindow.h"

#include "core/Common.h"
#include "core/Hooks.h"
#include "core/Messages.h"
#include "core/SettingsStore.h"
#include "core/clsProgSettings.h"
#include "core/clsWaitCursor.h"
#include "core/texts/DefaultTexts.h"
#include "core/window/ActionName.h"
#include "core/window/Dialogs.h"
#include "core/window/MainMenu.h"
#include "core/window/Page.h"
#include "core/window/PageTable.h"
#include "core/window/StatusPanels.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDialog>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPrinterInfo>
#include <QProcess>
#include <QPushButton>

#include <algorithm>
#include <stdexcept>
#include <string>

namespace korvanel {

MainWindow::MainWindow() : menu(std::make_unique<MainMenu>(*this)), area(new QMdiArea(this)), panels(new StatusPanels)
{
    setObjectName(QStringLiteral("MainForm"));
    area->setObjectName(QStringLiteral("mdiFrame"));
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    area->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setCentralWidget(area);
    setStatusBar(panels);
    resize(kPageWidth + 200, kPageHeight + 160);
    recentFiles.Init(*menu, kSettingsApplication, kRecentSection);
    menu->BeforeEntry([this](InputUse use) { return TakeInput(use); });
}

MainWindow::~MainWindow() = default;

void MainWindow::ApplyMainTexts()
{
    setWindowTitle(App().sProgramTitle);
    panels->ShowProgram();
    menu->ApplyTexts();
}

void MainWindow::RegisterPage(int number, PageBuilder builder)
{
    builders[number] = std::move(builder);
}

void MainWindow::RegisterDialog(int number, DialogBuilder builder)
{
    dialogBuilders[number] = std::move(builder);
}

// The flow of pages.

void MainWindow::UnloadAndOpen(int number)
{
    UnloadPage();
    App().iCurrentPage = static_cast<qint16>(number);
    ShowPage();
}

void MainWindow::UnloadPage()
{
    if (!page)
        return;
    App().lPageLeft = pageFrame->x();
    App().lPageTop = pageFrame->y();
    const quint64 shown = pagesShown;
    CallHook(Hook::SaveIfDirty);
    if (!page || pagesShown != shown) // the save may have told a failure, and much can happen while a box is on show
        return;
    LeavePage();
    // The page may be the one whose button is being answered, so it goes when the event is over.
    Page* const left = page;
    page = nullptr;
    pageFrame->hide();
    area->removeSubWindow(pageFrame);
    left->hide();
    pageFrame->deleteLater();
    left->deleteLater();
}

void MainWindow::LeavePage()
{
    if (page)
        page->Leave();
    App().iCurrentPage = kNoPageOnShow;
}

bool MainWindow::CheckPageAllowed()
{
    const PageEntry* entry = FindPage(App().iCurrentPage);
    if (!entry)
        return true;
    if (entry->number == kPageMachine)
        return CallHook(Hook::AllowMachinePage);
    if (MayShowWithoutMachine(*entry, App().iNetConfIndex, App().bModelValid))
        return true;
    ShowError(texts::noMachineChosen);
    App().iCurrentPage = kPageMachine;
    ShowPage();
    return true;
}

void MainWindow::ShowPage()
{
    clsWaitCursor cursor;
    cursor.Show();
    const int wanted = App().iCurrentPage;
    const bool isAllowed = CheckPageAllowed();
    const PageEntry* entry = FindPage(App().iCurrentPage);
    const bool isShownAlready = wanted != App().iCurrentPage;
    if (isShownAlready)
        return;
    if (!isAllowed || !entry) {
        App().iCurrentPage = kNoPageOnShow;
        return;
    }
    UnloadPage(); // at most one page is on show, however this was reached
    App().iCurrentPage = static_cast<qint16>(entry->number);
    page = builders.at(entry->number)(*this, *entry);
    ++pagesShown;
    page->AddBottomRow();
    pageFrame = area->addSubWindow(page, Qt::SubWindow | Qt::CustomizeWindowHint | Qt::WindowTitleHint);
    PlacePage(*pageFrame);
    page->Refresh();
    page->show();
    pageFrame->show();
    pageFrame->setFixedSize(pageFrame->sizeHint());
}

void MainWindow::PlacePage(QMdiSubWindow& frame)
{
    const QSize room = area->viewport()->size() - frame.sizeHint();
    const auto placed = [](std::optional<qint32> stored, int span) {
        return std::clamp(stored.value_or(span / 2), 0, std::max(0, span));
    };
    frame.move(placed(App().lPageLeft, room.width()), placed(App().lPageTop, room.height()));
}

bool MainWindow::TakeInput(InputUse use)
{
    return !page || page->TakeInput(use);
}

void MainWindow::RefreshPage()
{
    if (page)
        page->Refresh();
}

void MainWindow::SetPageButtons(bool areEnabled)
{
    if (!page)
        return;
    page->findChild<QPushButton*>(QStringLiteral("cmdBack"))->setEnabled(areEnabled);
    page->findChild<QPushButton*>(QStringLiteral("cmdForw"))
        ->setEnabled(areEnabled && page->Entry().forward != kNoPageOnShow);
}

void MainWindow::ShowDatabase(const QString& name)
{
    panels->ShowDatabase(name);
}

void MainWindow::RefreshStatusBar()
{
    panels->ShowFile();
    RefreshCaption();
}

void MainWindow::RefreshCaption()
{
    // "[*]" in a title is the toolkit's mark of a change; doubled it is shown as it stands.
    const QString name = QString(App().sProjectName).replace(QStringLiteral("[*]"), QStringLiteral("[*][*]"));
    setWindowTitle(QStringLiteral("KORVANEL [ ") + name + QStringLiteral(" ]"));
}

// The shell.

Answer MainWindow::ShowBox(const Box& box)
{
    return RunBox(this, box);
}
QString MainWindow::AskOpenPath(const FileQuestion& question)
{
    return RunOpenDialog(this, question);
}
std::optional<QString> MainWindow::AskSavePath(const FileQuestion& question)
{
    return RunSaveDialog(this, question);
}

bool MainWindow::ShowDialog(int number)
{
    const auto builder = dialogBuilders.find(number);
    if (builder == dialogBuilders.end())
        throw std::out_of_range("no dialog " + std::to_string(number));
    return builder->second(this)->exec() == QDialog::Accepted;
}

void MainWindow::SetWaitCursor(bool isWaiting)
{
    if (isWaiting)
        QApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QApplication::restoreOverrideCursor();
}

void MainWindow::Beep()
{
    QApplication::beep();
}

void MainWindow::ShowProgress(Progress mode, double fraction)
{
    // What was begun goes on and ends, however many sets are left by then.
    if (!isProgressShown && (mode != Progress::Begin || App().iSetCount <= App().iProgressThreshold()))
        return;
    switch (mode) {
    case Progress::Begin:
        isProgressShown = true;
        panels->BeginProgress();
        SetBusyMenus(false);
        break;
    case Progress::Advance:
        if (panels->Advance(fraction))
            QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        break;
    case Progress::End:
        isProgressShown = false;
        panels->EndProgress();
        SetBusyMenus(true);
        RefreshPage();
        break;
    }
}

void MainWindow::SetBusyMenus(bool areEnabled)
{
    menu->SetBusy(areEnabled);
}
void MainWindow::EnableProjectMenus(bool isProjectOpen)
{
    menu->EnableProjectEntries(isProjectOpen);
}
void MainWindow::EnableMachineMenu(bool isEnabled)
{
    menu->EnableMachine(isEnabled);
}
void MainWindow::AddFileMRU(const QString& path)
{
    recentFiles.Add(path);
}
void MainWindow::SelectRecentFile(const QString& path)
{
    recentFiles.SelectItem(path);
}
QStringList MainWindow::PrinterNames()
{
    return QPrinterInfo::availablePrinterNames();
}
QString MainWindow::DefaultPrinterName()
{
    return QPrinterInfo::defaultPrinterName();
}

// The end of the program.

void MainWindow::EndProgram()
{
    UnloadPage();
    if (CallHook(Hook::CloseProject))
        close();
}

void MainWindow::ChooseLanguage(const QString& languageFile)
{
    const Answer answer = ShowBox(
        {App().sProgramTitle.trimmed(), texts::languageChange, BoxIcon::Question, BoxButtons::YesNo, Answer::Yes});
    if (answer != Answer::Yes)
        return;
    App().ProgSettings->SetLanguageFile(languageFile);
    App().iExitAction = kExitRestartWanted;
    close();
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    // What is asked has to be answered first, and a pass over the sets needs its page to the end.
    if (page && !QApplication::activeModalWidget())
        page->StopWork();
    if (QApplication::activeModalWidget() || isProgressShown) {
        event->ignore();
        return;
    }
    event->ignore(); // whatever happens before the user has agreed
    const QString operation = ActionName(menu->Entry(QStringLiteral("mnuEnd")));
    bool mayClose = false;
    RunGuarded(operation, [&] { mayClose = !page || (page->MayClose() && TakeInput(InputUse::Leaving)); });
    if (!mayClose) {
        App().iExitAction = kExitCancelled; // of a restart that was wanted too
        return;
    }
    RunGuarded(operation, [this, event] {
        if (page)
            page->Leave(); // a recording ends before its file does
        const bool isClosing = CallHook(Hook::CloseProject);
        event->setAccepted(isClosing);
        // A cancelled closing goes on all the same: the user keeps the window and the project, without a page.
        CallHook(Hook::SaveIfDirty);
        UnloadPage();
        recentFiles.StoreSettings(kSettingsApplication, kRecentSection);
        if (IsAnyValueLost())
            ShowError(texts::settingsNotStored);
        for (QWidget* other : QApplication::topLevelWidgets())
            if (other != this && other->isVisible())
                other->close();
        if (isClosing && App().iExitAction == kExitRestartWanted) {
            App().iExitAction = kExitRestarting;
            if (!QProcess::startDetached(QApplication::applicationFilePath(), {}))
                ShowPathNotFound(QApplication::applicationFilePath());
        }
    });
}

} // namespace korvanel
