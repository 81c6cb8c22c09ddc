// A project file in the test's own folder, open in the block, and a look at it with plain SQL.
#pragma once

#include "core/ProjectDb.h"
#include "project/ProjectStore.h"
#include "support/Fixture.h"

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>

namespace korvanel::test {

/// Told when a dialog has chosen nothing.
inline const QString kNothingChosen = QStringLiteral("Keine Datei ausgewählt!");

class ProjectTest : public BlockTest
{
protected:
    /// Creates a project of a net configuration and leaves it open, as New does.
    void CreateProject(int netConf, const QString& name = QStringLiteral("test.MDB"))
    {
        ResetProjectData();
        App().iNetConfIndex = static_cast<qint16>(netConf);
        App().sProjectPath = PathOf(name);
        CreateProjectFile(App().sProjectPath);
        ASSERT_TRUE(SaveProject());
        App().bProjectOpen = true;
    }

    /// The first column of the first row that a statement gives, as text; "null" for a null, nothing without a row.
    QString Query(const QString& sql) const { return QueryFile(App().sProjectPath, sql); }

    static QString QueryFile(const QString& path, const QString& sql)
    {
        SQLite::Database db(path.toStdString(), SQLite::OPEN_READWRITE); // may have to roll a killed row back
        SQLite::Statement query(db, sql.toStdString());
        if (!query.executeStep())
            return {};
        return query.getColumn(0).isNull() ? QStringLiteral("null")
                                           : QString::fromStdString(query.getColumn(0).getString());
    }

    /// Names of the columns of a table, joined with commas.
    QString ColumnNames(const QString& table) const
    {
        return Query(QStringLiteral("SELECT group_concat(name, ',') FROM pragma_table_info('%1')").arg(table));
    }

    void Execute(const QString& sql) const
    {
        SQLite::Database db(App().sProjectPath.toStdString(), SQLite::OPEN_READWRITE);
        db.exec(sql.toStdString());
    }

    /// A recording of so many sets in the net configuration 0, whose currents are their numbers.
    void StoreNumbered(int sets) const
    {
        Execute(
            QStringLiteral("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<%1) "
                           "INSERT INTO SampledValues ([Set], [U sum], [I sum], [f sum], [P sum], [phi sum], t, Edit) "
                           "SELECT i, 230, i, 50, 100, 10, i-1, 0 FROM n")
                .arg(sets));
        Execute(QStringLiteral("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<%1) "
                               "INSERT INTO ComputedValues SELECT i, 0, 230*i, 0, 0, 0, 0, 0 FROM n")
                    .arg(sets));
    }
};

} // namespace korvanel::test
