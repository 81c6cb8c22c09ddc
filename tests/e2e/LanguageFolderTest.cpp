// The real program with a folder of languages that nobody has filled with translations.
#include "remote/ProgramDriver.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace korvanel::test {
namespace {

class LanguageFolder : public ::testing::Test
{
protected:
    void SetUp() override
    {
        const QDir here(folder.path());
        ASSERT_TRUE(here.mkpath("program/PROJECTS") && here.mkpath("program/LANGUAGES"));
        const QString original = QStringLiteral(KORVANEL_PROGRAM);
        ASSERT_TRUE(QFile::copy(original, program));
        ASSERT_TRUE(QFile::copy(QFileInfo(original).dir().filePath("LOGO.BMP"), folder.filePath("program/LOGO.BMP")));
    }
    QString PathOf(const QString& language) const { return folder.filePath("program/LANGUAGES/" + language); }
    void Write(const QString& language, const QByteArray& content) const
    {
        QFile file(PathOf(language));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }
    QSettings Store() const { return {settings + "/KORVANEL/KORVANEL.ini", QSettings::IniFormat}; }

    QTemporaryDir folder;
    QString program = folder.filePath("program/KORVANEL");
    QString settings = folder.filePath("settings");
};

} // namespace

TEST_F(LanguageFolder, OfWhatIsNoLanguageOffersWhatIsOneAndStartsInGerman)
{
    ASSERT_TRUE(QDir().mkdir(PathOf("a-directory.lng")));
    ASSERT_EQ(mkfifo(PathOf("b-pipe.lng").toLocal8Bit().constData(), 0600), 0);
    ASSERT_TRUE(QFile::link(PathOf("nowhere"), PathOf("c-link.lng")));
    ASSERT_TRUE(QFile::link("/dev/zero", PathOf("d-zero.lng")));
    Write("e-empty.lng", "");
    Write("f-zeros.lng", QByteArray(3 << 20, '\0'));
    Write("g-nameless.lng", "[MAIN]\nsize=1\n001 &File\n");
    Write("h-broken.lng", "lang=Broken & <b>torn</b>\n[MAIN]\nsize=2\n002 &New\n001 &File\n");
    Write("i-good.lng", "\xEF\xBB\xBFlang=Čeština\n[MAIN]\nsize=1\n001 &Soubor\n");
    Store().setValue("Settings/LangFile", "h-broken.lng");
    {
        ProgramDriver driver(settings, program);
        driver.Start();
        EXPECT_EQ(driver.AnswerBox("OK"), "Unable to load the language file!\nLoading standard language!");
        driver.WaitForWindow("MainForm");
        EXPECT_EQ(driver.Text("mnuFile"), "&Datei");
        EXPECT_EQ(driver.Text("mnuLaname_0"), "standard");
        EXPECT_EQ(driver.Text("mnuLaname_1"), "Broken && <b>torn</b>");
        EXPECT_EQ(driver.Text("mnuLaname_2"), "Čeština");
        EXPECT_FALSE(driver.Read("mnuLaname_3")["ok"].toBool());
        driver.Trigger("mnuEnd");
        EXPECT_EQ(driver.WaitForEnd(), 0);
    }
    EXPECT_EQ(Store().value("Settings/LangFile").toString(), "standard");
    Store().setValue("Settings/LangFile", "i-good.lng");
    ProgramDriver driver(settings, program);
    driver.Start();
    driver.WaitForWindow("MainForm");
    EXPECT_EQ(driver.Text("mnuFile"), "&Soubor");
    EXPECT_EQ(driver.Text("mnuNew"), "") << "an entry that the section lacks";
}

/// The texts that the toolkit has of its own, here in its file dialog, are in the language that the file names.
TEST_F(LanguageFolder, LocaleOfAFileIsThatOfTheToolkit)
{
    struct Case
    {
        const char* locale;
        const char* label;
    };
    for (const Case& c : {Case{"fr", "Fichiers de type :"}, Case{"../../fr", "Files of type:"},
                          Case{"xx", "Files of type:"}, Case{"de", "Dateien des Typs:"}}) {
        SCOPED_TRACE(c.locale);
        QByteArray content = "lang=Probe\n[DEFAULT]\nsize=143\n";
        for (int i = 1; i < 143; ++i)
            content += QByteArray::number(i).rightJustified(3, '0') + " text\n";
        Write("probe.lng", content + "143 " + c.locale + "\n");
        Store().setValue("Settings/LangFile", "probe.lng");
        ProgramDriver driver(settings, program);
        driver.Start();
        driver.WaitForWindow("MainForm");
        driver.Trigger("mnuOpen");
        driver.WaitForControl("fileTypeLabel");
        EXPECT_EQ(driver.Text("fileTypeLabel"), c.label);
    }
}

TEST_F(LanguageFolder, OfFortyThousandFilesKeepsTheProgramUsable)
{
    constexpr int kFiles = 40'000;
    for (int i = 1; i <= kFiles; ++i)
        Write(QStringLiteral("%1.lng").arg(i, 5, 10, QLatin1Char('0')), "lang=" + QByteArray::number(i) + "\n");
    ProgramDriver driver(settings, program);
    QElapsedTimer timer;
    timer.start();
    driver.Start();
    driver.WaitForWindow("MainForm");
    RecordProperty("milliseconds", static_cast<int>(timer.elapsed()));
    EXPECT_EQ(driver.Text("mnuLaname_40000"), "40000");
    driver.Trigger("mnuEnd");
    EXPECT_EQ(driver.WaitForEnd(), 0);
}

} // namespace korvanel::test
