// A project of ordinary sets for tests that spoil it, and what an evaluation of it has to leave behind: all results or
// none.
#pragma once

#include "core/Messages.h"
#include "evaluation/EvaluationFixture.h"
#include "evaluation/ExpectedEvaluation.h"

#include <cmath>

namespace korvanel::test {

class HostileEvaluation : public EvaluationTest
{
protected:
    static std::vector<tValueRow> OrdinaryRows(int count)
    {
        std::vector<tValueRow> rows(static_cast<std::size_t>(count));
        for (int i = 0; i < count; ++i) {
            tValueRow& row = rows[static_cast<std::size_t>(i)];
            row.dU[kSum] = 390 + i % 7;
            row.dI[kSum] = 10 + i % 5;
            row.df = 50;
            row.dP[kSum] = 5000 + i % 11;
            row.dQ[kSum] = 2000 - i % 3;
            row.dS[kSum] = 5400;
            row.dn = 1480;
            row.dM = 30;
            row.dPmech = 4500;
            row.deta = 0.9;
        }
        return rows;
    }
    void MakeOrdinaryProject(int netConf = 2, int count = 40)
    {
        SetRoundMachine();
        MakeProject(netConf, OrdinaryRows(count), 1, 10);
    }
    /// Evaluates as a page does, with the results of an earlier evaluation in place. True if it ran to its end.
    bool EvaluateGuarded()
    {
        App().MachineI.evaluation.tExtremMax[kU] = {12345, 6};
        App().MachineI.evaluation.lSets = 99;
        App().bEvaluated = 0;
        shell.boxes.clear();
        shell.calls.clear();
        RunGuarded(QStringLiteral("Auswertung"), EvaluateProject);
        EXPECT_FALSE(IsProjectDbOpen());
        EXPECT_EQ(shell.calls.count("ShowProgress 0"), shell.calls.count("ShowProgress 2"));
        EXPECT_EQ(shell.waiting, 0);
        return App().bEvaluated != 0;
    }
    void ExpectFailure()
    {
        EXPECT_FALSE(EvaluateGuarded());
        EXPECT_EQ(shell.boxes.size(), 1U) << shell.BoxTexts().join('|').toStdString();
        ExpectSameResults(App().MachineI.evaluation, {});
    }
    void ExpectFault()
    {
        ExpectFailure();
        EXPECT_EQ(shell.BoxTexts(), QStringList{"Auswertung\nDie Berechnung hat keine endliche Zahl ergeben."});
    }
    void ExpectIntervalRefused(const QString& interval)
    {
        ExpectFailure();
        EXPECT_EQ(shell.BoxTexts(), QStringList{QStringLiteral("Auswertung\nDas Messintervall des Projekts (%1 s) ist "
                                                               "keine Zeitspanne; die Auswertung ist damit nicht "
                                                               "möglich.")
                                                    .arg(interval)});
    }
    void ExpectSuccess(qint32 sets)
    {
        EXPECT_TRUE(EvaluateGuarded());
        EXPECT_TRUE(shell.boxes.empty()) << shell.BoxTexts().join('|').toStdString();
        EXPECT_EQ(App().MachineI.evaluation.lSets, sets);
        ExpectFiniteResults();
    }
    static void ExpectFiniteResults()
    {
        const EvaluationResults& results = App().MachineI.evaluation;
        for (const auto& table : {results.tExtremMin, results.tExtremMax})
            for (const ExtremEntry& entry : table)
                EXPECT_TRUE(std::isfinite(entry.dValue));
        for (const auto& table : {results.tRmsMin, results.tRmsMax, results.tAvgMin, results.tAvgMax})
            for (const ExtremEntry& entry : table)
                EXPECT_TRUE(std::isfinite(entry.dValue));
        for (const EnergyEntry& entry : results.tEnergy)
            EXPECT_TRUE(std::isfinite(entry.dPlus) && std::isfinite(entry.dMinus) && std::isfinite(entry.dTotal));
        for (const UtilisationEntry& entry : results.tAsm)
            EXPECT_TRUE(std::isfinite(entry.dValue) && std::isfinite(entry.vRatio.value_or(0)));
    }
    void StoreOption(const QString& key, const QString& value)
    {
        StoreValue(kSettingsApplication, QStringLiteral("Settings"), key, value);
        LoadSettings();
    }
};

} // namespace korvanel::test
