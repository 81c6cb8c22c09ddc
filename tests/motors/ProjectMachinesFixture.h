// A project with machines, and the motor database beside it.
#pragma once

#include "core/Hooks.h"
#include "data/FileManaging.h"
#include "motors/MotorDatabase.h"
#include "project/ProjectCommands.h"
#include "support/MotorDbFixture.h"

namespace korvanel::test {

class ProjectMachines : public MotorDbTest
{
protected:
    ProjectMachines()
    {
        SetHook(Hook::LoadMachines, Done(LoadProjectMachines));
        SetHook(Hook::CopyMachines, Done(CopyMachinesIntoProject));
        MakeMotorDb();
    }

    /// A project with the machines given, closed.
    void MakeProject(int netConf, bool hasFirst, bool hasSecond)
    {
        CreateProject(netConf);
        if (hasFirst)
            CopyMachineIntoProject(KnownMachine(), WhichMachine::I);
        if (hasSecond)
            CopyMachineIntoProject(KnownMachine(), WhichMachine::II);
        App().bASMSim = hasSecond;
        ASSERT_TRUE(SaveProject());
        App().bProjectOpen = false;
        App().bASMSim = false;
        App().bMotorDbCheck = false;
    }
    void Open()
    {
        OpenRecentProject(App().sProjectPath);
        EXPECT_TRUE(App().bProjectOpen);
    }
    QString MotorCount() const { return QueryMotors("SELECT count(*) FROM Motor"); }
};

} // namespace korvanel::test
