// Shows the program at work: starts it with private settings and a simulated instrument on its first port, presses its
// real buttons from New to STOP, and leaves the project file, the instrument's log of what it sent and a picture of
// each page, the exported text and the report. What was stored is compared with what was sent, and what was exported
// with what was stored; a difference makes the demo fail.
//   korvanel_demo [--seconds N] [--out DIR] [--family NAME]
#include "demo/Comparison.h"
#include "demo/DemoInstrument.h"
#include "demo/OldProject.h"
#include "remote/ProgramDriver.h"
#include "remote/SimulatorProcess.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QJsonArray>
#include <QProcess>
#include <QSettings>
#include <QTextStream>
#include <QThread>

#include <cstdlib>
#include <tuple>

using namespace korvanel;

namespace {

class Demo
{
public:
    Demo(const QDir& output, int runSeconds, const DemoInstrument& shown)
        : folder(output), seconds(runSeconds), instrument(shown),
          simulator(output.path(), QLatin1String(shown.family), {}), driver(output.filePath(QStringLiteral("settings")))
    {
        QSettings settings(output.filePath(QStringLiteral("settings/KORVANEL/KORVANEL.ini")), QSettings::IniFormat);
        settings.setValue(QStringLiteral("Ports/COM1"), simulator.Link());
    }

    Comparison Run()
    {
        driver.Start();
        driver.WaitForControl(QStringLiteral("FormStart"));
        driver.Grab(QStringLiteral("FormStart"), folder.filePath(QStringLiteral("0-start.png")));
        driver.WaitForWindow(QStringLiteral("MainForm"));
        CreateProject();
        DescribeProject();
        ChooseNetConfiguration();
        ChooseMachine();
        if (instrument.hasAddress)
            SearchAddress();
        ConfigureInstrument();
        Record();
        WalkPages();
        PrintReport();
        BuildLoadCycle();
        ConvertOldProject();
        driver.Trigger(QStringLiteral("mnuEnd"));
        if (driver.WaitForEnd() != EXIT_SUCCESS)
            throw DriverError("the program ended with an error");
        ShowInEnglish();
        Comparison comparison = CompareRecording(instrument, ProjectFile(), simulator.Log(), firstExchange);
        CompareExport(ProjectFile(), ExportFile(), comparison);
        return comparison;
    }

private:
    QString ProjectFile() const { return folder.filePath(QStringLiteral("Pumpe 3.MDB")); }
    QString ExportFile() const { return folder.filePath(QStringLiteral("Pumpe 3.txt")); }
    void Picture(const QString& name)
    {
        driver.Grab(QStringLiteral("MainForm"), folder.filePath(name + QStringLiteral(".png")));
    }

    void CreateProject()
    {
        QFile::remove(ProjectFile());
        driver.Trigger(QStringLiteral("mnuNew"));
        driver.GivePath(ProjectFile());
        driver.WaitForControl(QStringLiteral("FormF1"));
    }

    void DescribeProject()
    {
        driver.Type(QStringLiteral("txtName"), QStringLiteral("Kühlwasserpumpe 3"));
        driver.Type(QStringLiteral("txtFirm"), QStringLiteral("Wasserwerk Nord"));
        driver.Type(QStringLiteral("txtWho"), QStringLiteral("Instandhaltung"));
        driver.Type(QStringLiteral("txtDescr"),
                    QStringLiteral("Hersteller: Musterwerk\nStandort: Halle 2, Grube\nEinbaulage: stehend\n"
                                   "weitere Angaben: Lastspiel über eine Schicht"));
        Picture(QStringLiteral("1-allgemeine-daten"));
    }

    void ChooseNetConfiguration()
    {
        driver.Trigger(QStringLiteral("cmdForw"));
        driver.WaitForControl(QStringLiteral("FormF2"));
        driver.Choose(QStringLiteral("tabPage"), QStringLiteral("Asynchronmaschine"));
        driver.Trigger(QStringLiteral("optNetConf_2"));
        Picture(QStringLiteral("2-netz-konfiguration"));
    }

