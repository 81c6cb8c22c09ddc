#include "core/ToldAccess.h"

#include "core/Common.h"
#include "core/Messages.h"
#include "core/ProjectDb.h"

namespace korvanel {

bool ToldAccess(const QString& complaint, const std::function<void()>& work)
{
    try {
        WithDbErrors(work);
        return true;
    } catch (const DbLocked&) {
        ShowFileInUse(App().sProjectPath);
    } catch (const DbError& error) {
        ShowError(complaint + u'\n' + QString::fromUtf8(error.what()) + u'.');
    }
    return false;
}

} // namespace korvanel
