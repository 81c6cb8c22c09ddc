// Recent files, the end of the program and the change of the language, on the real main window.
#include "core/SettingsStore.h"
#include "core/clsProgSettings.h"
#include "support/WindowFixture.h"

#include <QMenu>

namespace korvanel::test {
namespace {

class MainWindowEnd : public WindowTest
{
protected:
    QStringList FileCaptions()
    {
        QStringList captions;
        for (const QAction* entry : window.Menu().SubMenu("mnuFile")->actions())
            if (!entry->isSeparator())
                captions << entry->text();
        return captions;
    }
};

// Recent files

TEST_F(MainWindowEnd, RecentFiles_StandInTheMenuAboveEnd)
{
    window.AddFileMRU("/a/eins.MDB");
    window.AddFileMRU("/a/R&D.MDB");
    const QStringList captions = FileCaptions();
    EXPECT_EQ(captions.mid(7), (QStringList{"/a/R&&D.MDB", "/a/eins.MDB", "&Beenden"}));
    EXPECT_TRUE(Find<QAction>("mnuFileMRU_0").isVisible()) << "the line above them";
    QString opened;
    window.Menu().OnRecentFile([&](const QString& path) { opened = path; });
    Find<QAction>("mnuFileMRU_1").trigger();
    EXPECT_EQ(opened, "/a/R&D.MDB");
}

TEST_F(MainWindowEnd, RecentFiles_WithoutEntriesTheLineIsInvisible)
{
    EXPECT_FALSE(Find<QAction>("mnuFileMRU_0").isVisible());
}

// The end of the program

TEST_F(MainWindowEnd, End_CancelKeepsTheProgramWithoutAPage)
{
    OpenInWindow(0);
    window.UnloadAndOpen(1);
    ASSERT_TRUE(QFile::remove(App().sProjectPath));
    App().bProjectDirty = true;
    shell.answers = {Answer::Cancel};
    window.EndProgram();
    EXPECT_TRUE(window.isVisible());
    EXPECT_TRUE(App().bProjectOpen);
    EXPECT_EQ(window.PageOnShow(), nullptr);
}

TEST_F(MainWindowEnd, End_ClosesTheWindow)
{
    OpenInWindow(0);
    window.UnloadAndOpen(1);
    window.EndProgram();
    EXPECT_FALSE(window.isVisible());
    EXPECT_FALSE(App().bProjectOpen);
}

TEST_F(MainWindowEnd, CloseButton_CancelKeepsWindowAndProjectButNoPage)
{
    OpenInWindow(0);
    window.UnloadAndOpen(1);
    window.AddFileMRU("/a/eins.MDB");
    App().sCompany = QStringLiteral("Werk");
    App().bProjectDirty = true;
    shell.answers = {Answer::Cancel};
    EXPECT_FALSE(window.close());
    EXPECT_TRUE(window.isVisible());
    EXPECT_TRUE(App().bProjectOpen);
    EXPECT_EQ(window.PageOnShow(), nullptr);
    EXPECT_EQ(Query("SELECT Text FROM Overview WHERE Name='Company'"), "Werk") << "the header is saved all the same";
    EXPECT_EQ(ReadSection("KORVANEL", "MRU").at("1"), "/a/eins.MDB");
    DeleteSection("KORVANEL", "MRU");
}

TEST_F(MainWindowEnd, CloseButton_ClosesEveryOtherWindow)
{
    QWidget other;
    other.show();
    EXPECT_TRUE(window.close());
    EXPECT_FALSE(other.isVisible());
    DeleteSection("KORVANEL", "MRU");
}

TEST_F(MainWindowEnd, Close_WaitsForTheEndOfAPassOverTheSets)
{
    OpenInWindow(0);
    window.UnloadAndOpen(1);
    App().iSetCount = 5000;
    window.ShowProgress(Progress::Begin, 0);
    EXPECT_FALSE(window.close());
    EXPECT_TRUE(App().bProjectOpen);
    EXPECT_NE(window.PageOnShow(), nullptr) << "the routine that goes on still needs it";
    window.ShowProgress(Progress::End, 1);
    EXPECT_TRUE(window.close());
    EXPECT_FALSE(App().bProjectOpen);
    DeleteSection("KORVANEL", "MRU");
}

TEST_F(MainWindowEnd, Language_NoSavesNothing)
{
    clsProgSettings settings(folder.path());
    App().ProgSettings = &settings;
    shell.answers = {Answer::No};
    window.ChooseLanguage("english.lng");
    EXPECT_EQ(
        shell.BoxTexts(),
        QStringList{"Die Änderung der Sprache tritt erst beim nächsten Programmstart in Kraft.\nMöchten sie jetzt "
                    "einen Neustart von KORVANEL durchführen?"});
    EXPECT_EQ(settings.LanguageFile(), "standard");
    EXPECT_EQ(App().iExitAction, kExitNone);
    EXPECT_TRUE(window.isVisible());
}

TEST_F(MainWindowEnd, Language_CancelledClosingStartsNothing)
{
    clsProgSettings settings(folder.path());
    App().ProgSettings = &settings;
    OpenInWindow(0);
    App().bProjectDirty = true;
    shell.answers = {Answer::Yes, Answer::Cancel};
    window.ChooseLanguage("english.lng");
    EXPECT_EQ(settings.LanguageFile(), "english.lng");
    EXPECT_EQ(App().iExitAction, kExitCancelled);
    EXPECT_TRUE(window.isVisible());
    DeleteSection("KORVANEL", "Settings");
    DeleteSection("KORVANEL", "MRU");
}

} // namespace
} // namespace korvanel::test
