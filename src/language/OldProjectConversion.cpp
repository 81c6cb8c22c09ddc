#include "language/OldProjectConversion.h"

#include "core/Common.h"
#include "core/Messages.h"
#include "core/NumberText.h"
#include "core/Paths.h"
#include "core/ProjectDb.h"
#include "core/clsWaitCursor.h"
#include "core/texts/DefaultTexts.h"
#include "core/texts/DialoguesTexts.h"
#include "data/ComputedQuantities.h"
#include "data/PassOverSets.h"
#include "data/Recomputation.h"
#include "data/RowWriter.h"
#include "data/ValueTables.h"
#include "language/OldProjectFile.h"
#include "language/OldRecords.h"
#include "machine/Algorithms_ASM_Start.h"
#include "motors/MotorDatabase.h"
#include "project/ProjectCommands.h"
#include "project/ProjectStore.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cmath>

namespace korvanel {

namespace {

/// An old file that is open. Pipes and the like are none: the program would wait for them.
class OldFile
{
public:
    explicit OldFile(const QString& path)
        : file(path), isOpened(QFileInfo(path).isFile() && file.open(QIODevice::ReadOnly)), bytes(file)
    {}
    bool IsOpen() const { return isOpened; }
    ByteSource& Bytes() { return bytes; }

private:
    QFile file;
    bool isOpened;
    FileBytes bytes;
};

template <typename Value>
void TakeIfTold(Value& field, const std::optional<Value>& told)
{
    if (told)
        field = *told;
}

QString DescriptionOf(const OldProject& project, QString description)
{
    for (const std::optional<double>& number : project.descriptionNumbers)
        if (number && *number > 0)
            description += u'\n' + NumberText(*number);
    description.truncate(kLongestTypedText);
    return description;
}

/// Header and settings of the new project. The rest keeps the defaults.
void PutHeaderIntoBlock(const OldProject& project, std::optional<double> step)
{
    ResetProjectData();
    ApplicationBlock& app = App();
    TakeIfTold(app.sProjectName, project.name);
    TakeIfTold(app.dtProjectCreated, project.created);
    TakeIfTold(app.sCompany, project.company);
    TakeIfTold(app.sEditor, project.editor);
    TakeIfTold(app.sDescription, project.description);
    app.sDescription = DescriptionOf(project, app.sDescription);
    TakeIfTold(app.dtMeasurementBegin, project.begin);
    TakeIfTold(app.sMeasurementTerm, project.term);
    TakeIfTold(app.dInterval, step);
    app.iNetConfIndex = NetConfOfOldProject(project);
    app.iSetCount = project.records ? static_cast<qint32>(project.records->count) : 0;
}

/// Takes the machine and builds its model. Sets of a machine that can't be used are those of three phases.
void PutMachineIntoBlock(const OldProject& project)
{
    if (App().iNetConfIndex != kNetMachine)
        return;
    App().MachineI.record = project.machine;
    try {
        BuildMachineModel();
    } catch (const ArithmeticFault&) {
        App().bModelValid = false;
    }
    if (App().bModelValid)
        AdjustCalcMethod();
    else if (project.records)
        App().iNetConfIndex = kNetThreePhase;
}

bool IsAnythingKnown(const MachineRecord& machine)
{
    return machine.Polpaarzahl >= 1 || machine.Schaltungsart || machine.Rs || machine.Masse;
}

/// The row of a set, computed like one that a user enters. Throws ArithmeticFault for a value that is no number.
void PutIntoCurrentRow(const OldRecord& record)
{
    tValueRow& row = App().CurrentRow;
    row.dU[kSum] = record.U;
    row.dI[kSum] = record.I;
    row.df = record.f;
    row.dP[kSum] = record.P;
    row.dt = record.t;
    row.dPhi[kSum] = record.phi ? *record.phi : PhiOfOldRecord(record.U, record.I, record.P);
    for (const double value : {row.dU[kSum], row.dI[kSum], row.df, row.dP[kSum], row.dPhi[kSum], row.dt})
        if (!std::isfinite(value))
            throw ArithmeticFault();
    row.dt = static_cast<double>(WholeSeconds(row.dt)); // as the column has it, and the energies are formed from it
    row.bEdit = 0;
    ComputeRow(true);
    if (record.mark)
        row.bEdit = *record.mark;
    IntegrateRow(row);
}

void StoreSets(ByteSource& source, const OldProject& project)
{
    OldRecordReader reader(source, project);
    RowWriter writer(ProjectDb(), App().iNetConfIndex, RowOrigin::ByHand);
    ResetEnergies();
    ResetRowBuffers();
    qint32 set = 0;
    for (auto records = reader.NextBlock(); !records.empty(); records = reader.NextBlock()) {
        for (const OldRecord& record : records) {
            PutIntoCurrentRow(record);
            tValueRow& row = App().CurrentRow;
            writer.Append(row, {.set = ++set, .time = {}, .mark = row.bEdit, .isEstimated = IsEstimating()});
        }
        AdvanceOverSets(set);
    }
}

/// Fills the new file, in one transaction. Throws DbError, ArithmeticFault and OldFileChanged.
void StoreProject(ByteSource& source, const OldProject& project)
{
    PassOverSets([&] {
        DbTransaction transaction(ProjectDb());
        StoreSets(source, project);
        if (HasMachine(App().iNetConfIndex) && App().bModelValid)
            PutMachineIntoProject(App().MachineI.record, WhichMachine::I);
        if (App().sMeasurementTerm.isEmpty())
            UpdateMeasurementTerm();
        WriteProjectHeader();
        transaction.Commit();
    });
    App().iCurrentSet = 1;
    App().bProjectDirty = false;
}

/// Writes the machine into the motor database unless the same is there. A failure is told; the project doesn't need it.
void EnterMachine(MachineRecord& machine)
{
    std::unique_ptr<TableDb> db = OpenMotorDb();
    if (!db)
        return;
    try {
        if (!FindDuplicate(*db, machine, DuplicateScope::Any))
            WriteMachine(*db, machine, true);
    } catch (const DbError& error) {
        ReportFailure(App().sMotorDbPath, QString::fromUtf8(error.what()));
    }
    CloseMotorDb(db);
}

/// False after a failure, which is told.
bool Convert(const QString& source, const QString& target)
{
    OldFile file(source);
    if (!file.IsOpen()) {
        ShowPathNotFound(source);
        return false;
    }
    const std::optional<OldProject> project = ReadOldProject(file.Bytes());
    if (!project) {
        ShowBadFormat(source);
        return false;
    }
    try {
        PutHeaderIntoBlock(*project, EvenStep(file.Bytes(), *project));
        const bool isOfMachine = HasMachine(App().iNetConfIndex);
        PutMachineIntoBlock(*project);
        if (!CreateProjectFile(target, ExistingFile::Goes, [&] { StoreProject(file.Bytes(), *project); }))
            return false;
        if (isOfMachine && IsAnythingKnown(App().MachineI.record))
            EnterMachine(App().MachineI.record);
        return true;
    } catch (const OldFileChanged&) {
        ShowBadFormat(source);
        return false;
    }
}

/// The path up to the last point in the name of its file, with the extension of projects.
QString SuggestedTarget(const QString& source)
{
    const QString name = FileNameOf(source);
    const qsizetype point = name.lastIndexOf(u'.');
    return (point < 0 ? source : source.chopped(name.size() - point)) + kProjectExtension;
}

/// The old file that the user chooses; empty, and told, if there is nothing to convert.
QString AskForOldFile()
{
    App().sDialogPreset = QStringLiteral("*.KVL");
    QString path = App().TheShell->AskOpenPath(
        {texts::titleConvert, QDir::currentPath(), texts::filterConvert, App().sDialogPreset});
    if (path.isEmpty()) {
        ShowError(texts::noFileChosen);
        return {};
    }
    OldFile file(path);
    if (!file.IsOpen()) {
        ShowPathNotFound(path);
        return {};
    }
    if (IsDatabaseFile(file.Bytes())) {
        ShowInformation(texts::noConversionNeeded);
        return {};
    }
    return path;
}

} // namespace

bool ConvertOldFile(const QString& source, const QString& target)
{
    const ApplicationBlock before = App();
    const auto restore = [&before] {
        App() = before;
        RecordingChanged();
    };
    clsWaitCursor waiting;
    waiting.Show();
    try {
        const bool isConverted = Convert(source, target);
        if (!isConverted)
            restore();
        return isConverted;
    } catch (...) {
        restore();
        throw;
    }
}

void ConvertOldProject()
{
    const QString source = AskForOldFile();
    if (source.isEmpty())
        return;
    const QString target =
        SaveAsDialog(texts::titleConvertTo, SuggestedTarget(source), texts::filterProject, kProjectExtension, source);
    if (target.isEmpty()) {
        ShowInformation(texts::conversionCancelled);
        return;
    }
    if (!ConvertOldFile(source, target))
        return;
    ShowInformation(texts::conversionDone);
    App().TheShell->AddFileMRU(target);
}

} // namespace korvanel