    /// The measured motor, found by its pole pairs, power and voltage.
    void ChooseMachine()
    {
        driver.Trigger(QStringLiteral("cmdForw"));
        driver.WaitForControl(QStringLiteral("FormF10"));
        driver.Trigger(QStringLiteral("cmdSearchWin"));
        driver.WaitForControl(QStringLiteral("FormH6"));
        const char* const wanted[] = {"2", "18,5", "400"};
        for (int i = 0; i < 3; ++i)
            driver.Type(QStringLiteral("txtSearch_%1").arg(i), QLatin1String(wanted[i]));
        driver.Grab(QStringLiteral("FormH6"), folder.filePath(QStringLiteral("3-maschine-suchen.png")));
        driver.Trigger(QStringLiteral("cmdSearch"));
        driver.WaitUntilGone(QStringLiteral("FormH6"));
        constexpr int kMostMachines = 200;
        for (int i = 0; !driver.Text(QStringLiteral("txtComment")).startsWith(QStringLiteral("Prüfstandsmotor")); ++i) {
            if (i == kMostMachines)
                throw DriverError("the measured motor is not in the database");
            driver.Trigger(QStringLiteral("cmdBrowse_2"));
        }
        driver.Choose(QStringLiteral("tabAsync"), QStringLiteral("Maschinen"));
        Picture(QStringLiteral("3-maschinen"));
        driver.Choose(QStringLiteral("tabAsync"), QStringLiteral("Bemessungs- und Leerlaufdaten"));
        Picture(QStringLiteral("3-maschine-bemessung"));
        driver.Choose(QStringLiteral("tabAsync"), QStringLiteral("Weitere Angaben"));
        Picture(QStringLiteral("3-maschine-weiteres"));
        driver.Trigger(QStringLiteral("cmdInfo_1"));
        driver.WaitForControl(QStringLiteral("FormH8"));
        driver.Grab(QStringLiteral("FormH8"), folder.filePath(QStringLiteral("3-maschine-modell.png")));
        driver.Trigger(QStringLiteral("cmdOK"));
        driver.WaitUntilGone(QStringLiteral("FormH8"));
    }

    /// As a user does who doesn't know the address of the instrument.
    void SearchAddress()
    {
        driver.Trigger(QStringLiteral("mnuModbus"));
        driver.WaitForControl(QStringLiteral("FormH5"));
        driver.Choose(QStringLiteral("tabMODBUS"), QStringLiteral("Suchintervall"));
        driver.Type(QStringLiteral("txtAddress_1"), QStringLiteral("30"));
        driver.Type(QStringLiteral("txtAddress_2"), QStringLiteral("40"));
        driver.Trigger(QStringLiteral("cmdSearch_1"));
        while (!driver.IsEnabled(QStringLiteral("cmdOK")))
            QThread::msleep(50);
        driver.Grab(QStringLiteral("FormH5"), folder.filePath(QStringLiteral("4-adresssuche.png")));
        driver.Trigger(QStringLiteral("cmdOK"));
        driver.WaitUntilGone(QStringLiteral("FormH5"));
    }

    void ConfigureInstrument()
    {
        driver.Trigger(QStringLiteral("cmdForw"));
        driver.WaitForControl(QStringLiteral("FormF3"));
        driver.Choose(QStringLiteral("cboSelect"), QString::fromUtf8(instrument.entry));
        driver.Trigger(QStringLiteral("cmdDiag"));
        constexpr int kGreen = 65280;
        constexpr int kPatienceMs = 30000;
        QElapsedTimer timer;
        timer.start();
        while (driver.Read(QStringLiteral("shpLED_2"))[QStringLiteral("colour")].toInt() != kGreen) {
            if (timer.elapsed() > kPatienceMs)
                throw DriverError("the instrument was not found");
            QThread::msleep(50);
        }
        Picture(QStringLiteral("4-messgeraet"));
        driver.Choose(QStringLiteral("tabPage"), QStringLiteral("Wandler / Messbereich"));
        driver.Choose(QStringLiteral("cboEnd_1"), QStringLiteral("50"));
        driver.Choose(QStringLiteral("cboEnd_2"), QStringLiteral("50"));
        driver.Choose(QStringLiteral("cboEnd_4"), QStringLiteral("500"));
        Picture(QStringLiteral("4-wandler"));
        driver.Choose(QStringLiteral("tabPage"), QStringLiteral("Zeitsteuerung"));
        Picture(QStringLiteral("4-zeitsteuerung"));
    }

