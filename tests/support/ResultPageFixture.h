// The page of the result tables in the real main window, over recordings that a test stores.
#pragma once

#include "core/SettingsStore.h"
#include "core/clsProgSettings.h"
#include "evaluation/FormF6.h"
#include "support/Dialogs.h"
#include "support/Machines.h"
#include "support/StoredRows.h"
#include "support/WindowFixture.h"

#include "core/LocalFormats.h"

#include <QLabel>
#include <QScrollBar>
#include <QSettings>
#include <QTableWidget>

namespace korvanel::test {

/// A set of the machine at work: 400 V, 50 Hz, what else is given.
inline tValueRow WorkingSet(double I, double P, double M, double Pmech)
{
    tValueRow row;
    row.dU[kSum] = 400;
    row.dI[kSum] = I;
    row.df = 50;
    row.dP[kSum] = P;
    row.dS[kSum] = std::abs(P) * 1.25;
    row.dQ[kSum] = std::abs(P) * 0.75;
    row.dCosPhi[kSum] = 0.8;
    row.dPhi[kSum] = 36.87;
    row.dn = 1460;
    row.dM = M;
    row.dPmech = Pmech;
    row.deta = 0.9;
    row.sMethod = QStringLiteral("P");
    return row;
}

class ResultPageTest : public WindowTest
{
protected:
    ResultPageTest()
    {
        QFile::remove(QSettings(QSettings::IniFormat, QSettings::UserScope, kSettingsApplication, kSettingsApplication)
                          .fileName());
        settings = std::make_unique<clsProgSettings>(folder.path());
        App().ProgSettings = settings.get();
        window.RegisterPage(kPageResultTable, BuildPage<FormF6>);
        SetHook(Hook::ExportEvaluation, Done([this] { ++exports; }));
    }

    /// A project with a machine where the net configuration has one, and columns for the list.
    void OpenProjectOf(int netConf)
    {
        OpenInWindow(netConf);
        BuildColumnLayout();
        if (HasMachine(netConf)) {
            App().MachineI.record = KnownMachine();
            App().bModelValid = true;
            App().MachineI.model.Tth = 1800;
            App().MachineI.model.Pelec_n = 20437;
            App().MachineI.model.Kippmoment = 374.48;
        }
    }
    static void Store(std::vector<tValueRow> rows)
    {
        for (std::size_t i = 0; i < rows.size(); ++i)
            rows[i].dt = static_cast<double>(i) * App().dInterval;
        StoreRows(rows);
    }
    /// Sets whose current is their number.
    static void StoreNumbered(int count)
    {
        std::vector<tValueRow> rows;
        rows.reserve(static_cast<std::size_t>(count));
        for (int set = 1; set <= count; ++set)
            rows.push_back(WorkingSet(set, 10000, 60, 9000));
        Store(std::move(rows));
    }
    void EnterPage() { window.UnloadAndOpen(kPageResultTable); }

    QString Label(const char* name) { return Find<QLabel>(name).text(); }
    QString Cell(const char* table, int row, int column)
    {
        const auto* item = Find<QTableWidget>(table).item(row, column);
        return item ? item->text() : QStringLiteral("nothing");
    }
    QStringList HeadsOf(const char* name)
    {
        auto& table = Find<QTableWidget>(name);
        QStringList heads;
        for (int i = 0; i < table.columnCount(); ++i)
            heads << table.horizontalHeaderItem(i)->text();
        return heads;
    }

    std::unique_ptr<clsProgSettings> settings;
    int exports = 0;
};

} // namespace korvanel::test
