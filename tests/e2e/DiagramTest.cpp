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
        program.Start();
        program.WaitForWindow("MainForm");
        program.Trigger("mnuOpen");
        program.GivePath(App().sProjectPath);
        program.AnswerBox("Nein"); // the machine isn't taken into the motor database
        program.WaitForControl("FormF1");
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

    ProgramDriver program{PathOf("settings")};
};

TEST_F(DiagramProgram, Look)
{
    OpenDiagrams(20'000);
    Grabbed("MainForm", "diagramm-1-ganz");
    Drag({100, 60}, {180, 200});
    Grabbed("MainForm", "diagramm-2-zoom");
    program.Mouse("Picture1", "click", {120, 100}, "right");
    program.WaitForQuiet();
    Grabbed("MainForm", "diagramm-3-punkt");
    program.Trigger("cmdInfo");
    program.WaitForControl("FormH17");
    Grabbed("FormH17", "diagramm-4-werte");
    program.Choose("tabPage", "Einzeldiagramm");
    WaitForDrawing();
    Grabbed("MainForm", "diagramm-5-einzel");
    program.Trigger("cmdHide");
    WaitForDrawing();
    Grabbed("MainForm", "diagramm-6-ohne");
}

} // namespace
} // namespace korvanel::test