    void Record()
    {
        driver.Trigger(QStringLiteral("cmdForw"));
        driver.WaitForControl(QStringLiteral("FormF4"));
        firstExchange = simulator.Log().size();
        driver.Trigger(QStringLiteral("cmdSTART"));
        driver.WaitForText(QStringLiteral("cmdSTART"), QStringLiteral("STOP Messung"));
        QElapsedTimer timer;
        timer.start();
        constexpr int kMillisecondsPerSecond = 1000;
        QThread::msleep(static_cast<unsigned long>(seconds) * kMillisecondsPerSecond / 2);
        Picture(QStringLiteral("5-messung"));
        driver.Trigger(QStringLiteral("cmdInfo"));
        driver.WaitForControl(QStringLiteral("FormH7"));
        driver.Grab(QStringLiteral("FormH7"), folder.filePath(QStringLiteral("5-schaltung.png")));
        driver.Trigger(QStringLiteral("cmdOK"));
        driver.WaitUntilGone(QStringLiteral("FormH7"));
        while (timer.elapsed() < qint64(seconds) * kMillisecondsPerSecond)
            QThread::msleep(50);
        driver.Trigger(QStringLiteral("cmdSTART"));
        driver.WaitForText(QStringLiteral("cmdSTART"), QStringLiteral("START Messung"));
        Picture(QStringLiteral("5-nach-der-messung"));
    }

    void WalkPages()
    {
        driver.Trigger(QStringLiteral("cmdForw"));
        driver.WaitForControl(QStringLiteral("FormF5"));
        QThread::msleep(kPictureMs);
        Picture(QStringLiteral("7-FormF5"));
        driver.Trigger(QStringLiteral("cmdForw"));
        driver.WaitForControl(QStringLiteral("FormF6"));
        ShowResults();
        ExportResults();
        ChooseSecondMachine();
        driver.Trigger(QStringLiteral("cmdForw"));
        driver.WaitForControl(QStringLiteral("FormF8"));
        ShowDiagrams();
        VisitPage("FormF9");
    }

    void VisitPage(const char* page)
    {
        driver.Trigger(QStringLiteral("cmdForw"));
        driver.WaitForControl(QLatin1String(page));
        Picture(QStringLiteral("7-") + QLatin1String(page));
    }

    /// Every tab of the evaluation, its options, and the list of the sets.
    void ShowResults()
    {
        driver.Trigger(QStringLiteral("chkValue_1")); // the tables alone
        const QJsonArray tabs = driver.Read(QStringLiteral("TabEvaluation"))[QStringLiteral("items")].toArray();
        for (qsizetype i = 0; i < tabs.size(); ++i) {
            driver.Choose(QStringLiteral("TabEvaluation"), tabs[i].toString());
            Picture(QStringLiteral("6-auswertung-%1").arg(i + 1));
        }
        PictureOfDialog("cmdOptions_1", "FormH10", "6-optionen");
        PictureOfDialog("cmdOptions_2", "FormH9", "6-zeitfenster");
        driver.Trigger(QStringLiteral("cmdSet")); // brings the list
        driver.WaitForControl(QStringLiteral("FormH15"));
        driver.Type(QStringLiteral("txtSet"), QStringLiteral("20"));
        driver.Grab(QStringLiteral("FormH15"), folder.filePath(QStringLiteral("6-satz-suchen.png")));
        driver.Trigger(QStringLiteral("cmdOK"));
        driver.WaitUntilGone(QStringLiteral("FormH15"));
        driver.Trigger(QStringLiteral("chkValue_0"));
        Picture(QStringLiteral("6-messwerttabelle"));
        driver.Trigger(QStringLiteral("chkValue_0"));
    }

    /// The curves: all of them, a part, the values of a point, one alone.
    void ShowDiagrams()
    {
        const QString box = QStringLiteral("Picture1");
        driver.WaitUntilEnabled(QStringLiteral("cmdRedraw"));
        Picture(QStringLiteral("8-gesamtdiagramm"));
        const QPoint from(90, 40);
        const QPoint to(250, 200);
        driver.Mouse(box, QStringLiteral("press"), from);
        driver.Mouse(box, QStringLiteral("move"), to);
        driver.Mouse(box, QStringLiteral("release"), to);
        driver.WaitUntilEnabled(QStringLiteral("cmdUndo"));
        driver.Mouse(box, QStringLiteral("click"), (from + to) / 2, QStringLiteral("right"));
        driver.WaitForControl(QStringLiteral("shpTarget"));
        Picture(QStringLiteral("8-ausschnitt"));
        driver.Trigger(QStringLiteral("cmdInfo"));
        driver.WaitForControl(QStringLiteral("FormH17"));
        driver.Grab(QStringLiteral("FormH17"), folder.filePath(QStringLiteral("8-werte-um-den-punkt.png")));
        driver.Trigger(QStringLiteral("cmdOK"));
        driver.WaitUntilGone(QStringLiteral("FormH17"));
        driver.Trigger(QStringLiteral("cmdFullScreen"));
        driver.Choose(QStringLiteral("tabPage"), QStringLiteral("Einzeldiagramm"));
        driver.WaitUntilEnabled(QStringLiteral("cmdRedraw"));
        Picture(QStringLiteral("8-einzeldiagramm"));
        driver.Choose(QStringLiteral("tabPage"), QStringLiteral("Gesamtdiagramm"));
        driver.WaitUntilEnabled(QStringLiteral("cmdRedraw"));
    }

