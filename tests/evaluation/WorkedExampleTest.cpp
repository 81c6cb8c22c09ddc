// The tables of docs/auswertung.md, worked out by hand there, against those of the program.
#include "support/WorkedExample.h"
#include "evaluation/Algorithms.h"
#include "evaluation/WinManaging2.h"
#include "support/ProjectFixture.h"
#include "support/TestPaths.h"

#include <QSettings>

#include <map>

namespace korvanel::test {
namespace {

using Rows = std::vector<QStringList>;

QStringList CellsOf(const QString& line)
{
    QStringList cells = line.mid(1, line.lastIndexOf(u'|') - 1).split(u'|');
    for (QString& cell : cells)
        cell = cell.trimmed();
    return cells;
}

/// Rows of the tables of a Markdown text below their line of dashes, by the heading above.
std::map<QString, Rows> TablesOf(const QString& text)
{
    std::map<QString, Rows> tables;
    QString heading;
    bool isBelowDashes = false;
    for (const QString& line : text.split(u'\n')) {
        if (line.startsWith(QStringLiteral("### ")))
            heading = line.mid(4);
        if (!line.startsWith(u'|'))
            isBelowDashes = false;
        else if (line.startsWith(QStringLiteral("| --- ")))
            isBelowDashes = true;
        else if (isBelowDashes)
            tables[heading].push_back(CellsOf(line));
    }
    tables.erase(QString()); // the sets
    return tables;
}

/// The same of the program's tables, by their block headings.
void Collect(const ResultTable& table, std::map<QString, Rows>& tables)
{
    QString heading;
    for (const ResultRow& row : table.rows) {
        if (row.kind == ResultRowKind::Heading)
            heading = row.cells.front();
        if (row.kind != ResultRowKind::Values)
            continue;
        QStringList cells = row.cells;
        for (QString& cell : cells)
            cell = cell.trimmed();
        tables[heading].push_back(cells);
    }
}

class WorkedExample : public ProjectTest
{
protected:
    WorkedExample()
    {
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, PathOf(QStringLiteral("settings")));
        options.emplace(App().sProgramDir);
        App().ProgSettings = &*options;
    }
    std::optional<clsProgSettings> options;
};

TEST_F(WorkedExample, TablesOfTheDocument_AreThoseOfTheProgram)
{
    CreateProject(2);
    PutExample(*options);
    EvaluateProject();
    std::map<QString, Rows> shown;
    for (const ResultTable& table :
         {ExtremTable(App().MachineI), EnergyTable(App().MachineI), UtilisationTable(App().MachineI)})
        Collect(table, shown);

    QFile document(QStringLiteral(KORVANEL_DOCS "/auswertung.md"));
    ASSERT_TRUE(document.open(QIODevice::ReadOnly));
    const std::map<QString, Rows> told = TablesOf(QString::fromUtf8(document.readAll()));
    ASSERT_EQ(told.size(), 10U);
    ASSERT_EQ(shown.size(), told.size());
    for (const auto& [heading, rows] : told) {
        ASSERT_TRUE(shown.contains(heading)) << heading.toStdString();
        EXPECT_EQ(shown[heading], rows) << heading.toStdString();
    }
}

} // namespace
} // namespace korvanel::test
