#include "core/ProjectDb.h"

#include "core/Common.h"

namespace korvanel {

namespace {

struct Session
{
    std::unique_ptr<TableDb> database;
    QString path; ///< of the open database
    std::array<std::unique_ptr<Recordset>, static_cast<std::size_t>(RecordsetSlot::kCount)> recordsets;
    int openings = 0;
};

Session& Current()
{
    static Session session;
    return session;
}

} // namespace

void OpenProjectDb()
{
    Session& session = Current();
    if (!session.database) {
        session.database = std::make_unique<TableDb>(TableDb::Open(App().sProjectPath));
        session.path = App().sProjectPath;
    } else if (session.path != App().sProjectPath) {
        throw DbError("another project is still open: " + session.path.toStdString());
    }
    ++session.openings;
}

void CloseProjectDb()
{
    Session& session = Current();
    if (session.openings > 0 && --session.openings == 0) {
        DropRecordsets();
        session.database.reset();
    }
}

void OpenDbGuarded()
{
    try {
        OpenProjectDb();
    } catch (const DbError&) {
        // The opening counts all the same, so that the matching CloseDbGuarded ends nobody else's.
        ++Current().openings;
    }
}

void CloseDbGuarded()
{
    CloseProjectDb();
}

TableDb& ProjectDb()
{
    if (!Current().database)
        throw DbError("unable to open database file");
    return *Current().database;
}

bool IsProjectDbOpen()
{
    return Current().database != nullptr;
}

std::unique_ptr<Recordset>& CurrentRecordset(RecordsetSlot slot)
{
    return Current().recordsets.at(static_cast<std::size_t>(slot));
}

void DropRecordsets()
{
    for (auto& recordset : Current().recordsets)
        recordset.reset();
}

bool TableExists(const QString& name)
{
    return ProjectDb().TableExists(name);
}
void DropTable(const QString& name)
{
    ProjectDb().DropTable(name);
}

} // namespace korvanel
