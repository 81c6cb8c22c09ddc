#include "language/OldProjectConversion.h"

#include "core/Clock.h"
#include "data/Recomputation.h"
#include "language/ConversionFixture.h"
#include "project/ProjectCommands.h"

namespace korvanel::test {
namespace {

class OldProjectConversion : public ConversionTest
{
protected:
    /// Chooses in both dialogs and converts, as the menu does.
    void ConvertFromMenu(const OldFileBuilder& file)
    {
        WriteContent("alt.KVL", file.Bytes());
        shell.openPaths = {source};
        shell.savePaths = {target};
        ConvertOldProject();
    }
};

// The menu entry

TEST_F(OldProjectConversion, AsksForBothFilesAndTellsOfItsSuccess)
{
    ConvertFromMenu(OldFileBuilder().Body(SomeRecords(3)));
    ASSERT_EQ(shell.openQuestions.size(), 1U);
    EXPECT_EQ(shell.openQuestions[0].title, "Zu konvertierende VELDRIK Datei öffnen");
    EXPECT_EQ(shell.openQuestions[0].filter, "Alle Dateien (*.*)|*.*|KVL Projekte (*.KVL)|*.KVL|");
    EXPECT_EQ(shell.openQuestions[0].preset, "*.KVL");
    ASSERT_EQ(shell.saveQuestions.size(), 1U);
    EXPECT_EQ(shell.saveQuestions[0].title, "Konvertierte Datei speichern unter");
    EXPECT_EQ(shell.saveQuestions[0].suggestion, PathOf("alt.MDB"));
    EXPECT_EQ(shell.BoxTexts(), QStringList{"Konvertierung erfolgreich abgeschlossen."});
    EXPECT_EQ(shell.boxes[0].title, "Information");
    EXPECT_EQ(shell.calls.last(), "AddFileMRU " + target);
    EXPECT_EQ(App().sProjectPath, target);
    EXPECT_FALSE(App().bProjectOpen);
    EXPECT_FALSE(App().bProjectDirty);
    EXPECT_EQ(App().iCurrentSet, 1);
    EXPECT_EQ(shell.waiting, 0);
    EXPECT_EQ(FilesMade(), QStringList{"neu.MDB"});
}

TEST_F(OldProjectConversion, WithoutAFile_NothingIsChosen)
{
    ConvertOldProject();
    EXPECT_EQ(shell.BoxTexts(), QStringList{kNothingChosen});
    EXPECT_TRUE(shell.saveQuestions.empty());
}

TEST_F(OldProjectConversion, ASuggestionConfirmedUnchanged_CancelsTheConversion)
{
    WriteContent("alt.KVL", OldFileBuilder().Bytes());
    shell.openPaths = {source};
    shell.savePaths = {PathOf("alt.MDB")};
    ConvertOldProject();
    EXPECT_EQ(shell.BoxTexts(), QStringList{"Konvertierung abgebrochen."});
    EXPECT_EQ(FilesMade(), QStringList());
}

TEST_F(OldProjectConversion, ADialogThatIsClosed_CancelsTheConversion)
{
    WriteContent("alt.KVL", OldFileBuilder().Bytes());
    shell.openPaths = {source};
    ConvertOldProject();
    EXPECT_EQ(shell.BoxTexts(), QStringList{"Konvertierung abgebrochen."});
}

TEST_F(OldProjectConversion, TheSuggestion_EndsAtTheLastPointOfTheNameAndNotOfTheFolder)
{
    struct Case
    {
        const char* name;
        const char* suggestion;
    };
    ASSERT_TRUE(QDir(folder.path()).mkpath("a.b"));
    for (const Case& c : {Case{"x.y.kvl", "x.y.MDB"}, Case{"ohne", "ohne.MDB"}, Case{"a.b/ohne", "a.b/ohne.MDB"}}) {
        WriteContent(c.name, OldFileBuilder().Bytes());
        shell.openPaths = {PathOf(c.name)};
        ConvertOldProject();
        EXPECT_EQ(shell.saveQuestions.back().suggestion, PathOf(c.suggestion));
    }
}

TEST_F(OldProjectConversion, ADatabase_NeedsNoConversion)
{
    CreateProject(0, "projekt.KVL");
    WriteContent("jet.KVL", QByteArray("\0\1\0\0Standard Jet DB\0", 20));
    for (const char* name : {"projekt.KVL", "jet.KVL"}) {
        shell.openPaths = {PathOf(name)};
        ConvertOldProject();
        EXPECT_EQ(shell.boxes.back().text, "Es handelt sich um eine gültige Datei die nicht konvertiert werden muss.");
    }
    EXPECT_TRUE(shell.saveQuestions.empty());
}

TEST_F(OldProjectConversion, AFileThatIsNone_IsNotFound)
{
    for (const QString& path : {PathOf("fehlt.KVL"), folder.path()}) {
        shell.openPaths = {path};
        ConvertOldProject();
        EXPECT_EQ(shell.boxes.back().text, "Konnte Pfad/Datei nicht finden: \n" + path);
    }
    EXPECT_TRUE(shell.saveQuestions.empty());
}

TEST_F(OldProjectConversion, AWrongHead_IsToldWithThePathAndNeitherSuccessNorRecentFileFollows)
{
    WriteContent("alt.KVL", "FORMKVLX");
    shell.openPaths = {source};
    shell.savePaths = {target};
    ConvertOldProject();
    EXPECT_EQ(shell.BoxTexts(), QStringList{"Ungültiges Dateiformat:\n" + source});
    EXPECT_TRUE(shell.calls.filter("AddFileMRU").isEmpty());
    EXPECT_FALSE(App().bFileError);
    EXPECT_EQ(FilesMade(), QStringList());
}

TEST_F(OldProjectConversion, AnAgreedOverwriting_PutsTheNewProjectInThePlace)
{
    WriteContent("neu.MDB", "something else");
    shell.answers = {Answer::Yes};
    ConvertFromMenu(OldFileBuilder().Text("F101", "Pumpe"));
    EXPECT_EQ(shell.BoxTexts(),
              (QStringList{"Überschreiben der Datei\n" + target, "Konvertierung erfolgreich abgeschlossen."}));
    EXPECT_EQ(KeyText("Project Name"), "Pumpe");
}

TEST_F(OldProjectConversion, TheOldFileItself_IsNeverTheTarget)
{
    const QByteArray bytes = OldFileBuilder().Bytes();
    WriteContent("alt.MDB", bytes);
    ASSERT_TRUE(QDir(folder.path()).mkpath("x"));
    shell.openPaths = {PathOf("alt.MDB")};
    shell.savePaths = {PathOf("x/../alt.MDB")};
    ConvertOldProject();
    EXPECT_EQ(shell.BoxTexts(), QStringList{"Konvertierung abgebrochen."});
    EXPECT_EQ(ContentOf("alt.MDB"), bytes);
}

// What is stored

TEST_F(OldProjectConversion, AProjectWithoutSets_IsComplete)
{
    ASSERT_TRUE(Convert(OldFileBuilder().Body({})));
    EXPECT_EQ(QueryTarget("SELECT count(*) FROM SampledValues"), "0");
    EXPECT_EQ(KeyText("Measurement Term"), "");
    EXPECT_EQ(KeyText("Project Saved"), "2026-03-14 15:09:26");
    EXPECT_EQ(QueryTarget("SELECT count(*) FROM Settings WHERE Name LIKE 'Checks %'"), "50");
    EXPECT_EQ(QueryTarget("PRAGMA integrity_check"), "ok");
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(OldProjectConversion, TheProject_CanBeOpened)
{
    ASSERT_TRUE(Convert(OldFileBuilder().Text("F101", "Pumpe").Body(SomeRecords(200))));
    shell.openPaths = {target};
    OpenProjectFromMenu();
    EXPECT_TRUE(App().bProjectOpen);
    EXPECT_EQ(App().sProjectName, "Pumpe");
    EXPECT_EQ(App().iSetCount, 200);
    EXPECT_EQ(App().sMeasurementTerm, "00:03:19");
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(OldProjectConversion, SavedIsTheMomentOfTheConversion)
{
    ASSERT_TRUE(Convert(OldFileBuilder().Text("F102", "1.1.1999").Text("F103", "1.1.1998")));
    EXPECT_EQ(KeyText("Project Saved"), "2026-03-14 15:09:26");
    EXPECT_EQ(KeyText("Project Created"), "1998-01-01 00:00:00");
}

TEST_F(OldProjectConversion, SetsHaveNoTimeStampAndAreMarkedAsCorrected)
{
    ASSERT_TRUE(Convert(OldFileBuilder().Body(SomeRecords(3))));
    EXPECT_EQ(QueryTarget("SELECT count(*) FROM SampledValues WHERE Time IS NULL AND Edit=255"), "3");
}

TEST_F(OldProjectConversion, MarksOfTheirOwn_ChangeNothingButTheMark)
{
    const auto table = [this] {
        return QueryTarget("SELECT group_concat([Set] || ' ' || [U sum] || ' ' || t || ' ' || [Wp] || ' ' || [Q sum], "
                           "';') FROM SampledValues JOIN ComputedValues USING ([Set])");
    };
    for (const quint32 flags : {0U, 1U << 14U}) {
        QFile::remove(target);
        ASSERT_TRUE(Convert(OldFileBuilder().Long("F201", flags).Body(SomeRecords(3))));
        const QString without = table();
        QFile::remove(target);
        OldFileBuilder file;
        file.Long("F201", flags).Body(SomeRecords(3)).Unknown("ABCD", "").Chunk("BODX", QByteArray("\0\xff\1", 3), 4);
        ASSERT_TRUE(Convert(file));
        EXPECT_EQ(table(), without);
        EXPECT_EQ(QueryTarget("SELECT group_concat(Edit) FROM SampledValues"), "0,255,1");
    }
}

TEST_F(OldProjectConversion, AFractionalTime_ReachesTheColumnAsAWholeNumber)
{
    QByteArray records;
    for (const float t : {0.0F, 0.5F, 1.5F, 2.5F, 3.51F})
        records += Record(400, 10, 50, 3000, t);
    ASSERT_TRUE(Convert(OldFileBuilder().Body(records)));
    EXPECT_EQ(QueryTarget("SELECT group_concat(t) FROM SampledValues"), "0,0,2,2,4");
    EXPECT_EQ(QueryTarget("SELECT group_concat(DISTINCT typeof(t)) FROM SampledValues"), "integer");
}

TEST_F(OldProjectConversion, AnEvenGrid_GivesTheInterval)
{
    QByteArray records;
    for (int i = 0; i < 2000; ++i)
        records += Record(400, 10, 50, 3000, static_cast<float>(i) * 15);
    ASSERT_TRUE(Convert(OldFileBuilder().Body(records)));
    EXPECT_EQ(KeyText("Measurement Interval").toDouble(), 15);
    EXPECT_EQ(KeyText("Measurement Term"), "08:19:45");
}

TEST_F(OldProjectConversion, Energies_AreThoseOfARecomputation)
{
    ASSERT_TRUE(Convert(OldFileBuilder().Body(SomeRecords(1500))));
    const QString sql = "SELECT group_concat(printf('%.17g %.17g %.17g %.17g', [Wp], [Wp+], [Wp-], [Wq])) FROM "
                        "ComputedValues";
    const QString converted = QueryTarget(sql);
    ASSERT_TRUE(RecomputeEnergies());
    EXPECT_EQ(QueryTarget(sql), converted);
    EXPECT_NE(QueryTarget("SELECT [Wp] FROM ComputedValues WHERE [Set]=1500").toDouble(), 0);
}

TEST_F(OldProjectConversion, LongTexts_AreCutSoThatTheProjectCanBeOpened)
{
    const QByteArray text(100'000, '\xfc');
    OldFileBuilder file;
    file.Text("F101", text).Text("F104", text).Text("F105", text).Text("F106", text).Text("R116", text);
    file.Text("F107", text).Short("R104", 2).Number("RZ14", 1).Body(SomeRecords(1));
    for (const char* tag : {"F110", "F111", "F112"})
        file.Number(tag, 1);
    ASSERT_TRUE(Convert(file));
    for (const char* key : {"Project Name", "Company", "Editor", "Description"})
        EXPECT_EQ(KeyText(key), QString(32'767, u'ü')) << key;
    shell.boxes.clear(); // there is no motor database here
    shell.openPaths = {target};
    OpenProjectFromMenu();
    EXPECT_TRUE(App().bProjectOpen);
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(OldProjectConversion, WhatTheFileDoesNotTell_HasTheDefaultsOfANewProject)
{
    App().sCompany = QStringLiteral("of another project");
    App().dInterval = 7;
    ASSERT_TRUE(Convert(OldFileBuilder()));
    EXPECT_EQ(KeyText("Company"), "Ihre Firma");
    EXPECT_EQ(KeyText("Measurement Interval").toDouble(), 1);
    EXPECT_EQ(Setting("COM"), "1");
    EXPECT_EQ(Setting("StopAtSet"), "56");
}

TEST_F(OldProjectConversion, ProgressIsShown)
{
    ASSERT_TRUE(Convert(OldFileBuilder().Body(SomeRecords(5000))));
    ASSERT_GE(shell.progress.size(), 4U);
    EXPECT_EQ(shell.progress.back(), 1.0);
    EXPECT_TRUE(shell.calls.contains("ShowProgress 0"));
    EXPECT_TRUE(shell.calls.contains("ShowProgress 2"));
}

TEST_F(OldProjectConversion, OpenStillRefusesTheOldFile)
{
    WriteContent("alt.KVL", OldFileBuilder().Bytes());
    shell.openPaths = {source};
    OpenProjectFromMenu();
    EXPECT_FALSE(App().bProjectOpen);
    EXPECT_TRUE(shell.boxes.at(0).text.startsWith("Ungültige Dateiversion!"));
}

} // namespace
} // namespace korvanel::test