    /// The same load on a larger motor: choice, the two side by side, energies and utilisation.
    void ChooseSecondMachine()
    {
        driver.Choose(QStringLiteral("TabEvaluation"), QStringLiteral("Motor/Generator II"));
        driver.Trigger(QStringLiteral("cmdChoice"));
        driver.WaitForControl(QStringLiteral("FormH12"));
        const char* const wanted[] = {"2", "22", "400", "50"};
        for (int i = 0; i < 4; ++i)
            driver.Type(QStringLiteral("txtSearch_%1").arg(i), QLatin1String(wanted[i]));
        driver.Trigger(QStringLiteral("cmdSearch"));
        driver.WaitUntilEnabled(QStringLiteral("cmdOK"));
        driver.Grab(QStringLiteral("FormH12"), folder.filePath(QStringLiteral("6-zweite-maschine-auswahl.png")));
        driver.Trigger(QStringLiteral("cmdOK"));
        driver.WaitUntilGone(QStringLiteral("FormH12"));
        driver.WaitUntilEnabled(QStringLiteral("cmdCompare"));
        Picture(QStringLiteral("6-zweite-maschine"));
        for (const auto& [button, dialog, name] : {std::tuple{"cmdCompare", "FormH13", "6-vergleich"},
                                                   {"cmdEvaluation", "FormH14", "6-auswertung-beider"}}) {
            driver.Trigger(QLatin1String(button));
            driver.WaitForControl(QLatin1String(dialog));
            driver.Grab(QLatin1String(dialog), folder.filePath(QLatin1String(name) + QStringLiteral(".png")));
            driver.Trigger(QStringLiteral("cmdOK"));
            driver.WaitUntilGone(QLatin1String(dialog));
        }
    }

    /// The report as a file, and its pages as pictures.
    void PrintReport()
    {
        const QString file = folder.filePath(QStringLiteral("Pumpe 3.pdf"));
        QFile::remove(file);
        driver.Trigger(QStringLiteral("mnuResPrint"));
        driver.WaitForControl(QStringLiteral("FormF9"));
        driver.Choose(QStringLiteral("cboPrinters"), QStringLiteral("PDF-Datei"));
        QThread::msleep(kPictureMs);
        Picture(QStringLiteral("9-drucken"));
        driver.Trigger(QStringLiteral("cmdPrint"));
        driver.GivePath(file);
        constexpr unsigned long kPollMs = 50;
        for (QElapsedTimer waiting = Started(); !QFile::exists(file) && waiting.elapsed() < kLongestPrintMs;)
            QThread::msleep(kPollMs); // it appears when its last page is written
        for (const QString& old : folder.entryList({QStringLiteral("9-bericht-*.png")}))
            folder.remove(old);
        const int result = QProcess::execute(QStringLiteral("pdftoppm"),
                                             {QStringLiteral("-png"), QStringLiteral("-r"), QStringLiteral("70"), file,
                                              folder.filePath(QStringLiteral("9-bericht"))});
        if (result != EXIT_SUCCESS || folder.entryList({QStringLiteral("9-bericht-*.png")}).isEmpty())
            throw DriverError("the report has no pages");
    }

