// An old project converted in the real program: from the menu through both dialogs to an ordinary project.
#include "language/ConversionFixture.h"
#include "remote/ProgramDriver.h"

#include <QSettings>

namespace korvanel::test {
namespace {

class ConversionProgram : public ::testing::Test
{
protected:
    QString PathOf(const QString& name) const { return folder.filePath(name); }
    void Write(const QString& name, const QByteArray& content) const
    {
        QFile file(PathOf(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(content), content.size());
    }
    static QString Query(const QString& path, const char* sql)
    {
        SQLite::Database db(path.toStdString());
        SQLite::Statement query(db, sql);
        return query.executeStep() ? QString::fromStdString(query.getColumn(0).getString()) : QString();
    }
    QString RecentFile() const
    {
        return QSettings(PathOf("settings/KORVANEL/KORVANEL.ini"), QSettings::IniFormat).value("MRU/1").toString();
    }
    void Start()
    {
        program.Start();
        program.WaitForWindow("MainForm");
    }
    void ChooseBoth(const QString& source, const QString& target)
    {
        program.Trigger("mnuConvert");
        program.GivePath(source);
        program.GivePath(target);
    }
    void End()
    {
        program.CloseMainWindow();
        EXPECT_EQ(program.WaitForEnd(), 0);
    }

    QTemporaryDir folder;
    ProgramDriver program{folder.filePath("settings")};
};

TEST_F(ConversionProgram, AnOldProjectBecomesOneThatOpens)
{
    OldFileBuilder file;
    file.Text("F101", "K\xfchlpumpe").Text("F103", "14.03.1999, 15:09:26").Long("F201", 1U << 14U);
    file.Body(SomeRecords(5000)).Unknown("ABCD", "1").Chunk("BODX", QByteArray(2, '\0'), 4);
    Write("alt.KVL", file.Bytes());
    const QString target = PathOf("neu.MDB");
    Start();
    EXPECT_TRUE(program.IsEnabled("mnuConvert"));
    ChooseBoth(PathOf("alt.KVL"), PathOf("neu"));
    EXPECT_EQ(program.AnswerBox("OK"), "Konvertierung erfolgreich abgeschlossen.");
    EXPECT_EQ(Query(target, "SELECT count(*) FROM SampledValues JOIN ComputedValues USING ([Set])"), "5000");
    EXPECT_EQ(Query(target, "SELECT [U sum] || ' ' || [I sum] || ' ' || [P sum] || ' ' || t FROM SampledValues WHERE "
                            "[Set]=4321"),
              "400.0 11.0 3020.0 4320");
    EXPECT_EQ(Query(target, "SELECT round([S sum], 6) FROM ComputedValues WHERE [Set]=4321"), "7621.023553");
    EXPECT_EQ(Query(target, "SELECT group_concat(Edit) FROM (SELECT Edit FROM SampledValues LIMIT 4)"), "0,0,255,255");
    EXPECT_EQ(Query(target, "SELECT Text FROM Overview WHERE Name='Measurement Term'"), "01:23:19");

    program.Trigger("mnuOpen");
    program.GivePath(target);
    program.WaitForControl("FormF1");
    EXPECT_EQ(program.Text("txtName"), "Kühlpumpe");
    EXPECT_FALSE(program.IsEnabled("mnuConvert"));
    End();
    EXPECT_EQ(RecentFile(), target);
}

TEST_F(ConversionProgram, AFileThatIsNoneIsToldAndLeavesTheProgramAsItWas)
{
    Write("alt.KVL", OldFileBuilder().Body(SomeRecords(300)).Bytes().chopped(1));
    Write("wert.KVL", OldFileBuilder().Body(Record(NAN, 1, 50, 1, 0)).Bytes());
    Start();
    ChooseBoth(PathOf("alt.KVL"), PathOf("neu"));
    EXPECT_EQ(program.AnswerBox("OK"), "Ungültiges Dateiformat:\n" + PathOf("alt.KVL"));
    program.WaitForQuiet();
    ChooseBoth(PathOf("wert.KVL"), PathOf("neu"));
    EXPECT_TRUE(program.AnswerBox("OK").endsWith("Die Berechnung hat keine endliche Zahl ergeben."));
    program.WaitForQuiet();
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), (QStringList{"alt.KVL", "wert.KVL"}));
    EXPECT_EQ(program.MainTitle(), "KORVANEL ");
    EXPECT_TRUE(program.IsEnabled("mnuConvert"));
    EXPECT_FALSE(program.IsEnabled("mnuSave"));
    End();
    EXPECT_EQ(RecentFile(), QString());
}

TEST_F(ConversionProgram, BothDialogsCanBeClosed)
{
    Write("alt.KVL", OldFileBuilder().Bytes());
    Start();
    program.Trigger("mnuConvert");
    program.GivePath({});
    EXPECT_EQ(program.AnswerBox("OK"), "Keine Datei ausgewählt!");
    program.WaitForQuiet();
    ChooseBoth(PathOf("alt.KVL"), {});
    EXPECT_EQ(program.AnswerBox("OK"), "Konvertierung abgebrochen.");
    program.WaitForQuiet();
    End();
}

} // namespace
} // namespace korvanel::test
