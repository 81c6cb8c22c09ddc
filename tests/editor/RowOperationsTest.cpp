// The operations of the editor, against a model of a recording in memory, and what they do where they can't.
#include "editor/RowOperations.h"

#include "core/Clock.h"
#include "data/FileManaging.h"
#include "data/RowQuantities.h"
#include "data/SetReader.h"
#include "machine/Algorithms_ASM_Start.h"
#include "support/FullDisk.h"
#include "support/Machines.h"
#include "support/ProjectFixture.h"
#include "support/StoredRows.h"

#include <cmath>
#include <numbers>
#include <random>

namespace korvanel::test {
namespace {

/// A set as the model has it.
struct ModelSet
{
    double U, I, f, P, Q, S, cosphi, phi;
    double t;
    int mark;
    bool hasStamp;
    double Wp;
};

/// S, Q, cos phi and phi of U, I, P and the sign of the former phi, worked out here anew.
void Derive(ModelSet& set, int netConf)
{
    const double S = set.U * set.I * (netConf == 1 ? std::sqrt(3.0) : 1);
    double cosphi = S == 0 ? 0 : std::abs(set.P / S);
    double Q = std::abs(set.P) >= std::abs(S) ? 0 : std::sqrt(S * S - set.P * set.P);
    double phi = cosphi >= 1 ? 0 : std::acos(cosphi) * 180 / std::numbers::pi;
    if (S == 0)
        phi = 0;
    if (set.P < 0) {
        phi = 180 - phi;
        cosphi = -cosphi;
    }
    if (set.phi < 0) {
        phi = -phi;
        Q = -Q;
    }
    set.S = S;
    set.Q = Q;
    set.cosphi = cosphi;
    set.phi = phi;
}

class RowOperations : public ProjectTest
{
protected:
    void Make(int netConf, int count, unsigned seed)
    {
        App().bProjectOpen = false;
        CreateProject(netConf, QStringLiteral("%1.MDB").arg(++projects));
        App().dInterval = 5;
        std::mt19937 random(seed);
        std::uniform_real_distribution<double> unit(-1, 1);
        std::vector<tValueRow> rows(static_cast<std::size_t>(count));
        model.clear();
        for (int i = 0; i < count; ++i) {
            ModelSet set{.U = 400 + 20 * unit(random),
                         .I = 30 + 20 * unit(random),
                         .f = 50 + unit(random),
                         .P = 8000 * unit(random),
                         .Q = 0,
                         .S = 0,
                         .cosphi = 0,
                         .phi = unit(random) < 0 ? -10.0 : 10.0,
                         .t = 5.0 * i,
                         .mark = unit(random) < 0.8 ? 0 : 255,
                         .hasStamp = true,
                         .Wp = 100 * unit(random)};
            Derive(set, netConf);
            tValueRow& row = rows[static_cast<std::size_t>(i)];
            row.dU[kSum] = set.U;
            row.dI[kSum] = set.I;
            row.df = set.f;
            row.dP[kSum] = set.P;
            row.dQ[kSum] = set.Q;
            row.dS[kSum] = set.S;
            row.dCosPhi[kSum] = set.cosphi;
            row.dPhi[kSum] = set.phi;
            row.dt = set.t;
            row.dWp = set.Wp;
            row.bEdit = static_cast<quint8>(set.mark);
            model.push_back(set);
        }
        StoreRows(rows);
    }
    void ExpectModel(const std::string& after)
    {
        ASSERT_EQ(App().iSetCount, static_cast<int>(model.size())) << after;
        EXPECT_EQ(Query("SELECT count(*) FROM SampledValues").toInt(), App().iSetCount) << after;
        EXPECT_EQ(Query("SELECT count(*) FROM ComputedValues").toInt(), App().iSetCount) << after;
        EXPECT_EQ(Query("SELECT count(*) FROM sqlite_master WHERE name='Temp'"), "0") << after;
        const ProjectDbScope scope;
        SetReader reader(ProjectDb(), App().iNetConfIndex);
        for (std::size_t i = 0; i < model.size(); ++i) {
            ASSERT_TRUE(reader.Next());
            const ModelSet& set = model[i];
            const tValueRow& row = reader.Row();
            const std::string where = after + ", set " + std::to_string(i + 1);
            ASSERT_EQ(reader.Set(), static_cast<int>(i) + 1) << where;
            const auto near = [](double value) { return 1e-9 * std::max(1.0, std::abs(value)); };
            EXPECT_NEAR(row.dU[kSum], set.U, near(set.U)) << where;
            EXPECT_NEAR(row.dI[kSum], set.I, near(set.I)) << where;
            EXPECT_NEAR(row.df, set.f, near(set.f)) << where;
            EXPECT_NEAR(row.dP[kSum], set.P, near(set.P)) << where;
            EXPECT_NEAR(row.dS[kSum], set.S, near(set.S)) << where;
            EXPECT_NEAR(row.dQ[kSum], set.Q, 1e-6) << where;
            EXPECT_NEAR(row.dCosPhi[kSum], set.cosphi, 1e-9) << where;
            EXPECT_NEAR(row.dPhi[kSum], set.phi, 1e-6) << where;
            EXPECT_EQ(row.dt, std::nearbyint(set.t)) << where;
            EXPECT_EQ(row.bEdit, set.mark) << where;
            EXPECT_EQ(reader.StoredTime().isEmpty(), !set.hasStamp) << where;
            EXPECT_NEAR(row.dWp, set.Wp, near(set.Wp)) << where;
        }
    }
    void Renumber()
    {
        for (std::size_t i = 0; i < model.size(); ++i)
            model[i].t = static_cast<double>(i) * App().dInterval;
    }
    auto At(int set) { return model.begin() + (set - 1); }

