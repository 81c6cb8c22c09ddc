// A change of the rows as far as the user sees it: its progress, the message of a failure, and what has to be formed
// again afterwards.
#pragma once

#include <QtGlobal>

#include <functional>

namespace korvanel {

/// Runs work on the open database with its progress; a failure of the file is told and counted, and false returned. In
/// any case recording and set count are those of the file then.
bool ToldChange(const std::function<void()>& work, bool hasOwnPass = false);

/// Has the second machine, if there is one, run over the changed rows.
void FormWhatHangsOnRows();

/// Shows how far the work is, now and then.
void TellProgress(qint32 done);

} // namespace korvanel
