// Shows the program at work: starts it with private settings, presses its real buttons through a project from New to
// the net configuration, and leaves the project file and a picture of each page.
//   korvanel_demo [--out DIR]
#include "remote/ProgramDriver.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QTextStream>

#include <cstdlib>

using namespace korvanel;

namespace {

class Demo
{
public:
    explicit Demo(const QDir& output) : folder(output), driver(output.filePath(QStringLiteral("settings"))) {}

    void Run()
    {
        driver.Start();
        driver.WaitForControl(QStringLiteral("FormStart"));
        driver.Grab(QStringLiteral("FormStart"), folder.filePath(QStringLiteral("0-start.png")));
        driver.WaitForWindow(QStringLiteral("MainForm"));
        CreateProject();
        DescribeProject();
        ChooseNetConfiguration();
        WalkPages();
        driver.Trigger(QStringLiteral("mnuEnd"));
        if (driver.WaitForEnd() != EXIT_SUCCESS)
            throw DriverError("the program ended with an error");
    }

private:
    void Picture(const QString& name)
    {
        driver.Grab(QStringLiteral("MainForm"), folder.filePath(name + QStringLiteral(".png")));
    }

    void CreateProject()
    {
        QFile::remove(folder.filePath(QStringLiteral("Pumpe 3.MDB")));
        driver.Trigger(QStringLiteral("mnuNew"));
        driver.GivePath(folder.filePath(QStringLiteral("Pumpe 3")));
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
        driver.Choose(QStringLiteral("tabPage"), QStringLiteral("3-Phasen-Netz"));
        driver.Trigger(QStringLiteral("optNetConf_4"));
        Picture(QStringLiteral("2-netz-konfiguration"));
    }

    /// Along the path to its end.
    void WalkPages()
    {
        for (const char* page : {"FormF3", "FormF4", "FormF5", "FormF6", "FormF8", "FormF9"}) {
            driver.Trigger(QStringLiteral("cmdForw"));
            driver.WaitForControl(QLatin1String(page));
            Picture(QStringLiteral("3-") + QLatin1String(page));
        }
    }

    QDir folder;
    ProgramDriver driver;
};

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    const QCommandLineOption out(QStringLiteral("out"), QStringLiteral("folder of the results"), QStringLiteral("DIR"),
                                 QStringLiteral("demo-output"));
    parser.addOption(out);
    parser.addHelpOption();
    parser.process(application);
    QTextStream print(stdout);
    const QDir folder(QFileInfo(parser.value(out)).absoluteFilePath());
    if (!folder.mkpath(QStringLiteral("."))) {
        print << "can't make " << folder.path() << '\n';
        return EXIT_FAILURE;
    }
    try {
        Demo(folder).Run();
    } catch (const DriverError& error) {
        print << "demo failed: " << error.what() << '\n';
        return EXIT_FAILURE;
    }
    print << "The demo has left in " << folder.path() << ":\n";
    for (const QFileInfo& file : folder.entryInfoList(QDir::Files, QDir::Name))
        print << "  " << file.fileName() << "  " << file.size() << " bytes\n";
    return EXIT_SUCCESS;
}