    void DuplicateInModel(int first, int count)
    {
        std::vector<ModelSet> copies(At(first), At(first + count));
        for (ModelSet& copy : copies)
            copy.hasStamp = false;
        model.insert(At(first), copies.begin(), copies.end());
        Renumber();
    }
    void DeleteInModel(int first, int count)
    {
        model.erase(At(first), At(first + count));
        Renumber();
    }
    void InterpolateInModel(int first, int count)
    {
        const ModelSet a = *At(first - 1);
        const ModelSet b = *At(first + count);
        for (int i = 1; i <= count; ++i) {
            ModelSet& set = *At(first + i - 1);
            const double share = static_cast<double>(i) / (count + 1);
            set.U = a.U + share * (b.U - a.U);
            set.I = a.I + share * (b.I - a.I);
            set.f = a.f + share * (b.f - a.f);
            set.P = a.P + share * (b.P - a.P);
            Derive(set, App().iNetConfIndex);
            set.mark = 255;
        }
    }
    /// Each new set lies between two of the former ones, found by its time.
    void ResampleInModel(double interval)
    {
        const std::vector<ModelSet> source = model;
        model.clear();
        const double last = std::nearbyint(source.back().t);
        for (int i = 0; source.front().t + i * interval <= last; ++i) {
            const double time = source.front().t + i * interval;
            std::size_t right = 0;
            while (std::nearbyint(source[right].t) < time)
                ++right;
            ModelSet set = source[right];
            if (i > 0) {
                const ModelSet& a = source[right == 0 ? 0 : right - 1];
                const ModelSet& b = source[right];
                const double span = std::nearbyint(b.t) - std::nearbyint(a.t);
                const double share = span > 0 ? (time - std::nearbyint(a.t)) / span : 0;
                set.U = a.U + share * (b.U - a.U);
                set.I = a.I + share * (b.I - a.I);
                set.f = a.f + share * (b.f - a.f);
                set.P = a.P + share * (b.P - a.P);
                set.phi = a.phi + share * (b.phi - a.phi);
                Derive(set, App().iNetConfIndex);
            }
            set.t = time;
            set.mark = 255;
            set.hasStamp = false;
            set.Wp = 0;
            model.push_back(set);
        }
    }
    /// All rows of both tables as text.
    QString Content() const
    {
        return Query(
                   "SELECT group_concat(quote(\"Set\") || quote(\"U sum\") || quote(t) || quote(Edit) || quote(Time), "
                   "';') FROM SampledValues") +
               Query("SELECT group_concat(quote(\"Set\") || quote(\"S sum\"), ';') FROM ComputedValues");
    }