    /// A load cycle of a saw, entered by hand: idle, cut, idle.
    void BuildLoadCycle()
    {
        const QString project = folder.filePath(QStringLiteral("Kreissäge von Hand.MDB"));
        QFile::remove(project);
        driver.Trigger(QStringLiteral("mnuNew"));
        driver.GivePath(project);
        driver.WaitForControl(QStringLiteral("FormF1"));
        driver.Type(QStringLiteral("txtName"), QStringLiteral("Kreissäge, ein Schnitt"));
        driver.Trigger(QStringLiteral("mnuOfflineDevice"));
        driver.WaitForControl(QStringLiteral("FormF5"));
        driver.Trigger(QStringLiteral("cmdNew"));
        driver.WaitUntilEnabled(QStringLiteral("cmdInsDel_0"));
        driver.Type(QStringLiteral("txtInterval"), QStringLiteral("2"));
        driver.Key(QStringLiteral("Return"), QStringLiteral("txtInterval"));
        EnterCell(0, 0, "230");
        for (int i = 0; i < 9; ++i)
            PressAndWait("cmdInsDel_0");
        driver.Trigger(QStringLiteral("cmdSet_0"));
        const struct
        {
            int set;
            const char* current;
            const char* power;
        } corners[] = {{1, "1,8", "180"}, {3, "1,8", "180"}, {5, "9,5", "1950"}, {7, "9,1", "1870"}, {8, "1,8", "185"}};
        for (const auto& corner : corners) {
            FindSet(corner.set);
            EnterCell(corner.set == 1 ? 0 : 1, 1, corner.current);
            EnterCell(corner.set == 1 ? 0 : 1, 3, corner.power);
        }
        for (const int between : {2, 4, 6}) { // straight from corner to corner
            FindSet(between);
            PressAndWait("cmdInsDel_2");
        }
        FindSet(5);
        QThread::msleep(kPictureMs);
        Picture(QStringLiteral("5-editor"));
        driver.Trigger(QStringLiteral("mnuResTable"));
        driver.WaitForControl(QStringLiteral("FormF6"));
        Picture(QStringLiteral("6-lastspiel-auswertung"));
    }

    /// The recorded project once more, with the language file that comes with the program.
    void ShowInEnglish()
    {
        QSettings settings(folder.filePath(QStringLiteral("settings/KORVANEL/KORVANEL.ini")), QSettings::IniFormat);
        const QString language = QStringLiteral("Settings/LangFile");
        settings.setValue(language, QStringLiteral("english.lng"));
        settings.sync();
        {
            ProgramDriver english(folder.filePath(QStringLiteral("settings")));
            english.Start();
            english.WaitForWindow(QStringLiteral("MainForm"));
            english.Trigger(QStringLiteral("mnuOpen"));
            english.GivePath(ProjectFile());
            english.WaitForControl(QStringLiteral("FormF1"));
            english.Trigger(QStringLiteral("mnuResTable"));
            english.WaitForControl(QStringLiteral("FormF6"));
            english.Choose(QStringLiteral("TabEvaluation"), QStringLiteral("Energy / costs"));
            english.Grab(QStringLiteral("MainForm"), folder.filePath(QStringLiteral("10-english.png")));
            english.Trigger(QStringLiteral("mnuEnd"));
            if (english.WaitForEnd() != EXIT_SUCCESS)
                throw DriverError("the program ended with an error in English");
        }
        settings.remove(language);
    }

    /// A project of the predecessor becomes one of this program.
    void ConvertOldProject()
    {
        const QString source = folder.filePath(QStringLiteral("Kreiselpumpe.KVL"));
        const QString target = folder.filePath(QStringLiteral("Kreiselpumpe von früher.MDB"));
        QFile::remove(target);
        QFile file(source);
        const QByteArray bytes = OldProjectFile();
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            throw DriverError("the old project can't be written");
        file.close();
        driver.Trigger(QStringLiteral("mnuClose"));
        driver.WaitUntilGone(QStringLiteral("FormF6"));
        driver.Trigger(QStringLiteral("mnuConvert"));
        driver.GivePath(source);
        driver.GivePath(target);
        driver.AnswerBox(QStringLiteral("OK"));
        driver.WaitForQuiet();
        driver.Trigger(QStringLiteral("mnuOpen"));
        driver.GivePath(target);
        driver.WaitForControl(QStringLiteral("FormF1"));
        driver.Trigger(QStringLiteral("mnuResGraph"));
        driver.WaitForControl(QStringLiteral("FormF8"));
        driver.WaitUntilEnabled(QStringLiteral("cmdRedraw"));
        Picture(QStringLiteral("9-alte-messreihe"));
    }

    void FindSet(int set)
    {
        driver.Trigger(QStringLiteral("cmdSet_2"));
        driver.WaitForControl(QStringLiteral("FormH15"));
        driver.Type(QStringLiteral("txtSet"), QString::number(set));
        driver.Trigger(QStringLiteral("cmdOK"));
        driver.WaitUntilGone(QStringLiteral("FormH15"));
    }

