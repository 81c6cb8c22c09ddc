// The page of the diagrams in the real program: mouse and keys over the picture box, legend, history, pictures.
#include "diagrams/RecordingFixture.h"
#include "e2e/RecordingFixture.h"
#include "machine/Algorithms_ASM_Start.h"
#include "motors/MotorDatabase.h"
#include "support/Machines.h"

#include <QImage>

namespace korvanel::test {
namespace {

class DiagramProgram : public DiagramRecordingTest
{
protected:
    DiagramProgram() { qputenv("XDG_CONFIG_HOME", PathOf("settings").toUtf8()); }

    void OpenDiagrams(int sets)
    {
        Record(RandomSets(sets, 17));
        App().MachineI.record = MotorWithNoLoadData();
        BuildMachineModel();
        ASSERT_TRUE(CopyMachineIntoProject(App().MachineI.record, WhichMachine::I));
        App().sProjectName = "Diagramme";
        ASSERT_TRUE(SaveProject());
        OpenProjectWithMachine(program, App().sProjectPath);
        program.Trigger("mnuResGraph");
        program.WaitForControl("FormF8");
        WaitForDrawing();
    }
    void WaitForDrawing()
    {
        program.WaitUntilEnabled("cmdRedraw");
        program.WaitForQuiet();
    }
    QImage Grabbed(const QString& control, const QString& name)
    {
        const QDir kept(qEnvironmentVariable("KORVANEL_PICTURES", folder.path()));
        const QString file = kept.filePath(name + ".png");
        program.Grab(control, file);
        return QImage(file);
    }
    void Drag(QPoint from, QPoint to, const QString& button = "left", const QString& modifiers = {})
    {
        program.Mouse("Picture1", "press", from, button, modifiers);
        program.Mouse("Picture1", "move", (from + to) / 2, button, modifiers);
        program.Mouse("Picture1", "move", to, button, modifiers);
        program.Mouse("Picture1", "release", to, button, modifiers);
        WaitForDrawing();
    }

    void End()
    {
        program.Trigger("mnuEnd");
        EXPECT_EQ(program.WaitForEnd(), 0);
    }

    ProgramDriver program{PathOf("settings")};
};

/// The pictures stay where KORVANEL_PICTURES names a folder: those of the document are made so.
TEST_F(DiagramProgram, MouseZoomsMarksAndShowsValues)
{
    OpenDiagrams(20'000);
    const QImage full = Grabbed("Picture1", "bild-ganz");
    Grabbed("FormF8", "diagramm-ganz");
    Drag({100, 60}, {180, 200});
    EXPECT_NE(Grabbed("Picture1", "bild-ausschnitt"), full);
    EXPECT_TRUE(program.IsEnabled("cmdUndo"));
    program.Mouse("Picture1", "click", {120, 100}, "right");
    program.WaitForControl("shpTarget");
    Grabbed("FormF8", "diagramm-punkt");
    const QJsonArray cells = program.Read("flxInfo")["cells"].toArray();
    EXPECT_TRUE(cells[1].toArray()[0].toString().endsWith(" V")) << cells[1].toArray()[0].toString().toStdString();
    program.Trigger("cmdInfo");
    program.WaitForControl("FormH17");
    Grabbed("FormH17", "diagramm-werte");
    EXPECT_EQ(program.Read("flxvalues")["cells"].toArray().size(), 11);
    program.Trigger("cmdOK");
    program.WaitUntilGone("FormH17");
    program.Trigger("cmdUndo");
    WaitForDrawing();
    EXPECT_TRUE(program.IsEnabled("cmdRedo"));
    Drag({180, 200}, {100, 60});
    End();
}

TEST_F(DiagramProgram, DraggedEitherWay_GivesTheSamePicture)
{
    OpenDiagrams(3000);
    const QImage full = Grabbed("Picture1", "1");
    Drag({100, 60}, {180, 200});
    const QImage one = Grabbed("Picture1", "2");
    program.Key("Ctrl+Z", "Picture1");
    WaitForDrawing();
    EXPECT_EQ(Grabbed("Picture1", "3"), full);
    Drag({180, 200}, {100, 60});
    EXPECT_EQ(Grabbed("Picture1", "4"), one);
    program.Key("Ctrl+Z", "Picture1");
    program.Key("Ctrl+Y", "Picture1");
    WaitForDrawing();
    EXPECT_EQ(Grabbed("Picture1", "5"), one);
    End();
}

TEST_F(DiagramProgram, WheelAndHandChangeTheView)
{
    OpenDiagrams(3000);
    const QImage full = Grabbed("Picture1", "1");
    program.Wheel("Picture1", {100, 100}, 4);
    WaitForDrawing();
    const QImage zoomed = Grabbed("Picture1", "2");
    EXPECT_NE(zoomed, full);
    Drag({100, 100}, {60, 80}, "middle");
    const QImage moved = Grabbed("Picture1", "3");
    EXPECT_NE(moved, zoomed);
    Drag({60, 80}, {100, 100}, "left", "shift");
    program.Trigger("cmdFullScreen");
    WaitForDrawing();
    EXPECT_EQ(Grabbed("Picture1", "4"), full);
    End();
}

TEST_F(DiagramProgram, LegendSwitchesCurvesAndAsksForColourAndOrder)
{
    OpenDiagrams(500);
    const QImage all = Grabbed("Picture1", "1");
    program.ClickCell("flxInfo", 0, 0);
    program.Trigger("cmdRedraw");
    WaitForDrawing();
    EXPECT_NE(Grabbed("Picture1", "2"), all);
    program.ClickCell("flxInfo", 0, 0);
    program.Trigger("cmdRedraw");
    WaitForDrawing();
    EXPECT_EQ(Grabbed("Picture1", "3"), all);
    program.ClickCell("flxInfo", 0, 0, "right");
    program.WaitForWindow("dlgColour");
    EXPECT_TRUE(program.IsRefused("trigger", "cmdRedraw"));
    program.Key("Esc", "dlgColour");
    program.WaitUntilGone("dlgColour");
    program.ClickCell("flxInfo", 2, 0);
    program.WaitForControl("FormH3");
    program.Trigger("cmdCancel");
    program.WaitUntilGone("FormH3");
    program.Choose("tabPage", "Einzeldiagramm");
    WaitForDrawing();
    Grabbed("FormF8", "diagramm-einzel");
    EXPECT_NE(Grabbed("Picture1", "4"), all);
    End();
}

TEST_F(DiagramProgram, WindowClosedWhileAMillionValuesAreDrawn_EndsAtOnce)
{
    OpenDiagrams(150'000);
    program.Trigger("cmdFullScreen");
    program.CloseMainWindow();
    EXPECT_EQ(program.WaitForEnd(), 0);
    EXPECT_EQ(Query("PRAGMA integrity_check"), "ok");
}

TEST_F(DiagramProgram, OnAScreenOfTwiceTheResolution_ThePictureIsAsSharp)
{
    program.SetEnvironment("QT_SCALE_FACTOR", "2");
    OpenDiagrams(2000);
    const QImage picture = Grabbed("FormF8", "diagramm-200");
    EXPECT_EQ(picture.width(), 2 * 754);
    Drag({100, 60}, {180, 200});
    EXPECT_TRUE(program.IsEnabled("cmdUndo"));
    End();
}

} // namespace
} // namespace korvanel::test
