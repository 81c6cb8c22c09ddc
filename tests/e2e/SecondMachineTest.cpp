// Another machine for the same load in the real program: chosen, compared, kept with the project.
#include "diagrams/RecordingFixture.h"
#include "e2e/RecordingFixture.h"
#include "machine/Algorithms_ASM_Start.h"
#include "motors/MotorDatabase.h"
#include "support/Machines.h"

namespace korvanel::test {
namespace {

class SecondMachineProgram : public DiagramRecordingTest
{
protected:
    static constexpr int kSets = 500;

    SecondMachineProgram() { qputenv("XDG_CONFIG_HOME", PathOf("settings").toUtf8()); }

    void MakeProject()
    {
        Record(RandomSets(kSets, 11));
        App().MachineI.record = MotorWithNoLoadData();
        BuildMachineModel();
        ASSERT_TRUE(CopyMachineIntoProject(App().MachineI.record, WhichMachine::I));
        ASSERT_TRUE(SaveProject());
    }
    void EnterTab()
    {
        OpenProjectWithMachine(program, App().sProjectPath);
        program.Trigger("mnuResTable");
        program.WaitForControl("FormF6");
        program.Choose("TabEvaluation", "Motor/Generator II");
    }
    /// The dialog closes before the machine has gone through the sets.
    void WaitForRows()
    {
        QElapsedTimer timer;
        timer.start();
        const auto first = [this] { return program.Read("flxSimul")["cells"].toArray()[0].toArray()[0].toString(); };
        while (first() != "1" && timer.elapsed() < 20'000)
            QThread::msleep(20);
        ASSERT_EQ(first(), "1");
    }
    void End()
    {
        program.Trigger("mnuEnd");
        EXPECT_EQ(program.WaitForEnd(), 0);
    }

    ProgramDriver program{PathOf("settings")};
};

TEST_F(SecondMachineProgram, ChosenMachineRunsOverTheSetsAndStaysWithTheProject)
{
    MakeProject();
    EnterTab();
    EXPECT_TRUE(program.IsRefused("trigger", "cmdCompare"));
    program.Trigger("cmdChoice");
    program.WaitForControl("FormH12");
    for (const auto& [field, text] : {std::pair{"txtSearch_0", "2"}, {"txtSearch_1", "15"}, {"txtSearch_2", "400"}})
        program.Type(field, text);
    program.Trigger("cmdSearch");
    program.WaitUntilEnabled("cmdOK");
    program.Trigger("cmdOK");
    program.WaitUntilGone("FormH12");
    WaitForRows();
    EXPECT_TRUE(program.Text("lblSecondMachine").startsWith("15 kW")) << program.Text("lblSecondMachine").toStdString();
    End();

    EXPECT_EQ(Query("SELECT count(*) FROM SimulatedValues JOIN SampledValues USING ([Set])"), QString::number(kSets));
    EXPECT_EQ(Query("SELECT count(*) FROM SimulatedValues WHERE Method<>'P'"), "0");
    EXPECT_EQ(Query("SELECT Pmech FROM Motor WHERE set_ID=2"), "15.0");
    EXPECT_EQ(Query("SELECT [Number] FROM Settings WHERE Name='bASMSim'"), "1");

    EnterTab();
    WaitForRows();
    EXPECT_TRUE(program.Text("lblSecondMachine").startsWith("15 kW"));
    for (const auto& [button, dialog] :
         {std::pair{"cmdCompare", "FormH13"}, {"cmdEvaluation", "FormH14"}, {"cmdPrint", "FormH16"}}) {
        program.Trigger(button);
        program.WaitForControl(dialog);
        program.Trigger("cmdOK");
        program.WaitUntilGone(dialog);
    }
    program.Trigger("mnuResGraph");
    program.WaitForControl("FormF8");
    program.WaitForControl("chkSecondMachine");
    End();
}

} // namespace
} // namespace korvanel::test
