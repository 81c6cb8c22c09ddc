#include "EditingMemory.h"

#include "Recording.h"

#include "core/Common.h"
#include "core/ProjectDb.h"
#include "data/ValueTables.h"
#include "editor/EditHistory.h"
#include "editor/RowOperations.h"
#include "project/ProjectStore.h"

#include <QFile>

#include <algorithm>
#include <functional>

namespace korvanel::bench {

bool CopyOpenProject()
{
    const QString copy = ScratchPath(QStringLiteral("edited.MDB"));
    if (!QFile::copy(App().sProjectPath, copy))
        return false;
    OpenProject(copy);
    return !App().bFileError;
}

void PrepareEdit()
{
    PrepareMachine();
    RefreshSetCount();
    App().iCurrentSet = App().iSetCount / 4;
    App().lMarkedSets = kMarkedSets;
}

namespace {

bool EditCopy(const std::function<bool()>& operation)
{
    if (!CopyOpenProject())
        return false;
    PrepareEdit();
    return operation();
}

void CutTo(qint64 sets)
{
    DbTransaction transaction(ProjectDb());
    for (const char* table : {"SampledValues", "ComputedValues"})
        ProjectDb().Execute(QStringLiteral("DELETE FROM %1 WHERE [Set]>%2").arg(table).arg(sets));
    transaction.Commit();
}

/// Cuts the recording to the longest one of which an operation that adds some sets can be noted, in steps of a
/// hundredth.
void CutToNotable()
{
    constexpr qint64 kManySets = EditHistory::kMostMemory;
    constexpr qint64 kSteps = 100;
    const ProjectDbScope scope;
    const qint64 bytesOfSet = (EditHistory::MemoryFor(2 * kManySets) - EditHistory::MemoryFor(kManySets)) / kManySets;
    qint64 sets = std::min<qint64>(CountSets(), EditHistory::kMostMemory / bytesOfSet);
    CutTo(sets);
    while (sets > 0 && !EditHistory::CanNote(sets + kMarkedSets)) {
        sets -= sets / kSteps + 1;
        CutTo(sets);
    }
}

bool EditNoted(const std::function<bool()>& operation)
{
    if (!CopyOpenProject())
        return false;
    CutToNotable();
    PrepareEdit();
    if (App().iSetCount == 0)
        return operation();
    EditHistory history;
    App().RowHistory = &history;
    const bool isDone = operation() && history.CanUndo() && history.Undo();
    App().RowHistory = nullptr;
    return isDone;
}

} // namespace

bool DuplicateSets()
{
    return EditCopy([] { return InsertSets(App().iCurrentSet); });
}

bool RemoveSets()
{
    return EditCopy([] { return DeleteSets(App().iCurrentSet); });
}

bool NumberTimes()
{
    return EditCopy(RenumberTime);
}

bool ChangeInterval()
{
    return EditCopy([] { return ResampleInterval(kOtherInterval); });
}

bool DuplicateSetsNoted()
{
    return EditNoted([] { return InsertSets(App().iCurrentSet); });
}

bool ChangeIntervalNoted()
{
    return EditNoted([] { return ResampleInterval(kOtherInterval); });
}

double MostMegabytesNoted()
{
    constexpr double kMegabyte = 1024 * 1024;
    constexpr double kBeside = 16;
    return EditHistory::kMostMemory / kMegabyte + kBeside;
}

} // namespace korvanel::bench
