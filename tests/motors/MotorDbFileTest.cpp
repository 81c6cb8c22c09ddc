// The motor database that the build makes: its rows agree with themselves and with what is published.
#include "machine/Algorithms_ASM_Start.h"
#include "motors/MotorColumns.h"
#include "motors/MotorDatabase.h"
#include "project/ProjectStore.h"
#include "support/MotorDbFixture.h"
#include "support/TestPaths.h"

#include <cmath>
#include <map>
#include <numbers>
#include <set>
#include <tuple>

namespace korvanel::test {
namespace {

constexpr double kPlate = 0.001; ///< the current has the four digits of a plate

/// Efficiency in percent by the standard's own interpolation, which it gives beside the table of limits: a cubic in the
/// logarithm of the power.
struct Interpolation
{
    const char* name;
    int polePairs;
    double a, b, c, d;

    double At(double kilowatts) const
    {
        const double x = std::log10(kilowatts);
        return ((a * x + b) * x + c) * x + d;
    }
};

constexpr Interpolation kInterpolations[] = {
    {"IE1", 1, 0.5234, -5.0499, 17.4180, 74.3171}, {"IE1", 2, 0.5234, -5.0499, 17.4180, 74.3171},
    {"IE1", 3, 0.0786, -3.5838, 17.2918, 72.2383}, {"IE3", 1, 0.3569, -3.3076, 11.6108, 82.2503},
    {"IE3", 2, 0.0773, -1.8951, 9.2984, 83.7025},  {"IE3", 3, 0.1252, -2.6130, 11.9963, 80.4769},
};

class MotorDbFile : public MotorDbTest
{
protected:
    MotorDbFile()
    {
        const QString made = QStringLiteral(KORVANEL_MOTOR_DB);
        App().sMotorDbPath = PathOf("MOTOR_DB.MDB"); // a copy, so that no test changes what is delivered
        EXPECT_TRUE(QFile::copy(made, App().sMotorDbPath));
        TableDb db = OpenFile();
        lines = ListMachines(db);
    }
    /// The standard motors of an efficiency class and a number of pole pairs, by power in kW.
    std::map<double, MachineRecord> Motors(const QString& name, int polePairs) const
    {
        std::map<double, MachineRecord> found;
        for (const MachineLine& line : lines)
            if (line.record.Polpaarzahl == polePairs && line.record.Hersteller.contains(name + ','))
                found[*line.record.Pmech / 1000] = line.record;
        return found;
    }

