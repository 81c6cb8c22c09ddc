#include "core/Common.h"

#include "core/LocalFormats.h"
#include "core/Paths.h"

namespace korvanel {

ApplicationBlock& App()
{
    static ApplicationBlock block;
    return block;
}

void InitialiseApplicationBlock(const QString& executableDirectory)
{
    ApplicationBlock& app = App();
    app.bProjectOpen = false;
    app.bProjectDirty = false;
    app.iCurrentPage = 0;
    app.sProgramDir = WithoutTrailingSeparator(executableDirectory);
    app.DecimalChar = SystemDecimalChar();
    app.OtherDecimalChar = OtherDecimalCharOf(app.DecimalChar);
    app.sDefaultProjectFile = QStringLiteral("PROJECT1.KVL");
    app.sProjectLabel = JoinPath(app.sProgramDir, QStringLiteral("PROJECTS"));
    app.iGridRows = {5, 5, 16, 5, 17, 7, 100};
    app.iFileErrors = 0;
    app.iGraceLeft = 5;
    RecordingChanged();
    app.iCurrentSet = 1;
    app.MethodLetter = {QStringLiteral("V"), QStringLiteral("P")};
    for (std::size_t rating = 0; rating < kRatingColours.size(); ++rating)
        app.SuitabilityColour[rating] = QString::number(kRatingColours[rating]);
    app.bFileError = false;
    app.iExitAction = kExitNone;
}

bool IsAron()
{
    return TraitsOf(App().iNetConfIndex).isAron;
}

bool HasSecondMachine()
{
    return App().bASMSim && App().MachineII.record.Pmech;
}

void RecordingChanged()
{
    App().bEvaluated = 0;
    ++App().lRecordingState;
}

void ResetRowBuffers()
{
    App().CurrentRow = {};
    App().MeasuredRow = {};
    App().SimulatedRow = {};
}

} // namespace korvanel
