#include "machine/Algorithms_ASM_Start.h"

#include "core/Common.h"
#include "core/Messages.h"
#include "core/Texts.h"
#include "core/texts/DefaultTexts.h"
#include "machine/Algorithms_ASM_Leistung.h"
#include "machine/Algorithms_ASM_RZM.h"
#include "machine/ModelSteps.h"

#include <cmath>

namespace korvanel {

namespace {

constexpr int kPowerBalanceStep = 10;
constexpr int kSpaceVectorStep = 20;

/// Lines of the messages, by their numbers from 1.
struct MessageLines
{
    TextRef first;
    TextRef second;
};
constexpr MessageLines kMessages[kModelMessageCount] = {
    {&texts::modelProblem, &texts::modelCheckRating},    {&texts::modelProblem, &texts::modelInvalidSpeed},
    {&texts::modelProblem, &texts::modelCheckNoLoad},    {&texts::modelProblem, &texts::modelNoLoadBeyondRating},
    {&texts::modelProblem, &texts::modelCheckPolePairs}, {&texts::modelNoLoadFailed, &texts::modelRepeat},
    {&texts::modelNoLoadScattered, &texts::modelRepeat}, {&texts::modelProblem, &texts::modelNoLoadFrequency},
};

void PutIntoBlock(const MachineInTheMaking& machine)
{
    App().MachineI.record = machine.record;
    App().MachineI.status = machine.status;
    App().MachineI.model = machine.model;
}

/// Runs a step; its error is counted. Throws for a result that is not finite.
ModelMessage Run(ModelStepRoutine step, MachineInTheMaking& machine)
{
    App().ModelErrors = 0;
    const ModelMessage message = step(machine);
    if (message != ModelMessage::None || !IsFinite(machine))
        App().ModelErrors = 1;
    if (!IsFinite(machine))
        throw ArithmeticFault();
    return message;
}

void Tell(ModelMessage message)
{
    ShowError(ModelMessages(static_cast<int>(message)));
}

void EstimatePresentSample(bool bySpaceVector)
{
    ApplicationBlock& app = App();
    const EstimationConstants constants = ConstantsOf(app.MachineI.record, app.MachineI.model);
    app.Estimate = {};
    app.Estimate = RequireFinite(bySpaceVector ? EstimateBySpaceVector(constants, app.Sample)
                                               : EstimateByPowerBalance(constants, app.Sample));
    if (bySpaceVector)
        app.MachineI.model.k_RZM =
            RzmFactor(constants, app.Sample.P); // the listing shows the factor of the last sample
}

} // namespace

ArithmeticFault::ArithmeticFault() : std::runtime_error(texts::notFinite.toStdString()) {}

QString ModelMessages(int number)
{
    if (number < 1 || number > kModelMessageCount)
        return {};
    const MessageLines& lines = kMessages[number - 1];
    return TextOf(lines.first) + u'\n' + TextOf(lines.second);
}

void BuildMachineModel()
{
    RecordingChanged(); // results are judged by the machine's rating
    const MachineRecord& record = App().MachineI.record;
    // The check of the no-load data reads the factor that the build before has left.
    MachineInTheMaking machine{record, StatusOf(record), {.cosphi_o = App().MachineI.model.cosphi_o}};
    for (const BuildLine& line : BuildOrder()) {
        if (!IsAllKnown(line.needs, machine.status))
            continue;
        if (const ModelMessage message = Run(line.step, machine); message != ModelMessage::None) {
            PutIntoBlock(machine);
            Tell(message);
            return;
        }
    }
    PutIntoBlock(machine);
    if (machine.status[kRatingKnown])
        App().DiagramLimits = DiagramLimitsOf(machine);
    App().bModelValid = IsUsable(machine.status);
}

void ModelStep(int code)
{
    App().ModelErrors = 0;
    if (code == kPowerBalanceStep || code == kSpaceVectorStep) {
        EstimatePresentSample(code == kSpaceVectorStep);
        return;
    }
    const ModelStepRoutine step = StepOf(code);
    if (step == nullptr) {
        App().ModelErrors = 1;
        return;
    }
    MachineInTheMaking machine{App().MachineI.record, App().MachineI.status, App().MachineI.model};
    const ModelMessage message = Run(step, machine);
    PutIntoBlock(machine);
    if (message != ModelMessage::None)
        Tell(message);
}

void EstimateLoad(double U, double I, double f, double P, double phi, int method)
{
    App().Sample = {U, I, f, P, phi};
    App().SampleLetter = App().MethodLetter.at(static_cast<std::size_t>(method));
    ModelStep(method == 0 ? kSpaceVectorStep : kPowerBalanceStep);
}

const LoadEstimate& RequireFinite(const LoadEstimate& estimate)
{
    const auto& [n, M, Pmech, eta] = estimate;
    if (!(std::isfinite(n) && std::isfinite(M) && std::isfinite(Pmech) && std::isfinite(eta)))
        throw ArithmeticFault();
    return estimate;
}

bool IsMethodUsable(int method)
{
    const MachineStatus& status = App().MachineI.status;
    return method == 0 ? status[kConnectionKnown] : method == 1 && status[kRatingKnown];
}

QString MethodName(int method)
{
    const QString& word = method == 0 ? texts::methodSpaceVector : texts::methodPowerBalance;
    return word + QStringLiteral(" (") + App().MethodLetter.at(static_cast<std::size_t>(method)) + u')';
}

void AdjustCalcMethod()
{
    const int other = 1 - App().iCalcMethod;
    if (IsMethodUsable(App().iCalcMethod) || !IsMethodUsable(other))
        return;
    App().iCalcMethod = static_cast<qint16>(other);
    App().bProjectDirty = true;
}

} // namespace korvanel