    void PressAndWait(const char* button)
    {
        driver.Trigger(QLatin1String(button));
        driver.WaitUntilEnabled(QLatin1String(button));
    }

    /// Double click, the value, Enter.
    void EnterCell(int row, int column, const char* value)
    {
        driver.WaitUntilEnabled(QStringLiteral("flxValues"));
        driver.ClickCell(QStringLiteral("flxValues"), row, column, QStringLiteral("left"), QStringLiteral("double"));
        driver.Type(QStringLiteral("txtEdit_0"), QLatin1String(value));
        driver.Key(QStringLiteral("Return"), QStringLiteral("txtEdit_0"));
        driver.WaitUntilEnabled(QStringLiteral("txtEdit_0"));
    }

    void PictureOfDialog(const char* button, const char* dialog, const char* name)
    {
        driver.Trigger(QLatin1String(button));
        driver.WaitForControl(QLatin1String(dialog));
        driver.Grab(QLatin1String(dialog), folder.filePath(QLatin1String(name) + QStringLiteral(".png")));
        driver.Trigger(QStringLiteral("cmdAbort"));
        driver.WaitUntilGone(QLatin1String(dialog));
    }

    void ExportResults()
    {
        QFile::remove(ExportFile());
        driver.Trigger(QStringLiteral("cmdExcel"));
        driver.GivePath(ExportFile());
        driver.WaitUntilEnabled(QStringLiteral("cmdExcel")); // the page is locked meanwhile
    }

    static QElapsedTimer Started()
    {
        QElapsedTimer timer;
        timer.start();
        return timer;
    }

    static constexpr qint64 kLongestPrintMs = 30'000;
    static constexpr int kPictureMs = 500; // until the picture of all sets is drawn

    QDir folder;
    int seconds;
    const DemoInstrument& instrument;
    SimulatorProcess simulator;
    ProgramDriver driver;
    std::size_t firstExchange = 0; ///< of the simulator's log that belongs to the recording
};

bool Report(QTextStream& print, const Comparison& comparison)
{
    print << comparison.sent << " samples sent, " << comparison.stored << " sets stored, " << comparison.exported
          << " exported, " << comparison.values << " values compared, " << comparison.differences.size()
          << " differences\n";
    for (const QString& difference : comparison.differences)
        print << "  " << difference << '\n';
    return comparison.differences.isEmpty() && comparison.stored > 0;
}

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    const QCommandLineOption out(QStringLiteral("out"), QStringLiteral("folder of the results"), QStringLiteral("DIR"),
                                 QStringLiteral("demo-output"));
    const QCommandLineOption length(QStringLiteral("seconds"), QStringLiteral("length of the recording"),
                                    QStringLiteral("N"), QStringLiteral("30"));
    const QCommandLineOption family(QStringLiteral("family"),
                                    QStringLiteral("instrument: ") + DemoFamilies().join(u'|'), QStringLiteral("NAME"),
                                    QStringLiteral("iskra"));
    parser.addOptions({out, length, family});
    parser.addHelpOption();
    parser.process(application);
    QTextStream print(stdout);
    const QDir folder(QFileInfo(parser.value(out)).absoluteFilePath());
    bool isNumber = false;
    const int seconds = parser.value(length).toInt(&isNumber);
    if (!isNumber || seconds < 1) {
        print << "--seconds wants a whole number from 1 on\n";
        return EXIT_FAILURE;
    }
    const DemoInstrument* const instrument = FindDemoInstrument(parser.value(family));
    if (instrument == nullptr) {
        print << "--family is one of " << DemoFamilies().join(QStringLiteral(", ")) << '\n';
        return EXIT_FAILURE;
    }
    if (!folder.mkpath(QStringLiteral("settings/KORVANEL"))) {
        print << "can't make " << folder.path() << '\n';
        return EXIT_FAILURE;
    }
    bool isWhole = false;
    try {
        isWhole = Report(print, Demo(folder, seconds, *instrument).Run());
    } catch (const std::exception& error) {
        print << "demo failed: " << error.what() << '\n';
        return EXIT_FAILURE;
    }
    print << "The demo has left in " << folder.path() << ":\n";
    for (const QFileInfo& file : folder.entryInfoList(QDir::Files, QDir::Name))
        print << "  " << file.fileName() << "  " << file.size() << " bytes\n";
    return isWhole ? EXIT_SUCCESS : EXIT_FAILURE;
}
