// The message shell: each box with its title, icon and buttons, and what an answer does to the block.
#include "core/Messages.h"
#include "core/texts/DefaultTexts.h"

#include "support/Fixture.h"

#include <stdexcept>

namespace korvanel::test {

namespace {

class MessagesTest : public BlockTest
{
protected:
    /// The one box that was shown, tested for its kind..
    void ExpectBox(const QString& title, const QString& text, BoxIcon icon, BoxButtons buttons) const
    {
        ASSERT_EQ(shell.boxes.size(), 1u);
        EXPECT_EQ(shell.boxes[0].title, title);
        EXPECT_EQ(shell.boxes[0].text, text);
        EXPECT_EQ(shell.boxes[0].icon, icon);
        EXPECT_EQ(shell.boxes[0].buttons, buttons);
    }
};

} // namespace

TEST_F(MessagesTest, ShowError_HasExclamationIconAndItsTitle)
{
    ShowError("Etwas ging schief");
    ExpectBox("Fehlermeldung", "Etwas ging schief", BoxIcon::Exclamation, BoxButtons::Ok);
}

TEST_F(MessagesTest, ShowInformation_HasNoIcon)
{
    ShowInformation("Alles gut");
    ExpectBox("Information", "Alles gut", BoxIcon::None, BoxButtons::Ok);
}

TEST_F(MessagesTest, ShowBadFormat_NamesThePath)
{
    ShowBadFormat("/tmp/a.MDB");
    ExpectBox("Fehlermeldung", "Ungültiges Dateiformat:\n/tmp/a.MDB", BoxIcon::Exclamation, BoxButtons::Ok);
}

TEST_F(MessagesTest, ShowBadFormat_LeavesTheFileErrorToItsCaller)
{
    App().bFileError = true;
    ShowBadFormat("/tmp/a.MDB");
    EXPECT_TRUE(App().bFileError);
}

TEST_F(MessagesTest, ShowNotFound_NamesThePath)
{
    ShowNotFound("/tmp/a.MDB");
    ExpectBox("Fehlermeldung", "Konnte Pfad/Datei nicht finden: \n/tmp/a.MDB", BoxIcon::Exclamation, BoxButtons::Ok);
}

TEST_F(MessagesTest, ShowNotFound_SetsLabelToCurrentDirectoryAndDefaultFileWithoutSeparator)
{
    App().sDefaultProjectFile = "PROJECT1.KVL";
    ShowNotFound("/tmp/a.MDB");
    EXPECT_EQ(App().sProjectLabel, QDir::toNativeSeparators(QDir::currentPath()) + "PROJECT1.KVL");
}

TEST_F(MessagesTest, ShowNotFound_RefreshesPageAndStatusBar)
{
    ShowNotFound("/tmp/a.MDB");
    EXPECT_EQ(shell.calls, (QStringList{"RefreshPage", "RefreshStatusBar"}));
}

TEST_F(MessagesTest, ShowNotFound_PresetsTheDialogAndClearsTheFileError)
{
    App().bFileError = true;
    App().sDialogPreset = "*.MDB";
    ShowNotFound("/tmp/a.MDB");
    EXPECT_EQ(App().sDialogPreset, "*.KVL");
    EXPECT_FALSE(App().bFileError);
}

TEST_F(MessagesTest, ShowPathNotFound_TellsOnly)
{
    App().bFileError = true;
    App().sProjectLabel = "label";
    ShowPathNotFound("/tmp/a.txt");
    ExpectBox("Fehlermeldung", "Konnte Pfad/Datei nicht finden: \n/tmp/a.txt", BoxIcon::Exclamation, BoxButtons::Ok);
    EXPECT_EQ(App().sProjectLabel, "label");
    EXPECT_TRUE(App().bFileError);
    EXPECT_TRUE(shell.calls.isEmpty());
}

TEST_F(MessagesTest, ConfirmDelete_AsksWithYesAndNo)
{
    shell.answers = {Answer::Yes};
    ConfirmDelete("alt.MDB");
    ExpectBox("Achtung", "Datei wirklich löschen?\nalt.MDB", BoxIcon::Question, BoxButtons::YesNo);
}

TEST_F(MessagesTest, ConfirmDelete_NoSetsTheFileError)
{
    shell.answers = {Answer::No};
    ConfirmDelete("alt.MDB");
    EXPECT_TRUE(App().bFileError);
}

TEST_F(MessagesTest, ConfirmDelete_YesLeavesTheFileErrorAsItWas)
{
    for (const bool before : {false, true}) {
        shell.answers = {Answer::Yes};
        App().bFileError = before;
        ConfirmDelete("alt.MDB");
        EXPECT_EQ(App().bFileError, before);
    }
}

TEST_F(MessagesTest, ConfirmOverwrite_AsksWithYesAndNo)
{
    shell.answers = {Answer::Yes};
    ConfirmOverwrite("/tmp/da.MDB");
    ExpectBox("Achtung", "Überschreiben der Datei\n/tmp/da.MDB", BoxIcon::Question, BoxButtons::YesNo);
}

TEST_F(MessagesTest, ConfirmOverwrite_ClearsTheFileErrorOnYesAndSetsItOtherwise)
{
    struct Case
    {
        Answer answer;
        bool isError;
    };
    for (const Case& c : {Case{Answer::Yes, false}, Case{Answer::No, true}, Case{Answer::Cancel, true}}) {
        for (const bool before : {false, true}) {
            shell.answers = {c.answer};
            App().bFileError = before;
            ConfirmOverwrite("/tmp/da.MDB");
            EXPECT_EQ(App().bFileError, c.isError) << static_cast<int>(c.answer) << ' ' << before;
        }
    }
}

TEST_F(MessagesTest, DeleteFile_RemovesTheFile)
{
    WriteContent("weg.txt", "x");
    DeleteFile(PathOf("weg.txt"));
    EXPECT_FALSE(QFile::exists(PathOf("weg.txt")));
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(MessagesTest, DeleteFile_SwallowsAFailure)
{
    ASSERT_TRUE(QDir(folder.path()).mkdir("ordner"));
    WriteContent("ordner/inhalt.txt", "x");
    DeleteFile(PathOf("fehlt.txt"));
    DeleteFile(PathOf("ordner"));
    EXPECT_TRUE(QFile::exists(PathOf("ordner/inhalt.txt")));
    EXPECT_TRUE(shell.boxes.empty());
    EXPECT_FALSE(App().bFileError);
}

TEST_F(MessagesTest, CheckNumberRange_PassesInSilenceAndKeepsTheNormalisedText)
{
    QString value = "1.5";
    EXPECT_TRUE(CheckNumberRange(value, 0, 10));
    EXPECT_EQ(value, "1,5");
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(MessagesTest, CheckNumberRange_TellsMinimumAndMaximumFollowedByABlank)
{
    QString value = "11";
    EXPECT_FALSE(CheckNumberRange(value, 0.5, 10));
    ExpectBox("Fehlermeldung", "Der eingegebene Wert muss sich\nzwischen 0,5 und 10  befinden.", BoxIcon::Exclamation,
              BoxButtons::Ok);
}

TEST_F(MessagesTest, CheckNumberRange_EmptyBoxBecomesOne)
{
    QString value;
    EXPECT_TRUE(CheckNumberRange(value, 0, 10));
    EXPECT_EQ(value, "1");
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(MessagesTest, CheckNumberRange_EmptyBoxOutsideTheRangeIsTold)
{
    QString value;
    EXPECT_FALSE(CheckNumberRange(value, 2, 10));
    EXPECT_EQ(value, "1");
    EXPECT_EQ(shell.BoxTexts(), QStringList{"Der eingegebene Wert muss sich\nzwischen 2 und 10  befinden."});
}

TEST_F(MessagesTest, CheckNumberRange_TellsOfTextThatIsNoNumber)
{
    QString value = "abc";
    EXPECT_FALSE(CheckNumberRange(value, 0, 10));
    EXPECT_EQ(value, "abc");
    EXPECT_EQ(shell.boxes.size(), 1u);
}

TEST_F(MessagesTest, ReportFailure_NamesOperationAndReason)
{
    ReportFailure("Export", "disk full");
    ExpectBox("Fehlermeldung", "Export\ndisk full", BoxIcon::Exclamation, BoxButtons::Ok);
}

TEST_F(MessagesTest, RunGuarded_RunsTheRoutineInSilence)
{
    int runs = 0;
    RunGuarded("Export", [&] { ++runs; });
    EXPECT_EQ(runs, 1);
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(MessagesTest, RunGuarded_ReportsWhatEscapes)
{
    EXPECT_NO_THROW(RunGuarded("Export", [] { throw std::runtime_error("Gerät fehlt"); }));
    ExpectBox("Fehlermeldung", "Export\nGerät fehlt", BoxIcon::Exclamation, BoxButtons::Ok);
}

TEST_F(MessagesTest, Boxes_FollowTheTextTable)
{
    texts::titleError = "Error";
    texts::badFormat = "Bad format:";
    ShowBadFormat("x");
    ExpectBox("Error", "Bad format:\nx", BoxIcon::Exclamation, BoxButtons::Ok);
}

} // namespace korvanel::test
