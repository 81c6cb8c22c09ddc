#include "evaluation/Algorithms.h"

#include "core/Common.h"
#include "core/NumberText.h"
#include "core/ProjectDb.h"
#include "core/clsProgSettings.h"
#include "data/PassOverSets.h"
#include "data/ValueTables.h"
#include "evaluation/TimeWindow.h"

namespace korvanel {

PassConditions ConditionsOfProject()
{
    const ApplicationBlock& app = App();
    const clsProgSettings& options = *app.ProgSettings;
    return {.netConf = app.iNetConfIndex,
            .window = app.dTWindow,
            .windowText = TimeWindowText(),
            .recorded = TimeToSeconds(app.sMeasurementTerm).value_or(0),
            .rated = RatedDataOf(WhichMachine::I),
            .energy = {.dt = app.dInterval,
                       .isMachineValid = app.bModelValid,
                       .prices = {options.EnergyCosts(0), options.EnergyCosts(1), options.EnergyCosts(2)},
                       .cycles = static_cast<double>(options.Cycles())},
            .currency = options.UsedCurrency()};
}

void EvaluateProject()
{
    ApplicationBlock& app = App();
    RecordingChanged();
    app.MachineI.evaluation = {};
    ResolveTimeWindow();
    const ProjectDbScope scope;
    app.iSetCount = CountSets();
    PassOverSets([&app] {
        app.MachineI.evaluation =
            EvaluateSets(ProjectDb(), SetSource::Measured, ConditionsOfProject(), app.iSetCount, AdvanceOverSets);
        app.bEvaluated = 1;
    });
}

} // namespace korvanel
