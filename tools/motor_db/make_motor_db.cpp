// Makes the motor database that stands beside the executable.
//   make_motor_db PATH
#include "core/TableDb.h"
#include "motor_db/MotorTables.h"
#include "motors/MotorColumns.h"
#include "motors/MotorDatabase.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTextStream>

#include <cstdlib>

using namespace korvanel;

namespace {

void WriteDatabase(const QString& path)
{
    TableDb db = TableDb::Create(path, kMotorApplicationId, kMotorSchemaVersion);
    DbTransaction transaction(db);
    db.Execute(CreateMotorStatement());
    for (MachineRecord& machine : motordb::AllMachines())
        WriteMachine(db, machine, true);
    transaction.Commit();
}

} // namespace

int main(int argc, char* argv[])
{
    QTextStream errors(stderr);
    if (argc != 2) {
        errors << "usage: make_motor_db PATH\n";
        return EXIT_FAILURE;
    }
    // Written beside and then renamed, so that there is a whole file or the former one.
    const QString path = QFile::decodeName(argv[1]);
    const QString draft = path + QStringLiteral(".new");
    QFile::remove(draft);
    try {
        QDir().mkpath(QFileInfo(path).absolutePath());
        WriteDatabase(draft);
    } catch (const std::exception& error) {
        errors << path << ": " << error.what() << '\n';
        return EXIT_FAILURE;
    }
    QFile::remove(path);
    if (!QFile::rename(draft, path)) {
        errors << path << ": cannot be replaced\n";
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
