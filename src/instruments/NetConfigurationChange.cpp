#include "instruments/NetConfigurationChange.h"

#include "core/Clock.h"
#include "core/Common.h"
#include "core/Messages.h"
#include "core/ProjectDb.h"
#include "core/texts/DefaultTexts.h"
#include "core/texts/FormF2Texts.h"
#include "data/ValueTables.h"
#include "project/ProjectStore.h"

namespace korvanel {

namespace {

/// True if nothing is recorded or the user agrees to lose it. What can't be read is not given up.
bool MayLoseSamples()
{
    try {
        if (!HasSamples())
            return true;
    } catch (const DbError& error) {
        ShowError(texts::cannotReadFile + u'\n' + QString::fromUtf8(error.what()) + u'.');
        return false;
    }
    return App().TheShell->ShowBox({App().sProgramTitle.trimmed(), texts::changeDeletesValues, BoxIcon::Question,
                                    BoxButtons::YesNo, Answer::No}) == Answer::Yes;
}

/// New tables and the settings that tell of them are one transaction: a file with one but not the other would be of
/// no use.
void RebuildTables()
{
    const ProjectDbScope scope;
    DbTransaction transaction(ProjectDb());
    DropValueTables();
    CreateValueTables();
    TransferProjectData(Direction::Write);
    transaction.Commit();
}

} // namespace

bool ChangeNetConfiguration(int netConf)
{
    ApplicationBlock& app = App();
    if (netConf == app.iNetConfIndex)
        return true;
    if (!MayLoseSamples())
        return false;

    const qint16 formerNetConf = app.iNetConfIndex;
    const bool wasSimulated = app.bASMSim;
    const QDateTime formerlySaved = app.dtProjectSaved;
    app.iNetConfIndex = static_cast<qint16>(netConf);
    app.bASMSim = false; // the simulated sets go with the tables
    app.dtProjectSaved = PresentMoment();
    try {
        RebuildTables();
    } catch (const DbError& error) {
        app.iNetConfIndex = formerNetConf;
        app.bASMSim = wasSimulated;
        app.dtProjectSaved = formerlySaved;
        ShowError(texts::cannotWriteFile + u'\n' + QString::fromUtf8(error.what()) + u'.');
        return false;
    }
    app.bModelValid = app.bModelValid && HasMachine(netConf);
    app.iSetCount = 0;
    app.iCurrentSet = 1;
    RecordingChanged();
    ResetRowBuffers();
    BuildColumnLayout();
    app.TheShell->EnableMachineMenu(HasMachine(netConf));
    app.bProjectDirty = true;
    return true;
}

} // namespace korvanel
