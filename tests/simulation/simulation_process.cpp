// Runs another second machine through a project and reports its begin and its end. The test of durability kills it
// between the two.
//   simulation_process PROJECT.MDB
#include "simulation/Algorithms_ASM_Simulation.h"
#include "support/Machines.h"
#include "support/OperationProcess.h"

#include <cstdlib>

using namespace korvanel;

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    test::RecordingShell shell;
    if (argc != 2 || !test::OpenWithShell(argv[1], shell))
        return EXIT_FAILURE;
    App().MachineII.record = test::SecondMotor();
    App().MachineII.record.n = 1440;
    const bool isDone = test::RunBetweenReports(RunSimulation);
    return isDone && shell.boxes.empty() ? EXIT_SUCCESS : EXIT_FAILURE;
}
