// The real program on a real serial line: a simulated instrument behind a pseudo-terminal, a project file, and the
// comparison of what was stored with what was sent.
#pragma once

#include "remote/ProgramDriver.h"
#include "remote/SimulatorProcess.h"

#include <QDir>
#include <QElapsedTimer>
#include <QJsonArray>
#include <QSettings>
#include <QTemporaryDir>
#include <QThread>

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>

#include <gtest/gtest.h>

namespace korvanel::test {

/// Starts the program and opens a project whose machine the motor database doesn't hold.
inline void OpenProjectWithMachine(ProgramDriver& program, const QString& path)
{
    program.Start();
    program.WaitForWindow("MainForm");
    program.Trigger("mnuOpen");
    program.GivePath(path);
    program.AnswerBox("Nein"); // it isn't taken into it
    program.WaitForControl("FormF1");
}

class RecordingTest : public ::testing::Test
{
protected:
    static constexpr int kGreen = 65280;
    static constexpr int kRed = 255;

    QString PathOf(const QString& name) const { return folder.filePath(name); }
    QString Query(const QString& sql) const
    {
        SQLite::Database db(project.toStdString(), SQLite::OPEN_READWRITE); // may have to roll a killed row back
        SQLite::Statement query(db, sql.toStdString());
        return query.executeStep() && !query.getColumn(0).isNull()
                   ? QString::fromStdString(query.getColumn(0).getString())
                   : QString();
    }
    int Count() const { return Query("SELECT count(*) FROM SampledValues").toInt(); }

    /// Assigns a device to the first port in the user's settings.
    void AssignPort(const QString& device) const
    {
        QSettings settings(PathOf("settings/KORVANEL/KORVANEL.ini"), QSettings::IniFormat);
        settings.setValue("Ports/COM1", device);
    }
    void StartProgram()
    {
        program.Start();
        program.WaitForWindow("MainForm");
    }
    void NewProject(int netConf)
    {
        program.Trigger("mnuNew");
        program.GivePath(project);
        program.WaitForControl("FormF1");
        program.Trigger("mnuConfiguration");
        program.WaitForControl("FormF2");
        if (netConf == 0)
            return;
        const char* const tabs[] = {"1-Phasen-Netz", "3-Phasen-Netz",     "Asynchronmaschine",        "1-Phasen-Netz",
                                    "3-Phasen-Netz", "Asynchronmaschine", "3-Phasen-Spannungsmessung"};
        program.Choose("tabPage", tabs[netConf]);
        program.Trigger(QStringLiteral("optNetConf_%1").arg(netConf));
    }
    void OpenConfiguration(const QString& entry)
    {
        program.Trigger("mnuDeviceConf");
        program.WaitForControl("FormF3");
        program.Choose("cboSelect", entry);
    }
    /// The program with a new project, on the page where its instrument has been chosen.
    void StartWithInstrument(int netConf, const QString& entry)
    {
        StartProgram();
        NewProject(netConf);
        OpenConfiguration(entry);
    }
    int Lamp(const QString& name) { return program.Read(name)["colour"].toInt(); }
    /// Waits until the lamp has the colour.
    bool WaitForLamp(const QString& name, int colour, int patience = 20000)
    {
        QElapsedTimer timer;
        timer.start();
        while (Lamp(name) != colour)
            if (timer.elapsed() > patience)
                return false;
            else
                QThread::msleep(20);
        return true;
    }
    void Diagnose()
    {
        program.Trigger("cmdDiag");
        ASSERT_TRUE(WaitForLamp("shpLED_2", kGreen));
    }
    void OpenRun()
    {
        program.Trigger("mnuOnlineDevice");
        program.WaitForControl("FormF4");
    }
    bool WaitForSamples(int count, int patience = 90000)
    {
        QElapsedTimer timer;
        timer.start();
        while (program.Text("lblCount_3").toInt() < count)
            if (timer.elapsed() > patience)
                return false;
            else
                QThread::msleep(20);
        return true;
    }
    /// Starts the program with a new project and a run on the simulator, and waits for its first samples.
    bool Record(const SimulatorProcess& simulator)
    {
        AssignPort(simulator.Link());
        StartWithInstrument(0, "ISKRA MI71XX 1Ø2W (1b)");
        OpenRun();
        program.Trigger("cmdSTART");
        return WaitForSamples(3);
    }
    void StopRun()
    {
        program.Trigger("cmdSTART");
        program.WaitForText("cmdSTART", "START Messung");
    }

    QTemporaryDir folder;
    QString project = folder.filePath("Messung.MDB");
    ProgramDriver program{folder.filePath("settings")};
};

} // namespace korvanel::test
