// The real program with the English file that comes with it: no word of German is left on any page, dialog or message,
// in the export and in the report.
#include "core/Texts.h"
#include "e2e/RecordingFixture.h"
#include "motors/MotorDatabase.h"
#include "support/PdfReader.h"
#include "support/ProjectFixture.h"
#include "support/WorkedExample.h"

#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>

namespace korvanel::test {
namespace {

using Words = QSet<QString>;

Words WordsOf(const QString& text)
{
    static const QRegularExpression word(QStringLiteral("\\p{L}{3,}"));
    Words words;
    for (auto it = word.globalMatch(text); it.hasNext();)
        words.insert(it.next().captured().toLower());
    return words;
}

QString ProgramFile(const char* name)
{
    return QFileInfo(QStringLiteral(KORVANEL_PROGRAM)).dir().filePath(QLatin1String(name));
}

QString EnglishFile()
{
    QFile file(ProgramFile("LANGUAGES/english.lng"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return QString::fromLatin1(file.readAll());
}

/// The words of the built-in texts that the English ones don't have, and some that tell German anywhere.
Words GermanWords()
{
    Words words =
        WordsOf(QStringLiteral("der die das und oder nicht ist sind wird werden ein eine einen mit von auf bis "
                               "aus bei nach kein keine Sie Ihre wurde Hilfe Suche Ordner Seite Wert"));
    for (const TextSection& section : TextSections())
        for (const TextLine& line : section.lines)
            words += WordsOf(QString::fromUtf8(line.german));
    return words - WordsOf(EnglishFile());
}

class EnglishProgram : public ProjectTest
{
protected:
    EnglishProgram()
    {
        qputenv("XDG_CONFIG_HOME", PathOf("settings").toUtf8()); // those of the program
        options.emplace(App().sProgramDir);
        App().ProgSettings = &*options;
        options->SetLanguageFile("english.lng");
        // The remarks of the motor database are data, and German.
        const QString database = PathOf("MOTORS.MDB");
        EXPECT_TRUE(QFile::copy(ProgramFile("MOTORDATABASE/MOTOR_DB.MDB"), database));
        QFile(database).setPermissions(QFile::ReadOwner | QFile::WriteOwner);
        SQLite::Database(database.toStdString(), SQLite::OPEN_READWRITE)
            .exec("UPDATE Motor SET Hersteller='M ' || set_ID");
        options->SetMotorDatabase(database);
    }
    /// The worked example, as somebody would have typed it who speaks English.
    void MakeExample()
    {
        CreateProject(2, "Pump.MDB");
        App().sProjectName = "Pump 3";
        App().sCompany = "Water Works";
        App().sEditor = "Maintenance";
        App().sDescription = "Upright, outdoors";
        PutExample(*options);
        App().MachineI.record.Hersteller = "Test bench";
        ASSERT_TRUE(CopyMachineIntoProject(App().MachineI.record, WhichMachine::I));
        ASSERT_TRUE(SaveProject());
    }
    void Start()
    {
        program.Start();
        program.WaitForWindow("MainForm");
    }
    void OpenExample()
    {
        MakeExample();
        Start();
        program.Trigger("mnuOpen");
        program.GivePath(App().sProjectPath);
        Look("message", "question");
        program.AnswerBox("No");
        program.WaitForControl("FormF1");
    }
    QString GermanIn(QString text) const
    {
        const Words found = WordsOf(text.remove(folder.path())) & german;
        static const QRegularExpression letters(QStringLiteral("[äöüÄÖÜß]"));
        return QStringList(found.values()).join(u' ') + letters.match(text).captured();
    }
    /// Every text of the windows on show; a picture of one of them stays where KORVANEL_PICTURES names a folder.
    void Look(const QString& window, const char* name)
    {
        const QJsonArray shown = program.Texts();
        EXPECT_GT(shown.size(), 10) << name;
        for (const QJsonValue& entry : shown) {
            const QString text = entry["text"].toString();
            EXPECT_EQ(GermanIn(text).toStdString(), "")
                << name << ", " << entry["name"].toString().toStdString() << ": " << text.toStdString();
        }
        const QString pictures = qEnvironmentVariable("KORVANEL_PICTURES");
        if (!pictures.isEmpty() && window != "message")
            program.Grab(window, QDir(pictures).filePath(QStringLiteral("english-%1.png").arg(QLatin1String(name))));
    }
    void LookAtPage(const char* entry, const char* page)
    {
        program.Trigger(QLatin1String(entry));
        program.WaitForControl(QLatin1String(page));
        Look("MainForm", page);
    }
    void LookAtTabs(const char* tabs, const char* page)
    {
        const QJsonArray names = program.Read(QLatin1String(tabs))["items"].toArray();
        for (qsizetype i = 0; i < names.size(); ++i) {
            program.Choose(QLatin1String(tabs), names[i].toString());
            Look("MainForm", qPrintable(QStringLiteral("%1-%2").arg(QLatin1String(page)).arg(i)));
        }
    }
    void LookAtDialog(const char* button, const char* dialog, const char* end = "cmdOK")
    {
        program.Trigger(QLatin1String(button));
        program.WaitForControl(QLatin1String(dialog));
        Look(QLatin1String(dialog), dialog);
        program.Trigger(QLatin1String(end));
        program.WaitUntilGone(QLatin1String(dialog));
    }
    void LookAtBox(const char* name, const char* answer)
    {
        program.WaitForWindow("message");
        Look("message", name);
        program.AnswerBox(QLatin1String(answer));
        program.WaitForQuiet();
    }
    void End()
    {
        program.Trigger("mnuEnd");
        EXPECT_EQ(program.WaitForEnd(), 0);
    }

    std::optional<clsProgSettings> options;
    ProgramDriver program{PathOf("settings")};
    const Words german = GermanWords();
};

TEST_F(EnglishProgram, MainWindowAndItsDialogs)
{
    ASSERT_GT(german.size(), 300);
    Start();
    EXPECT_EQ(program.Text("mnuFile"), "&File");
    EXPECT_EQ(program.Text("mnuLaname_1"), "English");
    EXPECT_TRUE(program.Read("mnuLaname_1")["checked"].toBool());
    EXPECT_FALSE(program.Read("mnuLaname_0")["checked"].toBool());
    Look("MainForm", "main");
    LookAtDialog("mnuInfo", "FormH2");
    LookAtDialog("mnuDatabaseOpt", "FormH11", "cmdAbort");
    program.Trigger("mnuModbus");
    program.WaitForControl("FormH5");
    Look("FormH5", "FormH5");
    program.Choose("tabMODBUS", "Address range");
    Look("FormH5", "FormH5-range");
    program.Type("txtAddress_2", "300");
    program.Trigger("cmdSearch_1");
    program.WaitUntilEnabled("cmdCancel");
    Look("FormH5", "FormH5-refused");
    program.Trigger("cmdCancel");
    program.WaitUntilGone("FormH5");
    program.Trigger("mnuOpen");
    program.WaitForWindow("dlgFile");
    Look("dlgFile", "open");
    program.GivePath(ProgramFile("LOGO.BMP"));
    LookAtBox("no-project", "OK");
    program.Trigger("mnuConvert");
    program.WaitForWindow("dlgFile");
    Look("dlgFile", "convert");
    program.GivePath({});
    LookAtBox("nothing-chosen", "OK");
    program.Trigger("mnuLaname_0");
    LookAtBox("language", "No");
    EXPECT_TRUE(program.Read("mnuLaname_1")["checked"].toBool());
    End();
}

TEST_F(EnglishProgram, EveryPageInEveryNetConfiguration)
{
    Start();
    program.Trigger("mnuNew");
    program.GivePath(PathOf("New.MDB"));
    program.WaitForControl("FormF1");
    Look("MainForm", "FormF1");
    const std::array tabs{0, 1, 3, 0, 1, 3, 2};
    for (int netConf = 0; netConf < 7; ++netConf) {
        program.Trigger("mnuConfiguration");
        program.WaitForControl("FormF2");
        const QJsonArray names = program.Read("tabPage")["items"].toArray();
        program.Choose("tabPage", names[tabs.at(static_cast<std::size_t>(netConf))].toString());
        program.Trigger(QStringLiteral("optNetConf_%1").arg(netConf));
        const QByteArray number = QByteArray::number(netConf);
        Look("MainForm", ("FormF2-" + number).constData());
        if (netConf == 2 || netConf == 5)
            continue; // they want a machine first
        program.Trigger("mnuDeviceConf");
        program.WaitForControl("FormF3");
        if (netConf == 0) {
            LookAtTabs("tabPage", "FormF3");
            program.Choose("tabPage", "Instrument");
        }
        for (const QJsonValue& device : program.Read("cboSelect")["items"].toArray()) {
            program.Choose("cboSelect", device.toString());
            Look("MainForm", ("FormF3-" + device.toString().toUtf8().left(9).replace(' ', '-') + number).constData());
        }
        LookAtPage("mnuOnlineDevice", "FormF4");
        Look("MainForm", ("FormF4-" + number).constData());
        LookAtDialog("cmdInfo", "FormH7");
        LookAtPage("mnuOfflineDevice", "FormF5");
        LookAtPage("mnuResTable", "FormF6");
        LookAtPage("mnuResGraph", "FormF8");
        LookAtPage("mnuResPrint", "FormF9");
    }
    End();
}

TEST_F(EnglishProgram, FirstSelfDiagnosisWithoutAnInstrument)
{
    QSettings(PathOf("settings/KORVANEL/KORVANEL.ini"), QSettings::IniFormat).setValue("Ports/COM1", PathOf("none"));
    Start();
    program.Trigger("mnuNew");
    program.GivePath(PathOf("New.MDB"));
    program.WaitForControl("FormF1");
    LookAtPage("mnuDeviceConf", "FormF3");
    program.Trigger("cmdDiag");
    LookAtBox("no-port", "OK");
    Look("MainForm", "after-diagnosis");
    End();
}

TEST_F(EnglishProgram, MachinePageAndItsDialogs)
{
    OpenExample();
    program.Trigger("mnuDatabase");
    LookAtBox("question", "No");
    program.WaitForControl("FormF10");
    LookAtTabs("tabAsync", "FormF10");
    LookAtDialog("cmdInfo_1", "FormH8");
    program.Choose("tabAsync", "Machines");
    LookAtDialog("cmdSearchWin", "FormH6", "cmdCancel");
    program.Trigger("cmdEdit_0");
    program.Type("txtBemess_0", "999");
    program.Trigger("mnuGeneralData");
    LookAtBox("machine-not-applied", "No");
    End();
}

TEST_F(EnglishProgram, EditorAndItsMessages)
{
    OpenExample();
    LookAtPage("mnuOfflineDevice", "FormF5");
    QThread::msleep(500); // until the picture of all sets is drawn
    Look("MainForm", "editor");
    LookAtDialog("cmdSet_2", "FormH15", "cmdCancel");
    program.Type("txtInterval", "99");
    program.Key("Return", "txtInterval");
    LookAtBox("interval", "OK");
    program.Type("txtInterval", "60");
    program.Key("Return", "txtInterval");
    End();
}

TEST_F(EnglishProgram, EvaluationWithBothMachines)
{
    OpenExample();
    LookAtPage("mnuResTable", "FormF6");
    LookAtTabs("TabEvaluation", "FormF6");
    LookAtDialog("cmdOptions_1", "FormH10", "cmdAbort");
    LookAtDialog("cmdOptions_2", "FormH9", "cmdAbort");
    program.Choose("TabEvaluation", "Motor/Generator II");
    program.Trigger("cmdChoice");
    program.WaitForControl("FormH12");
    for (const auto& [field, text] : {std::pair{"txtSearch_0", "2"}, {"txtSearch_1", "22"}, {"txtSearch_2", "400"}})
        program.Type(field, text);
    program.Trigger("cmdSearch");
    program.WaitUntilEnabled("cmdOK");
    Look("FormH12", "FormH12");
    program.Trigger("cmdOK");
    program.WaitUntilGone("FormH12");
    program.WaitUntilEnabled("cmdCompare");
    Look("MainForm", "second-machine");
    LookAtDialog("cmdCompare", "FormH13");
    LookAtDialog("cmdEvaluation", "FormH14");
    LookAtDialog("cmdInfo", "FormH8");
    LookAtDialog("cmdPrint", "FormH16");
    LookAtPage("mnuResGraph", "FormF8");
    program.WaitUntilEnabled("cmdRedraw");
    Look("MainForm", "diagrams");
    program.Mouse("Picture1", "click", {200, 120}, "right");
    program.WaitForControl("shpTarget");
    LookAtDialog("cmdInfo", "FormH17");
    LookAtPage("mnuResPrint", "FormF9");
    QElapsedTimer timer;
    timer.start();
    while (!program.Text("lblPage").startsWith("Page ") && timer.elapsed() < 20'000)
        QThread::msleep(20);
    Look("MainForm", "report");
    End();
}

TEST_F(EnglishProgram, ExportAndReport)
{
    OpenExample();
    program.Trigger("mnuResTable");
    program.WaitForControl("FormF6");
    program.Trigger("cmdExcel");
    program.WaitForWindow("dlgFile");
    Look("dlgFile", "export");
    program.GivePath(PathOf("Pump.txt"));
    program.WaitUntilEnabled("cmdExcel");
    const QString text = QString::fromUtf8(ContentOf("Pump.txt"));
    EXPECT_EQ(GermanIn(text).toStdString(), "") << text.toStdString();
    EXPECT_TRUE(text.contains("Measuring interval [s]: \t60"));
    EXPECT_TRUE(text.contains("Energy for 1000 load cycles"));

    program.Trigger("mnuResPrint");
    program.WaitForControl("FormF9");
    program.WaitUntilEnabled("cmdPrint");
    program.Choose("cboPrinters", "PDF file");
    program.Trigger("cmdPrint");
    program.GivePath(PathOf("Pump.pdf"));
    QElapsedTimer timer;
    timer.start();
    while (!QFile::exists(PathOf("Pump.pdf")) && timer.elapsed() < 20'000)
        QThread::msleep(20);
    const PdfDocument report = ReadPdf(PathOf("Pump.pdf"));
    ASSERT_GT(report.pages.size(), 3U);
    for (const PdfPage& page : report.pages)
        EXPECT_EQ(GermanIn(page.text).toStdString(), "") << page.text.toStdString();
    EXPECT_TRUE(report.pages.front().text.contains("Project evaluation", Qt::CaseInsensitive));
    if (const QString pictures = qEnvironmentVariable("KORVANEL_PICTURES"); !pictures.isEmpty())
        for (int page = 1; page <= static_cast<int>(report.pages.size()); ++page)
            PdfPageImage(PathOf("Pump.pdf"), page, 80)
                .save(QDir(pictures).filePath(QStringLiteral("english-paper-%1.png").arg(page)));
    program.WaitUntilEnabled("cmdPrint");
    End();
}

TEST_F(EnglishProgram, ManualStandsBesideTheFile)
{
    EXPECT_TRUE(EnglishFile().contains("Documentation_eng.pdf"));
    const PdfDocument manual = ReadPdf(ProgramFile("LANGUAGES/Documentation_eng.pdf"));
    ASSERT_GT(manual.pages.size(), 5U);
    EXPECT_TRUE(manual.pages.front().text.contains("Creating a project"));
}

} // namespace
} // namespace korvanel::test
