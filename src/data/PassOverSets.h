// A long operation over all sets of the project: the file stays open and the progress is shown while it runs.
#pragma once

#include <QtGlobal>

#include <functional>

namespace korvanel {

/// Runs the work between the opening of the file and the end of the progress. The end comes however the work ends; what
/// the page makes of it may fail, which is told like any other failure, unless the work itself has failed: then that is
/// what is thrown.
void PassOverSets(const std::function<void()>& work);

/// Shows that so many of the sets are done.
void AdvanceOverSets(qint32 done);

} // namespace korvanel
