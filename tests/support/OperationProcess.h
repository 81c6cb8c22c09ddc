// What the processes share that run one operation on a project, to be killed between their two reports.
#pragma once

#include "core/Common.h"
#include "core/Texts.h"
#include "data/ValueTables.h"
#include "project/ProjectStore.h"
#include "support/RecordingShell.h"

#include <QCoreApplication>

#include <cstdio>

namespace korvanel::test {

/// Opens a project as the program does, without a window. False after a failure.
inline bool OpenWithShell(const char* path, RecordingShell& shell)
{
    App().TheShell = &shell;
    SetBuiltInTexts();
    InitialiseApplicationBlock(QCoreApplication::applicationDirPath());
    OpenProject(QString::fromLocal8Bit(path));
    App().bProjectOpen = true;
    RefreshSetCount();
    return !App().bFileError && shell.boxes.empty();
}

inline void Report(const char* what)
{
    std::puts(what);
    std::fflush(stdout);
}

/// Runs the operation between the reports of its begin and its end.
template <typename Operation>
bool RunBetweenReports(Operation&& operation)
{
    Report("begin");
    const bool isDone = operation();
    Report("end");
    return isDone;
}

} // namespace korvanel::test
