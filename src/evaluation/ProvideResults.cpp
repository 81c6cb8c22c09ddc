#include "evaluation/ProvideResults.h"

#include "core/Common.h"
#include "core/Hooks.h"
#include "core/Messages.h"
#include "core/window/PendingInput.h"
#include "evaluation/Algorithms.h"

#include <QString>

namespace korvanel {

void ProvideResults(const QString& title)
{
    const bool isWorkDue = !App().bEvaluated || (HasSecondMachine() && App().lSimulationState != App().lRecordingState);
    if (!App().bEvaluated)
        RunGuarded(title, EvaluateProject);
    RunGuarded(title, [] { CallHook(Hook::ProvideSimulation); });
    if (isWorkDue)
        DropPendingInput();
}

} // namespace korvanel
