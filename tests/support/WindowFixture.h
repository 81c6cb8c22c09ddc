// The real main window with the real pages and dialogs, but for its boxes and file dialogs: those are recorded and
// answered from a script, and so are the dialogs that have an answer there.
#pragma once

#include "acquisition/FormF3.h"
#include "acquisition/FormF4.h"
#include "acquisition/clsTimeSchedule.h"
#include "core/Hooks.h"
#include "core/clsGraphColours.h"
#include "core/window/DialogTable.h"
#include "core/window/FormH2.h"

#include "core/window/MainMenu.h"
#include "core/window/MainWindow.h"
#include "core/window/Page.h"
#include "core/window/PageTable.h"
#include "instruments/FormF2.h"
#include "instruments/FormH5.h"
#include "instruments/FormH7.h"
#include "motors/FormF10.h"
#include "motors/FormH11.h"
#include "motors/FormH8.h"
#include "output/FormH16.h"
#include "project/FormF1.h"
#include "project/ProjectCommands.h"
#include "project/ProjectStore.h"
#include "simulation/FormH12.h"
#include "simulation/FormH13.h"
#include "simulation/FormH14.h"
#include "support/EmptyPage.h"
#include "support/MotorDbFixture.h"
#include "support/ScriptedPort.h"

#include <QAction>
#include <QApplication>

namespace korvanel::test {

class ScriptedWindow : public MainWindow
{
public:
    explicit ScriptedWindow(RecordingShell& ofScript) : script(ofScript) {}
    Answer ShowBox(const Box& box) override { return script.ShowBox(box); }
    QString AskOpenPath(const FileQuestion& question) override { return script.AskOpenPath(question); }
    std::optional<QString> AskSavePath(const FileQuestion& question) override { return script.AskSavePath(question); }
    bool ShowDialog(int number) override
    {
        return script.dialogs.contains(number) ? script.ShowDialog(number) : MainWindow::ShowDialog(number);
    }
    /// Those of the system where a test wants them.
    bool hasSystemPrinters = false;
    QStringList PrinterNames() override
    {
        return hasSystemPrinters ? MainWindow::PrinterNames() : script.PrinterNames();
    }
    QString DefaultPrinterName() override
    {
        return hasSystemPrinters ? MainWindow::DefaultPrinterName() : script.DefaultPrinterName();
    }

private:
    RecordingShell& script;
};

class WindowTest : public ProjectTest
{
protected:
    WindowTest() : window(shell)
    {
        App().TheShell = &window;
        App().TimeSchedule = &schedule;
        App().GraphColours = &colours;
        App().ThePort = &port;
        App().sVersion = QStringLiteral("V1.2.3");
        SetHook(Hook::SaveIfDirty, Done(SaveIfDirty));
        SetHook(Hook::CloseProject, CloseProject);
        RegisterForms();
        shell.dialogs[kDialogMotorDatabase] = [] { return false; }; // nobody is there to choose another file
        App().sMotorDbPath = PathOf("NO_MOTORS.MDB");
        SQLite::Database(App().sMotorDbPath.toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE)
            .exec(kCreateMotor);
        window.ApplyMainTexts();
        window.show();
    }
    ~WindowTest() override
    {
        App().bProjectDirty = false;
        App().bProjectOpen = false;
        window.UnloadPage();
    }

    void RegisterForms()
    {
        for (const PageEntry& entry : Pages())
            window.RegisterPage(entry.number, BuildPage<EmptyPage>);
        window.RegisterPage(kPageGeneralData, BuildPage<FormF1>);
        window.RegisterPage(kPageNetConfiguration, BuildPage<FormF2>);
        window.RegisterPage(kPageDevice, BuildPage<FormF3>);
        window.RegisterPage(kPageMeasure, BuildPage<FormF4>);
        window.RegisterPage(kPageMachine, BuildPage<FormF10>);
        window.RegisterDialog(kDialogAbout, BuildDialog<FormH2>);
        window.RegisterDialog(kDialogAddressSearch, BuildDialog<FormH5>);
        window.RegisterDialog(kDialogWiring, BuildDialog<FormH7>);
        window.RegisterDialog(kDialogMachineInfo, [](QWidget* parent) -> std::unique_ptr<QDialog> {
            return std::make_unique<FormH8>(parent, MachineInfo::MachineII);
        });
        window.RegisterDialog(kDialogMotorDatabase, BuildDialog<FormH11>);
        window.RegisterDialog(kDialogSecondMachine, BuildDialog<FormH12>);
        window.RegisterDialog(kDialogComparison, BuildDialog<FormH13>);
        window.RegisterDialog(kDialogSimulationResults, BuildDialog<FormH14>);
        window.RegisterDialog(kDialogPrintMachines, BuildDialog<FormH16>);
    }

    /// A project of a net configuration, open in the window without a page.
    void OpenInWindow(int netConf)
    {
        CreateProject(netConf);
        window.EnableProjectMenus(true);
    }

    template <typename Control>
    Control& Find(const char* name)
    {
        // A page that was left lives until the event loop deletes it.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        auto* control = window.findChild<Control*>(QLatin1String(name));
        if (!control)
            throw std::runtime_error(std::string("no control ") + name);
        return *control;
    }
    QString PageName() { return window.PageOnShow() ? window.PageOnShow()->objectName() : QString(); }
    bool IsEntryEnabled(const char* name) { return window.Menu().Entry(QLatin1String(name))->isEnabled(); }

    clsTimeSchedule schedule;
    clsGraphColours colours{QStringLiteral("KORVANEL")};
    ScriptedPort port;
    ScriptedWindow window;
};

} // namespace korvanel::test
