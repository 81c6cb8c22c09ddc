// Runs one operation of the editor on a project, with a history as the editor keeps it, and reports its begin and its
// end. The test of durability kills it between the two.
//   row_operation_process PROJECT.MDB duplicate|delete|resample|recompute
#include "editor/EditHistory.h"
#include "editor/RowOperations.h"
#include "machine/Algorithms_ASM_Start.h"
#include "support/Machines.h"
#include "support/OperationProcess.h"

#include <algorithm>
#include <cstdlib>
#include <string_view>

using namespace korvanel;

namespace {

struct Operation
{
    std::string_view name;
    bool (*run)();
};

constexpr qint32 kMarkedSets = 37;
constexpr double kOtherInterval = 0.5;

/// Far enough in front that most of the sets have to move.
qint32 SetInTheFrontThird()
{
    return App().iSetCount / 4;
}

constexpr Operation kOperations[] = {
    {"duplicate", [] { return InsertSets(SetInTheFrontThird()); }},
    {"delete", [] { return DeleteSets(SetInTheFrontThird()); }},
    {"resample", [] { return ResampleInterval(kOtherInterval); }},
    {"recompute", [] { return ChangeMethod(1 - App().iCalcMethod); }},
};

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    if (argc != 3)
        return EXIT_FAILURE;
    const std::string_view name = argv[2];
    const Operation* operation = std::find_if(std::begin(kOperations), std::end(kOperations),
                                              [name](const Operation& o) { return o.name == name; });
    if (operation == std::end(kOperations))
        return EXIT_FAILURE;

    test::RecordingShell shell;
    if (!test::OpenWithShell(argv[1], shell))
        return EXIT_FAILURE;
    App().MachineI.record = test::MotorWithNoLoadData();
    BuildMachineModel();
    EditHistory history;
    App().RowHistory = &history;
    App().iCurrentSet = SetInTheFrontThird();
    App().lMarkedSets = kMarkedSets;
    if (!App().bModelValid || !shell.boxes.empty())
        return EXIT_FAILURE;

    const bool isDone = test::RunBetweenReports(operation->run);
    return isDone && history.CanUndo() && shell.boxes.empty() && App().iFileErrors == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
