// A project whose sets a test gives, the user's options at their defaults, and the evaluation of both.
#pragma once

#include "core/SettingsStore.h"
#include "core/clsProgSettings.h"
#include "evaluation/Algorithms.h"
#include "support/ProjectFixture.h"
#include "support/StoredRows.h"

#include <memory>
#include <vector>

namespace korvanel::test {

class EvaluationTest : public ProjectTest
{
protected:
    EvaluationTest()
    {
        DeleteSection(kSettingsApplication, QStringLiteral("Settings"));
        LoadSettings();
    }

    /// Reads the settings anew, as a start of the program does.
    void LoadSettings()
    {
        settings = std::make_unique<clsProgSettings>(folder.path());
        App().ProgSettings = settings.get();
    }

    /// A project with sets, `interval` seconds apart, and a window of `window` seconds. The machine stays.
    void MakeProject(int netConf, std::vector<tValueRow> rows, double interval = 1, double window = 900)
    {
        const MachineRecord machine = App().MachineI.record;
        const MachineModel model = App().MachineI.model;
        const bool isValid = App().bModelValid;
        CreateProject(netConf, QStringLiteral("%1.MDB").arg(++projects)); // a new project has no machine
        App().MachineI.record = machine;
        App().MachineI.model = model;
        App().bModelValid = isValid;
        App().dInterval = interval;
        settings->SetTWindowSize(window);
        StoreRows(rows);
    }

    const EvaluationResults& Evaluate(int netConf, const std::vector<tValueRow>& rows, double interval = 1,
                                      double window = 900)
    {
        MakeProject(netConf, rows, interval, window);
        EvaluateProject();
        EXPECT_NE(App().bEvaluated, 0);
        return App().MachineI.evaluation;
    }

    /// Rows that hold these values of one quantity.
    template <typename Put>
    static std::vector<tValueRow> Rows(std::initializer_list<double> values, Put&& put)
    {
        std::vector<tValueRow> rows;
        for (const double value : values)
            put(rows.emplace_back(), value);
        return rows;
    }

    /// A machine of 10 kW whose rated values are round; nothing of it is calculated.
    static void SetRoundMachine()
    {
        MachineRecord& machine = App().MachineI.record;
        machine = {};
        machine.U = 400;
        machine.I = 100;
        machine.f = 50;
        machine.n = 1500;
        machine.M = 100;
        machine.Pmech = 10000;
        machine.Mkipp_Mn = 2;
        App().MachineI.model = {};
        App().MachineI.model.Pelec_n = 12000;
        App().MachineI.model.Kippmoment = 200;
        App().bModelValid = true;
    }

    std::unique_ptr<clsProgSettings> settings;

private:
    int projects = 0;
};

inline void PutU(tValueRow& row, double value)
{
    row.dU[kSum] = value;
}
inline void PutI(tValueRow& row, double value)
{
    row.dI[kSum] = value;
}
inline void PutP(tValueRow& row, double value)
{
    row.dP[kSum] = value;
}
inline void PutQ(tValueRow& row, double value)
{
    row.dQ[kSum] = value;
}
inline void PutM(tValueRow& row, double value)
{
    row.dM = value;
}

inline void ExpectEntry(const ExtremEntry& entry, double value, qint32 set)
{
    EXPECT_EQ(entry.dValue, value);
    EXPECT_EQ(entry.lSet, set);
}

} // namespace korvanel::test
