#include "editor/ToldChange.h"

#include "core/Common.h"
#include "core/Hooks.h"
#include "core/Messages.h"
#include "core/ProjectDb.h"
#include "core/texts/DefaultTexts.h"
#include "data/PassOverSets.h"
#include "data/ValueTables.h"

#include <QScopeGuard>

namespace korvanel {

bool ToldChange(const std::function<void()>& work, bool hasOwnPass)
{
    bool isDone = true;
    const auto guarded = [&] {
        try {
            WithDbErrors(work);
        } catch (const DbLocked&) {
            isDone = false;
            ++App().iFileErrors;
            ShowFileInUse(App().sProjectPath);
        } catch (const DbError& error) {
            isDone = false;
            ++App().iFileErrors;
            ShowError(texts::cannotWriteFile + u'\n' + QString::fromUtf8(error.what()) + u'.');
        }
    };
    if (hasOwnPass) {
        OpenDbGuarded();
        const auto closed = qScopeGuard(CloseDbGuarded);
        guarded();
    } else {
        PassOverSets(guarded);
    }
    RecordingChanged();
    RefreshSetCount();
    return isDone;
}

void FormWhatHangsOnRows()
{
    if (HasSecondMachine())
        CallHook(Hook::RunSimulation);
}

void TellProgress(qint32 done)
{
    constexpr qint32 kSetsBetweenNews = 1000;
    if (done % kSetsBetweenNews == 0)
        AdvanceOverSets(done);
}

} // namespace korvanel
