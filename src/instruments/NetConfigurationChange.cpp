#include "instruments/NetConfigurationChange.h"

#include "core/Clock.h"
#include "core/Common.h"
#include "core/Messages.h"
#include "core/ProjectDb.h"
#include "core/texts/DefaultTexts.h"
#include "core/texts/FormF2Texts.h"
#include "data/ValueTables.h"
#include "project/ProjectStore.h"
#include "project/RecordingHeading.h"

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
    if (!HasMachine(App().iNetConfIndex))
        DeleteProjectMachines();
    TransferProjectData(Direction::Write);
    transaction.Commit();
}

/// What a change of the net configuration replaces in the block.
struct Former
{
    qint16 iNetConfIndex = App().iNetConfIndex;
    bool bASMSim = App().bASMSim;
    QDateTime dtProjectSaved = App().dtProjectSaved;
    QDateTime dtMeasurementBegin = App().dtMeasurementBegin;
    QDateTime dtMeasurementEnd = App().dtMeasurementEnd;
    QString sMeasurementTerm = App().sMeasurementTerm;

    void Restore() const
    {
        App().iNetConfIndex = iNetConfIndex;
        App().bASMSim = bASMSim;
        App().dtProjectSaved = dtProjectSaved;
        App().dtMeasurementBegin = dtMeasurementBegin;
        App().dtMeasurementEnd = dtMeasurementEnd;
        App().sMeasurementTerm = sMeasurementTerm;
    }
};

} // namespace

bool ChangeNetConfiguration(int netConf)
{
    ApplicationBlock& app = App();
    if (netConf == app.iNetConfIndex)
        return true;
    if (!MayLoseSamples())
        return false;

    const Former former;
    app.iNetConfIndex = static_cast<qint16>(netConf);
    app.bASMSim = false; // the simulated sets go with the tables
    app.dtProjectSaved = PresentMoment();
    ClearRecordingHeading();
    try {
        RebuildTables();
    } catch (const DbError& error) {
        former.Restore();
        ShowError(texts::cannotWriteFile + u'\n' + QString::fromUtf8(error.what()) + u'.');
        return false;
    }
    if (!HasMachine(netConf)) {
        app.MachineI = {};
        app.MachineII = {};
        app.bModelValid = false;
    }
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
