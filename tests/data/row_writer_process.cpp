// Appends rows to a project through the program's own row writer, as fast as they are stored, and reports each one
// that is. The durability test kills it.
//   row_writer_process PROJECT.MDB
#include "core/Common.h"
#include "core/ProjectDb.h"
#include "core/Texts.h"
#include "data/FileManaging.h"
#include "data/ValueTables.h"
#include "project/ProjectStore.h"
#include "support/RecordingShell.h"

#include <QCoreApplication>

#include <cstdio>
#include <cstdlib>

using namespace korvanel;

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    test::RecordingShell shell;
    App().TheShell = &shell;
    SetBuiltInTexts();
    InitialiseApplicationBlock(QCoreApplication::applicationDirPath());
    OpenProject(QString::fromLocal8Bit(argv[1]));
    if (App().bFileError)
        return EXIT_FAILURE;
    OpenProjectDb();
    OpenJoinedRecordset();
    for (App().MeasuredRow.lSet = App().iSetCount + 1;; ++App().MeasuredRow.lSet) {
        App().MeasuredRow.dU[kSum] = App().MeasuredRow.lSet;
        if (!AppendMeasuredRow())
            return EXIT_FAILURE;
        std::printf("%d\n", App().MeasuredRow.lSet);
        std::fflush(stdout);
    }
}
