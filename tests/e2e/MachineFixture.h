// The machine page of the real program: a machine typed in, its no-load test through the line.
#pragma once

#include "e2e/RecordingFixture.h"

#include <QFile>
#include <QFileInfo>

namespace korvanel::test {

/// The machine page of the program, with a motor database of the test's own: what is typed goes into it.
class MachineProgramTest : public RecordingTest
{
protected:
    MachineProgramTest()
    {
        const QString original =
            QFileInfo(QStringLiteral(KORVANEL_PROGRAM)).dir().filePath("MOTORDATABASE/MOTOR_DB.MDB");
        EXPECT_TRUE(QFile::copy(original, database));
        QFile(database).setPermissions(QFile::ReadOwner | QFile::WriteOwner);
        QSettings settings(PathOf("settings/KORVANEL/KORVANEL.ini"), QSettings::IniFormat);
        settings.setValue("Settings/Mdb", database);
    }
    void OpenMachinePage(const QString& link)
    {
        AssignPort(link);
        StartProgram();
        NewProject(2);
        program.Trigger("cmdForw");
        program.WaitForControl("FormF10");
    }
    void Check(const QString& box, bool isOn)
    {
        if (program.Read(box)["checked"].toBool() != isOn)
            program.Trigger(box);
    }
    void TypePlate(bool withNoLoad)
    {
        program.Trigger("cmdEdit_0");
        program.Choose("tabAsync", "Bemessungs- und Leerlaufdaten");
        const char* const plate[] = {"18,5", "400", "50", "1462,5", "32,85", "0,898"};
        for (int i = 0; i < 6; ++i)
            program.Type(QStringLiteral("txtBemess_%1").arg(i), plate[i]);
        if (withNoLoad) {
            Check("chkstatus_1", true);
            const char* const noLoad[] = {"0,6478", "400", "11", "50"};
            for (int i = 0; i < 4; ++i)
                program.Type(QStringLiteral("txtLeerlauf_%1").arg(i), noLoad[i]);
        }
        program.Type("txtComment", "Pumpe 'Nord'; 100 % \"neu\"");
    }
    /// Of the motor database.
    QString InDatabase(const QString& sql) const
    {
        SQLite::Database db(database.toStdString());
        SQLite::Statement query(db, sql.toStdString());
        return query.executeStep() ? QString::fromStdString(query.getColumn(0).getString()) : QString();
    }

    QString database = folder.filePath("MOTOR_DB.MDB");
};

} // namespace korvanel::test
