// Composition root: creates the long-lived objects in their order, says who answers the hooks, registers pages, dialogs
// and what the menu does, and starts the event loop.

#include "acquisition/FormF3.h"
#include "acquisition/FormF4.h"
#include "acquisition/clsTimeSchedule.h"
#include "core/Clock.h"
#include "core/Common.h"
#include "core/Hooks.h"
#include "core/Messages.h"
#include "core/NumberText.h"
#include "core/Paths.h"
#include "core/SettingsStore.h"
#include "core/Texts.h"
#include "core/clsGraphColours.h"
#include "core/clsProgSettings.h"
#include "core/clsSymbols.h"
#include "core/texts/DefaultTexts.h"
#include "core/window/DialogTable.h"
#include "core/window/FormH2.h"
#include "core/window/Help.h"
#include "core/window/MainMenu.h"
#include "core/window/MainWindow.h"
#include "core/window/PageTable.h"
#include "core/window/Picture.h"
#include "core/window/StartScreen.h"
#include "diagrams/FormF8.h"
#include "editor/FormF5.h"
#include "evaluation/FormF6.h"
#include "instruments/FormF2.h"
#include "instruments/FormH5.h"
#include "instruments/FormH7.h"
#include "instruments/PortNames.h"
#include "instruments/SystemPort.h"
#include "language/LangManaging.h"
#include "language/OldProjectConversion.h"
#include "motors/FormF10.h"
#include "motors/FormH11.h"
#include "motors/FormH8.h"
#include "motors/MotorDatabase.h"
#include "output/Export.h"
#include "output/FormF9.h"
#include "output/FormH16.h"
#include "project/FormF1.h"
#include "project/ProjectCommands.h"
#include "project/ProjectStore.h"
#include "simulation/Algorithms_ASM_Simulation.h"
#include "simulation/FormH12.h"
#include "simulation/FormH13.h"
#include "simulation/FormH14.h"

#include <QApplication>
#include <QDir>
#include <QIcon>
#include <QLibraryInfo>
#include <QPixmap>
#include <QTranslator>

#include <functional>
#include <optional>

using namespace korvanel;