    std::vector<ModelSet> model;

private:
    int projects = 0;
};

TEST_F(RowOperations, AgreeWithAModelOverRandomSequences)
{
    for (const int netConf : {0, 1}) {
        for (unsigned seed = 1; seed <= 12; ++seed) {
            Make(netConf, 3 + static_cast<int>(seed) * 4, seed);
            std::mt19937 random(seed);
            for (int step = 0; step < 12 && !model.empty(); ++step) {
                const int sets = static_cast<int>(model.size());
                const int first = 1 + static_cast<int>(random() % static_cast<unsigned>(sets));
                const int count = 1 + static_cast<int>(random() % 4);
                const bool isInRange = first + count - 1 <= sets;
                App().lMarkedSets = count;
                App().iCurrentSet = first;
                std::string after = "seed " + std::to_string(seed) + " step " + std::to_string(step) + ": ";
                switch (random() % 4) {
                case 0:
                    after += "duplicate";
                    ASSERT_TRUE(InsertSets(first));
                    if (isInRange)
                        DuplicateInModel(first, count);
                    break;
                case 1:
                    after += "delete";
                    ASSERT_TRUE(DeleteSets(first));
                    if (isInRange)
                        DeleteInModel(first, count);
                    break;
                case 2:
                    after += "interpolate";
                    ASSERT_TRUE(InterpolateSets());
                    if (first >= 2 && first + count - 1 < sets)
                        InterpolateInModel(first, count);
                    break;
                default:
                    const double interval = 1 + static_cast<double>(random() % 9);
                    after += "resample to " + std::to_string(interval);
                    ASSERT_TRUE(ResampleInterval(interval));
                    ResampleInModel(interval);
                }
                ExpectModel(after);
            }
        }
    }
}

TEST_F(RowOperations, Duplicate_PutsTheCopyBeforeTheLastSet)
{
    Make(0, 3, 1);
    App().lMarkedSets = 1;
    ASSERT_TRUE(InsertSets(3));
    EXPECT_EQ(Query("SELECT Time FROM SampledValues WHERE \"Set\"=3"), "null");
    EXPECT_NE(Query("SELECT Time FROM SampledValues WHERE \"Set\"=4"), "null");
    EXPECT_EQ(Query("SELECT t FROM SampledValues WHERE \"Set\"=4"), "15");
}

TEST_F(RowOperations, DeletingEverySetLeavesNoneAndTheFirstCanBeMadeAgain)
{
    Make(0, 5, 1);
    App().lMarkedSets = 5;
    ASSERT_TRUE(DeleteSets(1));
    EXPECT_EQ(App().iSetCount, 0);
    ASSERT_TRUE(MakeFirstSet());
    EXPECT_EQ(App().iSetCount, 1);
    EXPECT_EQ(
        Query("SELECT \"U sum\" || ' ' || \"I sum\" || ' ' || \"f sum\" || ' ' || \"P sum\" || ' ' || t || ' ' || Edit "
              "FROM SampledValues"),
        "380.0 1.0 50.0 100.0 0 255");
    EXPECT_NEAR(Query("SELECT \"phi sum\" FROM SampledValues").toDouble(), 74.74, 0.01);
}

TEST_F(RowOperations, FirstSetIsNotMadeWhereThereAreSets)
{
    Make(0, 3, 1);
    const QString before = Content();
    EXPECT_TRUE(MakeFirstSet());
    EXPECT_EQ(Content(), before);
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(RowOperations, FormingEnergiesWhereNoneAreStoredDoesNothing)
{
    Make(6, 3, 1);
    const QString before = Query("SELECT group_concat(\"U sum\" || ' ' || t || ' ' || Edit, ';') FROM SampledValues");
    EXPECT_TRUE(FormEnergies());
    EXPECT_EQ(Query("SELECT group_concat(\"U sum\" || ' ' || t || ' ' || Edit, ';') FROM SampledValues"), before);
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(RowOperations, SetsThatAreNotThereAreLeftAloneWithoutAWord)
{
    Make(0, 5, 1);
    const QString before = Content();
    for (const auto& [first, count] : {std::pair{4, 3}, {6, 1}, {0, 2}, {1, 0}, {1, -1}, {1, 2'000'000'000}}) {
        App().lMarkedSets = count;
        EXPECT_TRUE(InsertSets(first));
        EXPECT_TRUE(DeleteSets(first));
    }
    EXPECT_EQ(Content(), before);
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(RowOperations, InterpolatingARangeThatTouchesTheFirstOrLastSetDoesNothing)
{
    Make(0, 6, 1);
    const QString before = Content();
    for (const auto& [first, count] : {std::pair{1, 1}, {1, 6}, {4, 3}, {6, 1}, {3, 0}}) {
        App().iCurrentSet = first;
        App().lMarkedSets = count;
        EXPECT_TRUE(InterpolateSets());
    }
    EXPECT_EQ(Content(), before);
}

TEST_F(RowOperations, LargerIntervalYieldsFewerSetsEachMarkedAsCorrected)
{
    Make(0, 13, 1);
    ASSERT_TRUE(ResampleInterval(20));
    EXPECT_EQ(App().iSetCount, 4);
    EXPECT_EQ(Query("SELECT group_concat(t) FROM SampledValues"), "0,20,40,60");
    EXPECT_EQ(Query("SELECT count(*) FROM SampledValues WHERE Edit=255"), "4");
    EXPECT_EQ(App().dInterval, 20);
    EXPECT_EQ(App().sMeasurementTerm, "00:01:00");
}

TEST_F(RowOperations, EstimateTheLoadOfTheMachine)
{
    Make(2, 6, 1);
    App().MachineI.record = MotorWithNoLoadData();
    BuildMachineModel();
    App().iCurrentSet = 3;
    App().lMarkedSets = 1;
    ASSERT_TRUE(InterpolateSets());
    EXPECT_GT(Query("SELECT n FROM ComputedValues WHERE \"Set\"=3").toDouble(), 1000);
    EXPECT_EQ(Query("SELECT Method FROM ComputedValues WHERE \"Set\"=3"), "P");
}

TEST_F(RowOperations, EnergiesKeepTheirValuesAndResultsAreOutOfDate)
{
    Make(0, 6, 1);
    App().bEvaluated = 1;
    App().lMarkedSets = 2;
    ASSERT_TRUE(DeleteSets(2));
    EXPECT_EQ(App().bEvaluated, 0);
    EXPECT_NEAR(Query("SELECT Wp FROM ComputedValues WHERE \"Set\"=2").toDouble(), model[3].Wp, 1e-9);
}

TEST_F(RowOperations, EditIsStoredWithWhatFollowsFromIt)
{
    Make(0, 3, 1);
    {
        const ProjectDbScope scope;
        ReadRow(2);
    }
    App().iCurrentSet = 2;
    App().CurrentRow.dU[kSum] = 100;
    App().CurrentRow.dI[kSum] = 5;
    App().CurrentRow.dP[kSum] = 300;
    App().CurrentRow.dPhi[kSum] = 1;
    ASSERT_TRUE(ApplyEdit());
    EXPECT_EQ(Query("SELECT \"S sum\" || ' ' || \"Q sum\" FROM ComputedValues WHERE \"Set\"=2"), "500.0 400.0");
    EXPECT_EQ(Query("SELECT Edit FROM SampledValues WHERE \"Set\"=2"), "255");
}

TEST_F(RowOperations, FileThatAnotherProgramHoldsIsToldAndNothingChanges)
{
    Make(0, 20, 1);
    const QString before = Content();
    SQLite::Database other(App().sProjectPath.toStdString(), SQLite::OPEN_READWRITE);
    other.exec("BEGIN IMMEDIATE; UPDATE SampledValues SET t=t");
    App().lMarkedSets = 2;
    App().iCurrentSet = 3;
    App().bShowDevErrors = false;
    for (const auto& operation : std::initializer_list<std::function<bool()>>{
             [] { return InsertSets(3); }, [] { return DeleteSets(3); }, [] { return InterpolateSets(); },
             [] { return RenumberTime(); }, [] { return ResampleInterval(7); }}) {
        shell.boxes.clear();
        EXPECT_FALSE(operation());
        EXPECT_EQ(shell.boxes.size(), 1u);
    }
    other.exec("ROLLBACK");
    EXPECT_EQ(Content(), before);
    EXPECT_EQ(App().dInterval, 5) << "the former interval stands";
    EXPECT_EQ(App().iSetCount, 20);
}

TEST_F(RowOperations, DamagedRowsAreToldAndNothingChanges)
{
    Make(0, 20, 1);
    Execute("UPDATE SampledValues SET \"Set\"=9000000000000000000 WHERE \"Set\"=20");
    Execute("UPDATE ComputedValues SET \"Set\"=9000000000000000000 WHERE \"Set\"=20");
    const QString before = Content();
    EXPECT_FALSE(RenumberTime());
    EXPECT_EQ(Content(), before);
    EXPECT_EQ(shell.boxes.size(), 1u);
}

TEST_F(RowOperations, ScratchTableThatSomebodyHasLeftIsNotInTheWay)
{
    Make(0, 13, 1);
    Execute("CREATE TABLE [Temp] (x)");
    ASSERT_TRUE(ResampleInterval(10));
    EXPECT_EQ(App().iSetCount, 7);
    EXPECT_EQ(Query("SELECT count(*) FROM sqlite_master WHERE name='Temp'"), "0");
}

} // namespace
} // namespace korvanel::test
