// Reports of projects whose every section has something to show, and the files that come out of them.
#pragma once

#include "evaluation/Algorithms.h"
#include "machine/Algorithms_ASM_Start.h"
#include "output/FormF9.h"
#include "output/Print.h"
#include "output/ReportContent.h"
#include "support/PdfReader.h"
#include "support/ResultPageFixture.h"

#include "simulation/Algorithms_ASM_Simulation.h"

#include <QDir>

#include <cstdlib>

namespace korvanel::test {

class ReportTest : public ResultPageTest
{
protected:
    ReportTest() { window.RegisterPage(kPagePrint, BuildPage<FormF9>); }

    /// A set whose values are all different and tell its number, as large as they are on a machine of 18.5 kW.
    static tValueRow ToldSet(int set)
    {
        tValueRow row = WorkingSet(30 + set % 10, 12000.125 + set, 60 + set % 7, 9500 + set);
        for (std::size_t phase = 1; phase <= 3; ++phase) {
            const auto part = static_cast<double>(phase);
            row.dU.at(phase) = 230 + part + set % 5;
            row.dI.at(phase) = 10 + part / 8 + set % 3;
            row.dP.at(phase) = 4000 + 10 * part + set;
            row.dS.at(phase) = 5000 + 10 * part + set;
            row.dQ.at(phase) = 3000 + 10 * part + set;
            row.dCosPhi.at(phase) = 0.8 + part / 100;
            row.dPhi.at(phase) = 36 + part;
        }
        row.dI[kNeutral] = 0.125 * (set % 9);
        for (double* energy : {&row.dWp, &row.dWq, &row.dWpPlus, &row.dWpAbs, &row.dWpPlusAbs, &row.dWqAbs,
                               &row.dWqPlusAbs, &row.dWpRel, &row.dWpPlusRel, &row.dWqRel, &row.dWqPlusRel})
            *energy = 3600.0 * 12.5 * set;
        row.bEdit = set % 20 == 0 ? kCorrected : quint8{0};
        return row;
    }

    /// An open project with a recording; with a machine where the net configuration has one.
    void OpenReportProject(int netConf, int sets)
    {
        OpenProjectOf(netConf);
        App().sProjectName = QStringLiteral("Förderband Halle 3");
        App().sCompany = QStringLiteral("Werk Süd");
        App().sEditor = QStringLiteral("Erika Muster");
        App().sDescription =
            QStringLiteral("Hersteller: Muster AG\nStandort: Halle 3\nEinbaulage: B3\nweitere Angaben:");
        App().sDevice = QStringLiteral("MI7150");
        App().PrChecks.fill(1);
        App().PrintSetsOpt = 1;
        App().dtPrinted = QDateTime(QDate(2026, 3, 14), QTime(15, 9, 26));
        std::vector<tValueRow> rows;
        for (int set = 1; set <= sets; ++set)
            rows.push_back(ToldSet(set));
        Store(std::move(rows));
        if (HasMachine(netConf)) {
            BuildMachineModel();
            App().bModelValid = true;
        }
        EvaluateProject();
    }
    /// The machine of 7.5 kW, with its sets.
    static void TakeSecondMachine()
    {
        App().MachineII.record = RatedMachine();
        App().bASMSim = true;
        ASSERT_TRUE(RunSimulation());
        ASSERT_TRUE(EvaluateSimulation());
    }

    /// Prints the project's report into a file and reads that.
    PdfDocument PrintedReport(const QString& name = QStringLiteral("report.pdf"))
    {
        PdfOutput output(PathOf(name));
        EXPECT_TRUE(PrintReport(output));
        KeepForPeople(name);
        return ReadPdf(PathOf(name));
    }
    /// A copy of a file for people, where a folder for such is given.
    void KeepForPeople(const QString& name) const
    {
        if (const char* pictures = std::getenv("KORVANEL_PICTURES"))
            QFile::copy(PathOf(name), QDir(QString::fromLocal8Bit(pictures)).filePath(name));
    }
};

} // namespace korvanel::test
