#include "editor/RowChange.h"

#include "core/Common.h"
#include "core/NumberText.h"
#include "core/ProjectDb.h"
#include "core/Shell.h"
#include "core/texts/DefaultTexts.h"
#include "core/texts/FormF5Texts.h"
#include "data/ValueTables.h"
#include "editor/EditHistory.h"
#include "editor/ToldChange.h"
#include "project/ProjectTransfer.h"

#include <QTemporaryFile>

namespace korvanel {

namespace {

/// The header that goes with the rows becomes part of the operation: a killed program leaves both or neither.
void StoreHeader(EnergiesAfter energies)
{
    RefreshSetCount();
    TermFromSetCount();
    if (energies != EnergiesAfter::AsBefore)
        App().bEnergiesOutdated = energies == EnergiesAfter::Outdated && IntegratesEnergy(App().iNetConfIndex);
    WriteRecordingKeys();
}

/// Asks where an operation can't be taken back; false if the user leaves it then.
bool MayRun(EditHistory* history, bool isNoted, qint64 sets)
{
    return !history || isNoted ||
           App().TheShell->ShowBox({texts::titleAttention,
                                    FillPlaceholders(texts::editorNoUndo, {QString::number(sets)}), BoxIcon::Question,
                                    BoxButtons::YesNo, Answer::No}) == Answer::Yes;
}

/// What is known of an operation before it begins.
struct Outlook
{
    bool isDue = true;
    bool isNoted = true;
};

Outlook OutlookOf(const RowChange& change)
{
    try {
        return WithDbErrors([&]() -> Outlook {
            const ProjectDbScope scope;
            return {.isDue = !change.isDue || change.isDue(), .isNoted = EditHistory::CanNote(change.sets)};
        });
    } catch (const DbError&) {
        return {}; // the operation itself tells what is wrong with the file
    }
}

/// The operation, with its notes.
void RunNoted(const RowChange& change, EditHistory* history)
{
    const RowsState before = RowsState::OfBlock();
    const auto recording = history ? std::make_unique<EditRecording>() : nullptr;
    std::unique_ptr<QTemporaryFile> changes;
    DropRecordsets(); // they may be prepared for rows that will stand elsewhere
    DbTransaction transaction(ProjectDb());
    if (history)
        history->Begin();
    if (change.isDue && !change.isDue())
        return;
    change.work();
    StoreHeader(change.energies);
    if (recording) {
        changes = recording->Take();
        if (changes->size() == 0) // all is as it was
            return;
    }
    const quint32 changesCounted = ProjectDb().ChangeCounter();
    transaction.Commit();
    if (history)
        history->Add(std::move(changes), changesCounted, before, RowsState::OfBlock());
}

} // namespace

bool ChangeRows(const RowChange& change)
{
    EditHistory* history = App().RowHistory;
    const Outlook outlook = OutlookOf(change);
    if (!outlook.isDue)
        return true;
    const bool isNoted = history && outlook.isNoted;
    if (!MayRun(history, isNoted, change.sets))
        return false;
    const RowsState former = RowsState::OfBlock();
    bool isDone = false;
    try {
        isDone = ToldChange([&] { RunNoted(change, isNoted ? history : nullptr); }, change.hasOwnPass);
    } catch (...) {
        former.PutBack();
        RecordingChanged();
        RefreshSetCount();
        throw;
    }
    if (!isDone) {
        former.PutBack();
        return false;
    }
    if (history && !isNoted)
        history->Clear(); // what was noted before belongs to other rows
    if (history)
        history->RunSimulation();
    else
        FormWhatHangsOnRows();
    return true;
}

} // namespace korvanel
