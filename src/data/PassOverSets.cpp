#include "data/PassOverSets.h"

#include "core/Common.h"
#include "core/ProjectDb.h"
#include "core/Shell.h"

#include <algorithm>

namespace korvanel {

PassOverSets::PassOverSets()
{
    OpenDbGuarded();
    App().TheShell->ShowProgress(Progress::Begin, 0);
}

PassOverSets::~PassOverSets()
{
    CloseDbGuarded();
    App().TheShell->ShowProgress(Progress::End, 1);
}

void PassOverSets::Advance(qint32 done)
{
    App().TheShell->ShowProgress(Progress::Advance, std::min(1.0, static_cast<double>(done) / App().iSetCount));
}

} // namespace korvanel
