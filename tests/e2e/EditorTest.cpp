// The page of the editor in the real program: a recording corrected, a long one scrolled, a load cycle made by hand.
#include "diagrams/RecordingFixture.h"
#include "e2e/RecordingFixture.h"

#include <QImage>

namespace korvanel::test {
namespace {

class EditorProgram : public ProjectTest
{
protected:
    EditorProgram() { qputenv("XDG_CONFIG_HOME", PathOf("settings").toUtf8()); }

    /// A recording of so many sets, whose currents are their numbers, and the page over it.
    void OpenEditor(int sets)
    {
        CreateProject(0);
        StoreNumbered(sets);
        StartProgram();
        OpenPage();
    }
    void StartProgram()
    {
        program.Start();
        program.WaitForWindow("MainForm");
    }
    /// Opens the project, and the page over it.
    void OpenPage()
    {
        program.Trigger("mnuOpen");
        program.GivePath(App().sProjectPath);
        program.WaitForControl("FormF1");
        program.Trigger("mnuOfflineDevice");
        program.WaitForControl("FormF5");
    }
    QStringList Shown()
    {
        QStringList heads;
        for (const QJsonValue& head : program.Read("flxValues")["rows"].toArray())
            heads << head.toString();
        return heads;
    }
    void DoubleClick(int row, int column) { program.ClickCell("flxValues", row, column, "left", "double"); }
    void Enter(const QString& name, const QString& text)
    {
        program.Type(name, text);
        program.Key("Return", name);
        program.WaitUntilEnabled(name);
        program.WaitForQuiet();
    }
    void Press(const QString& name)
    {
        program.Trigger(name);
        program.WaitForQuiet();
    }
    void End()
    {
        program.Trigger("mnuEnd");
        EXPECT_EQ(program.WaitForEnd(), 0);
    }
    QString Currents() const { return Query("SELECT group_concat(CAST([I sum] AS INTEGER)) FROM SampledValues"); }

    ProgramDriver program{PathOf("settings")};
};

TEST_F(EditorProgram, DoubleClickedValueIsEditedAndStored)
{
    OpenEditor(10);
    DoubleClick(3, 0);
    EXPECT_EQ(program.Text("txtEdit_0"), "230");
    Enter("txtEdit_0", "231,5");
    EXPECT_EQ(Query("SELECT [U sum] || ' ' || Edit FROM SampledValues WHERE [Set]=4"), "231.5 255");
    EXPECT_EQ(Query("SELECT [S sum] FROM ComputedValues WHERE [Set]=4"), "926.0");
    EXPECT_TRUE(Shown().contains("4*")) << Shown().join(';').toStdString();
    program.Type("txtEdit_0", "viel");
    program.Key("Return", "txtEdit_0");
    EXPECT_EQ(program.AnswerBox("OK"), "Der eingegebene Wert muss sich\nzwischen 0 und 100000  befinden.");
    program.Key("Escape", "txtEdit_0");
    End();
}

TEST_F(EditorProgram, FortyThousandSetsAreScrolledAndCorrected)
{
    OpenEditor(40'000);
    EXPECT_EQ(Shown(), (QStringList{"1", "2", "3", "4", "5"}));
    Press("cmdSet_1");
    EXPECT_EQ(Shown(), (QStringList{"39999", "40000", "", "", ""}));
    program.Key("PgUp", "flxValues");
    program.Wheel("flxValues", {20, 20}, 1);
    program.Key("Home", "flxValues");
    EXPECT_EQ(Shown().first(), "1");
    for (int i = 0; i < 3; ++i)
        program.Key("Shift+PgDown", "flxValues");
    program.Key("Delete", "flxValues");
    program.WaitForControl("lblEnergies"); // which are outdated then
    program.WaitUntilEnabled("cmdInsDel_1");
    EXPECT_EQ(Query("SELECT count(*) FROM SampledValues"), "39984");
    EXPECT_EQ(Query("SELECT [I sum] FROM SampledValues WHERE [Set]=1"), "17.0");
    EXPECT_EQ(Query("SELECT t FROM SampledValues WHERE [Set]=39984"), "39983");
    program.Key("Ctrl+Z", "flxValues");
    program.WaitUntilGone("lblEnergies");
    program.WaitUntilEnabled("cmdInsDel_1");
    EXPECT_EQ(Query("SELECT count(*) FROM SampledValues"), "40000");
    EXPECT_EQ(Query("SELECT [I sum] FROM SampledValues WHERE [Set]=40000"), "40000.0");
    End();
}

TEST_F(EditorProgram, LoadCycleMadeByHandIsThereAfterTheProjectWasOpenedAgain)
{
    CreateProject(0);
    StartProgram();
    OpenPage();
    Press("cmdNew");
    for (int i = 0; i < 4; ++i)
        Press("cmdInsDel_0");
    Press("cmdSet_1");
    program.ClickCell("flxValues", 1, 3);
    Enter("txtEdit_0", "75");
    program.ClickCell("flxValues", 1, 1);
    program.Key("Home", "flxValues");
    program.Key("Down", "flxValues");
    program.Key("Shift+Down", "flxValues");
    program.Key("Shift+Down", "flxValues");
    Press("cmdInsDel_2");
    Enter("txtInterval", "5");
    Press("cmdInsDel_1");
    Press("cmdForw");
    program.WaitForControl("FormF6");
    Press("cmdBack");
    program.WaitForControl("FormF5");
    EXPECT_EQ(program.Text("txtInterval"), "5");
    program.Trigger("mnuClose");
    program.WaitForQuiet();
    OpenPage();
    EXPECT_EQ(program.Text("txtInterval"), "5");
    End();
}

} // namespace
} // namespace korvanel::test