    std::vector<MachineLine> lines;
};

TEST_F(MotorDbFile, OpensAndIsMarked)
{
    EXPECT_TRUE(IsMotorDatabase(App().sMotorDbPath));
    EXPECT_NE(OpenMotorDb(), nullptr);
    EXPECT_TRUE(shell.boxes.empty());
    EXPECT_EQ(QueryMotors("PRAGMA application_id").toInt(), kMotorApplicationId);
    EXPECT_NE(kMotorApplicationId, kProjectApplicationId);
    EXPECT_EQ(QueryMotors("PRAGMA user_version"), "1");
    EXPECT_EQ(QueryMotors("PRAGMA integrity_check"), "ok");
}

TEST_F(MotorDbFile, EveryRowIsReadable)
{
    EXPECT_EQ(QueryMotors("SELECT count(*) FROM Motor").toInt(), static_cast<int>(lines.size()));
    EXPECT_EQ(lines.size(), 22U * 3 * 2 + 4 + 1);
    for (const auto& interpolation : kInterpolations)
        EXPECT_EQ(Motors(interpolation.name, interpolation.polePairs).size(), 22U) << interpolation.name;
}

TEST_F(MotorDbFile, EveryRowIsConsistent)
{
    for (const MachineLine& line : lines) {
        const MachineRecord& m = line.record;
        const std::string name = m.Hersteller.toStdString();
        ASSERT_TRUE(m.Pmech && m.U && m.M && m.n && m.I && m.f && m.cosphi && m.eta) << name;
        EXPECT_EQ(*m.U, 400) << name;
        EXPECT_EQ(*m.f, 50) << name;
        EXPECT_NEAR(*m.M * *m.n * std::numbers::pi / 30 / *m.Pmech, 1, 1e-14) << name;
        const double electrical = std::sqrt(3.0) * *m.U * *m.I * *m.cosphi;
        const double ratio = *m.Pmech > 0 ? *m.Pmech / electrical : electrical / *m.Pmech;
        EXPECT_NEAR(ratio / *m.eta, 1, 1e-14) << name;
        EXPECT_GT(electrical * *m.Pmech, 0) << name; // both flow the same way
    }
}

TEST_F(MotorDbFile, EveryRowBuildsAModelThatAgreesWithIt)
{
    for (const MachineLine& line : lines) {
        const std::string name = line.record.Hersteller.toStdString();
        App().MachineI.record = line.record;
        App().bModelValid = false;
        BuildMachineModel();
        EXPECT_TRUE(App().bModelValid) << name;
        EXPECT_EQ(App().MachineI.record.Polpaarzahl, line.record.Polpaarzahl) << name;
        EXPECT_EQ(App().MachineI.record.M, line.record.M) << name;
        EXPECT_EQ(App().MachineI.record.eta, line.record.eta) << name;
        EXPECT_GT(App().MachineI.model.k_maschine, 0) << name;
        EXPECT_NEAR(App().MachineI.model.Po_rech, *line.record.Po, 1e-9) << name << ": dropped for want of room";
    }
    EXPECT_TRUE(shell.boxes.empty()) << shell.BoxTexts().join(u'|').toStdString();
}

TEST_F(MotorDbFile, SpeedsLieOnTheRightSideOfTheSynchronousOne)
{
    for (const MachineLine& line : lines) {
        const double slip = 1 - *line.record.n * line.record.Polpaarzahl / 3000;
        const std::string name = line.record.Hersteller.toStdString();
        if (*line.record.Pmech > 0) {
            EXPECT_GT(slip, 0.002) << name;
            EXPECT_LT(slip, 0.085) << name;
        } else {
            EXPECT_LT(slip, -0.002) << name;
            EXPECT_GT(slip, -0.085) << name;
        }
    }
}

TEST_F(MotorDbFile, EfficienciesAreThoseOfTheStandardsInterpolation)
{
    for (const Interpolation& interpolation : kInterpolations)
        for (const auto& [kilowatts, motor] : Motors(interpolation.name, interpolation.polePairs))
            EXPECT_NEAR(*motor.eta * 100, interpolation.At(kilowatts), 0.051 + 100 * kPlate)
                << interpolation.name << ' ' << kilowatts << " kW, pole pairs " << interpolation.polePairs;
}

TEST_F(MotorDbFile, EfficienciesAreThePublishedLimits)
{
    struct Limit
    {
        const char* name;
        int polePairs;
        double kilowatts;
        double percent;
    };
    constexpr Limit kLimits[] = {
        {"IE1", 2, 0.75, 72.1}, {"IE1", 2, 7.5, 86.0}, {"IE1", 2, 18.5, 89.3}, {"IE1", 2, 200, 94.0},
        {"IE3", 2, 0.75, 82.5}, {"IE3", 2, 7.5, 90.4}, {"IE3", 2, 18.5, 92.6}, {"IE3", 2, 200, 96.0},
        {"IE1", 1, 11, 87.6},   {"IE3", 1, 55, 94.3},  {"IE1", 3, 0.75, 70.0}, {"IE3", 3, 5.5, 88.0},
    };
    for (const Limit& limit : kLimits)
        EXPECT_NEAR(*Motors(limit.name, limit.polePairs).at(limit.kilowatts).eta * 100, limit.percent, 100 * kPlate)
            << limit.name << ' ' << limit.kilowatts;
}

TEST_F(MotorDbFile, LargerMotorsAreBetterAndDrawMore)
{
    for (const Interpolation& interpolation : kInterpolations) {
        MachineRecord smaller;
        for (const auto& [kilowatts, motor] : Motors(interpolation.name, interpolation.polePairs)) {
            const std::string name = motor.Hersteller.toStdString();
            EXPECT_GT(*motor.eta, smaller.eta.value_or(0)) << name;
            EXPECT_GE(*motor.cosphi, smaller.cosphi.value_or(0)) << name;
            EXPECT_GE(*motor.n, smaller.n.value_or(0)) << name;
            EXPECT_GT(*motor.I, smaller.I.value_or(0)) << name;
            EXPECT_GT(*motor.M, smaller.M.value_or(0)) << name;
            EXPECT_GE(motor.Masse.value_or(0), smaller.Masse.value_or(0)) << name;
            smaller = motor;
        }
    }
}

TEST_F(MotorDbFile, HigherClassIsBetterThanTheLower)
{
    for (const int polePairs : {1, 2, 3}) {
        const auto better = Motors("IE3", polePairs);
        for (const auto& [kilowatts, motor] : Motors("IE1", polePairs)) {
            EXPECT_GT(*better.at(kilowatts).eta, *motor.eta) << kilowatts;
            EXPECT_GT(*better.at(kilowatts).n, *motor.n) << kilowatts;
            EXPECT_LT(*better.at(kilowatts).I, *motor.I) << kilowatts;
        }
    }
}

TEST_F(MotorDbFile, NoTwoRowsAreTheSameMachine)
{
    std::set<QString> remarks;
    std::set<std::tuple<double, double, double, double>> ratings;
    for (const MachineLine& line : lines) {
        EXPECT_TRUE(remarks.insert(line.record.Hersteller).second) << line.record.Hersteller.toStdString();
        EXPECT_TRUE(ratings.emplace(*line.record.Pmech, *line.record.n, *line.record.I, *line.record.eta).second)
            << line.record.Hersteller.toStdString();
    }
}

TEST_F(MotorDbFile, RemarksTellWhereTheValuesComeFrom)
{
    for (const MachineLine& line : lines) {
        const QString& remark = line.record.Hersteller;
        const std::string name = remark.toStdString();
        EXPECT_EQ(remark.contains("Grenzwert IEC 60034-30-1"), remark.startsWith("Normmotor")) << name;
        EXPECT_TRUE(remark.contains("berechnet")) << name;
        EXPECT_TRUE(remark.contains("typisch")) << name;
        EXPECT_EQ(remark.contains("alles andere typisch, nicht gemessen"), !remark.startsWith("Prüfstandsmotor"))
            << name;
    }
}

TEST_F(MotorDbFile, EveryColumnOfEveryRowIsFilled)
{
    for (const MotorColumn& column : MotorColumns()) {
        const QString name = QLatin1String(column.name);
        EXPECT_EQ(QueryMotors("SELECT count(*) FROM Motor WHERE [" + name + "] IS NULL OR [" + name + "]=''"), "0")
            << column.name;
    }
}

TEST_F(MotorDbFile, TypicalDataArePlausible)
{
    for (const MachineLine& line : lines) {
        const MachineRecord& m = line.record;
        const std::string name = m.Hersteller.toStdString();
        const double electrical = std::sqrt(3.0) * *m.U * *m.I * *m.cosphi;
        const double losses = electrical - *m.Pmech;
        EXPECT_GT(*m.Po, 0.25 * losses) << name;
        EXPECT_LT(*m.Po, 0.45 * losses) << name;
        EXPECT_GT(*m.Io, 0.2 * *m.I) << name;
        EXPECT_LT(*m.Io, 0.8 * *m.I) << name;
        EXPECT_LT(*m.Po / (std::sqrt(3.0) * *m.Uo * *m.Io), std::abs(*m.cosphi) / 2) << name;
        const double strand = m.Schaltungsart == QString("D") ? *m.I / std::sqrt(3.0) : *m.I;
        EXPECT_GT(3 * strand * strand * *m.Rs, 0.2 * losses) << name;
        EXPECT_LT(3 * strand * strand * *m.Rs, 0.45 * losses) << name;
        EXPECT_GT(*m.Mkipp_Mn, 2) << name;
        EXPECT_LT(*m.Mkipp_Mn, 3.5) << name;
        EXPECT_GE(*m.Tth, 10 * 60) << name;
        EXPECT_LE(*m.Tth, 60 * 60) << name;
        EXPECT_EQ(m.I_CL, QString("F")) << name;
        EXPECT_GT(*m.Masse, 5 * std::abs(*m.Pmech) / 1000 * 0.8) << name;
        EXPECT_LT(*m.Masse, 35 * std::abs(*m.Pmech) / 1000) << name;
    }
}

/// A project of its own with the machine, closed and opened again.
class ShippedMachines : public MotorDbFile
{
protected:
    ShippedMachines()
    {
        App().iNetConfIndex = 2;
        App().sProjectPath = PathOf("machine.MDB");
        CreateProjectFile(App().sProjectPath);
        SaveProject();
        App().bMotorDbCheck = true;
    }
    int MachinesInDatabase() { return QueryMotors("SELECT count(*) FROM Motor").toInt(); }
};

TEST_F(ShippedMachines, AreFoundInTheDatabaseInAFreshProjectAndAfterReopening)
{
    const int shipped = MachinesInDatabase();
    for (const MachineLine& line : lines) {
        const std::string name = line.record.Hersteller.toStdString();
        App().MachineI.record = line.record;
        BuildMachineModel();
        CheckMachineInDb(App().MachineI.record, WhichMachine::I);
        EXPECT_EQ(App().MachineI.record.set_ID, line.set_ID) << name;
        EXPECT_TRUE(CopyMachineIntoProject(App().MachineI.record, WhichMachine::I)) << name;
        EXPECT_FALSE(CopyMachineIntoProject(App().MachineI.record, WhichMachine::I)) << name << ": a second time";

        App().MachineI.record = {};
        LoadProjectMachines();
        EXPECT_TRUE(App().bModelValid) << name;
        EXPECT_EQ(App().MachineI.record.set_ID, line.set_ID) << name;
        EXPECT_FALSE(CopyMachineIntoProject(App().MachineI.record, WhichMachine::I)) << name << ": leaving the page";
    }
    EXPECT_TRUE(shell.boxes.empty()) << shell.BoxTexts().join(u'|').toStdString();
    EXPECT_EQ(MachinesInDatabase(), shipped);
}

TEST_F(MotorDbFile, HoldsGenerators)
{
    int generators = 0;
    for (const MachineLine& line : lines)
        if (*line.record.Pmech < 0) {
            ++generators;
            EXPECT_LT(*line.record.cosphi, 0);
            EXPECT_LT(*line.record.M, 0);
            EXPECT_GT(*line.record.eta, 0);
            EXPECT_LT(*line.record.eta, 1);
            // Pole pairs as they follow from the speed of a generator.
            EXPECT_EQ(line.record.Polpaarzahl, std::floor(60 * 50 / *line.record.n) + 1);
        }
    EXPECT_EQ(generators, 4);
}

TEST_F(MotorDbFile, HoldsTheMeasuredMotorWithItsNoLoadData)
{
    std::vector<MachineRecord> measured;
    for (const MachineLine& line : lines)
        if (line.record.Hersteller.startsWith("Prüfstandsmotor"))
            measured.push_back(line.record);
    ASSERT_EQ(measured.size(), 1U);
    const MachineRecord& motor = measured[0];
    EXPECT_EQ(motor.Polpaarzahl, 2);
    EXPECT_EQ(motor.Pmech, 18500);
    EXPECT_EQ(motor.n, 1462.5);
    EXPECT_EQ(motor.I, 32.85);
    EXPECT_EQ(motor.cosphi, 0.898);
    EXPECT_EQ(motor.Schaltungsart, QString("D"));
    EXPECT_EQ(motor.Rs, 0.56);
    EXPECT_EQ(motor.Uo, 400);
    EXPECT_EQ(motor.Io, 11);
    EXPECT_EQ(motor.fo, 50);
    EXPECT_NEAR(*motor.Po, 647.787, 0.001); // sqrt(3) 400 V 11.0 A 0.085
}

} // namespace
} // namespace korvanel::test