namespace {

/// What a lower room wants of a higher one, and who answers.
void SetHooks()
{
    struct Line
    {
        Hook hook;
        std::function<bool()> answer;
    };
    const Line lines[] = {
        {.hook = Hook::SaveIfDirty, .answer = Done(SaveIfDirty)},
        {.hook = Hook::CloseProject, .answer = CloseProject},
        {.hook = Hook::LoadMachines, .answer = Done(LoadProjectMachines)},
        {.hook = Hook::CopyMachines, .answer = Done(CopyMachinesIntoProject)},
        {.hook = Hook::ExportEvaluation, .answer = Done(ExportFromPage)},
        {.hook = Hook::RunSimulation, .answer = RunSimulation},
        {.hook = Hook::ProvideSimulation, .answer = ProvideSimulation},
    };
    for (const Line& line : lines)
        SetHook(line.hook, line.answer);
}

void RegisterPages(MainWindow& window)
{
    window.RegisterPage(kPageGeneralData, BuildPage<FormF1>);
    window.RegisterPage(kPageNetConfiguration, BuildPage<FormF2>);
    window.RegisterPage(kPageDevice, BuildPage<FormF3>);
    window.RegisterPage(kPageMeasure, BuildPage<FormF4>);
    window.RegisterPage(kPageEditor, BuildPage<FormF5>);
    window.RegisterPage(kPageResultTable, BuildPage<FormF6>);
    window.RegisterPage(kPageResultGraph, BuildPage<FormF8>);
    window.RegisterPage(kPagePrint, BuildPage<FormF9>);
    window.RegisterPage(kPageMachine, BuildPage<FormF10>);
}

void RegisterDialogs(MainWindow& window)
{
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

void ConnectPageEntries(MainWindow& window)
{
    struct Way
    {
        const char* entry;
        PageNumber page;
    };
    constexpr Way kWays[] = {
        {"mnuGeneralData", kPageGeneralData},
        {"mnuConfiguration", kPageNetConfiguration},
        {"mnuDeviceConf", kPageDevice},
        {"mnuOnlineDevice", kPageMeasure},
        {"mnuOfflineDevice", kPageEditor},
        {"mnuResTable", kPageResultTable},
        {"mnuResGraph", kPageResultGraph},
        {"mnuResPrint", kPagePrint},
        {"mnuPrint", kPagePrint},
        {"mnuDatabase", kPageMachine},
    };
    for (const Way& way : kWays)
        window.Menu().OnTriggered(QLatin1String(way.entry), [&window, way] { window.UnloadAndOpen(way.page); });
}

void ConnectDialogEntries(MainWindow& window)
{
    struct Way
    {
        const char* entry;
        DialogNumber dialog;
        bool changesPage = false; ///< what is accepted in the dialog may be shown by the page
    };
    constexpr Way kWays[] = {
        {.entry = "mnuInfo", .dialog = kDialogAbout},
        {.entry = "mnuModbus", .dialog = kDialogAddressSearch, .changesPage = true},
        {.entry = "mnuDatabaseOpt", .dialog = kDialogMotorDatabase, .changesPage = true},
    };
    for (const Way& way : kWays)
        window.Menu().OnTriggered(QLatin1String(way.entry), [&window, way] {
            if (window.ShowDialog(way.dialog) && way.changesPage)
                window.RefreshPage();
        });
}

void ConnectMenu(MainWindow& window)
{
    MainMenu& menu = window.Menu();
    ConnectPageEntries(window);
    ConnectDialogEntries(window);
    menu.OnTriggered(QStringLiteral("mnuNew"), NewProject);
    menu.OnTriggered(QStringLiteral("mnuOpen"), OpenProjectFromMenu);
    menu.OnTriggered(QStringLiteral("mnuSave"), SaveProjectFromMenu);
    menu.OnTriggered(QStringLiteral("mnuSaveAs"), SaveProjectAs);
    menu.OnTriggered(QStringLiteral("mnuClose"), CloseProjectFromMenu);
    menu.OnTriggered(QStringLiteral("mnuDelete"), DeleteProjectFile);
    menu.OnTriggered(QStringLiteral("mnuEnd"), [&window] { window.EndProgram(); });
    menu.OnTriggered(QStringLiteral("mnuBook"), OpenManual);
    menu.OnTriggered(QStringLiteral("mnuConvert"), ConvertOldProject);
    menu.OnRecentFile(OpenRecentProject);
}

/// The toolkit's own texts, as in its file dialog, in the language in use. Without a translation of its own for that
/// language they are English.
void TranslateToolkit(QApplication& application)
{
    if (!IsLocaleName(texts::toolkitLocale))
        return;
    auto* translator = new QTranslator(&application);
    if (translator->load(QStringLiteral("qtbase_") + texts::toolkitLocale,
                         QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QApplication::installTranslator(translator);
}

QPixmap LoadLogo()
{
    const QString name = QStringLiteral("LOGO.BMP");
    QPixmap logo = LoadPicture(name);
    if (logo.isNull())
        ShowNotFound(JoinPath(App().sProgramDir, name));
    return logo;
}

} // namespace

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(kSettingsApplication);
    SetBuiltInTexts();
    InitialiseApplicationBlock(QDir::toNativeSeparators(QApplication::applicationDirPath()));
    QApplication::setWindowIcon(QIcon(LoadPicture(QStringLiteral("KORVANEL.png"))));
    const std::optional<QString> damagedStore = SetDamagedStoreAside(kSettingsApplication); // before anybody reads it
    const SystemClock clock;
    App().TheClock = &clock;
    StartDayClock();
    SystemPort port([](int number) { return DeviceOfPort(number, SystemPortSources()); });
    App().ThePort = &port;
    SetHooks();
    MainWindow window;
    App().TheShell = &window;

    clsTimeSchedule schedule;
    App().TimeSchedule = &schedule;
    clsGraphColours colours(kSettingsApplication);
    App().GraphColours = &colours;
    RunGuarded(texts::titleSettings, [&] { colours.ReadSettings(); });
    clsSymbols symbols;
    App().Symbols = &symbols;
    clsProgSettings settings(App().sProgramDir);
    App().ProgSettings = &settings;
    App().sMotorDbPath = settings.MotorDatabase();
    if (damagedStore)
        ShowError(FillPlaceholders(texts::settingsDamaged, {*damagedStore}));

    const QString projects = App().sProjectLabel; // a missing logo changes the label
    const QPixmap logo = LoadLogo();
    App().sProgramTitle = QStringLiteral("KORVANEL ");
    App().sVersion = QStringLiteral("V" KORVANEL_VERSION);

    StartScreen startScreen(logo);
    startScreen.ShowInFront();
    RegisterPages(window);
    RegisterDialogs(window);
    ConnectMenu(window);
    const Languages languages = LoadLanguage();
    TranslateToolkit(application);
    window.ApplyMainTexts();
    window.Menu().SetLanguages(languages.LangNames, languages.LangFiles, settings.LanguageFile(),
                               [&window](const QString& file) { window.ChooseLanguage(file); });
    window.show();
    startScreen.ShowInFront();
    QDir::setCurrent(projects); // a missing directory changes nothing
    return QApplication::exec();
}
