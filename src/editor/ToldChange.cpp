#include "editor/ToldChange.h"

#include "core/Common.h"
#include "core/Hooks.h"
#include "core/ProjectDb.h"
#include "core/ToldAccess.h"
#include "core/texts/DefaultTexts.h"
#include "data/PassOverSets.h"
#include "data/ValueTables.h"

#include <QScopeGuard>

namespace korvanel {

bool ToldChange(const std::function<void()>& work, bool hasOwnPass)
{
    bool isDone = false;
    const auto guarded = [&] {
        isDone = ToldAccess(texts::cannotWriteFile, work);
        if (!isDone)
            ++App().iFileErrors;
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
