#include "data/PassOverSets.h"

#include "core/Common.h"
#include "core/ProjectDb.h"
#include "core/Shell.h"

#include <algorithm>
#include <exception>

namespace korvanel {

namespace {

void EndPass()
{
    CloseDbGuarded();
    App().TheShell->ShowProgress(Progress::End, 1);
}

} // namespace

void PassOverSets(const std::function<void()>& work)
{
    OpenDbGuarded();
    App().TheShell->ShowProgress(Progress::Begin, 0);
    try {
        work();
    } catch (...) {
        const std::exception_ptr failure = std::current_exception();
        try {
            EndPass();
        } catch (const std::exception&) {
            // The page couldn't show what has come of it; why the work failed says more.
        }
        std::rethrow_exception(failure);
    }
    EndPass();
}

void AdvanceOverSets(qint32 done)
{
    App().TheShell->ShowProgress(Progress::Advance, std::min(1.0, static_cast<double>(done) / App().iSetCount));
}

} // namespace korvanel
