// Both estimators against the measured load curve of a real motor; docs/maschinenmodell.md shows the same errors.
#include "core/Common.h"
#include "machine/Algorithms_ASM_Start.h"
#include "motor_db/MotorTables.h"
#include "motor_db/TypicalData.h"
#include "support/Fixture.h"
#include "support/Machines.h"
#include "support/TestPaths.h"

#include <cmath>
#include <numbers>
#include <utility>

namespace korvanel::test {
namespace {

/// One measured point. The electrical power is the quotient of shaft power and efficiency.
struct Point
{
    double P2; ///< W at the shaft
    double I;  ///< A
    double n;  ///< rpm
    double cosphi;
    double eta;
};

/// Load curve of a motor of 18.5 kW, 400 V, delta, 50 Hz, 1462.5 rpm, 32.85 A, cos phi 0.898, as the example
/// IMC_withLosses of the Modelica Standard Library tabulates it.
constexpr Point kCurve[] = {
    {1845, 11.20, 1496, 0.327, 0.7250},  {3549, 12.27, 1493, 0.506, 0.8268},  {5325, 13.87, 1490, 0.636, 0.8698},
    {7521, 16.41, 1486, 0.741, 0.8929},  {9372, 18.78, 1482, 0.797, 0.9028},  {11010, 21.07, 1479, 0.831, 0.9064},
    {12930, 23.92, 1475, 0.857, 0.9088}, {14950, 27.05, 1471, 0.875, 0.9089}, {16360, 29.40, 1467, 0.887, 0.9070},
    {18500, 32.85, 1462, 0.896, 0.9044}, {20180, 35.92, 1458, 0.902, 0.9008}, {22170, 39.35, 1453, 0.906, 0.8972},
};
constexpr double kRatedPower = 18500;

/// Where the electrical power of a point comes from: the table gives it twice, and the two differ by up to 0.3 %.
enum class PowerFrom
{
    CurrentAndFactor, ///< sqrt(3) U I cos phi, which is what an instrument measures
    Efficiency        ///< shaft power over efficiency
};

struct Errors
{
    double power = 0;      ///< percent of the measured shaft power
    double speed = 0;      ///< rpm
    double efficiency = 0; ///< points
};

/// What is known of the motor.
enum class Known
{
    Measured,          ///< rating plate, no-load test, stator resistance
    NoLoadData,        ///< rating plate and no-load test
    Resistance,        ///< rating plate and stator resistance
    PlateAlone,        ///< rating plate
    TypicalData,       ///< rating plate, and what is typical of its size
    MotorOfTheDatabase ///< nothing but size and efficiency class: the motor of the motor database
};

/// The columns of the document.
struct Case
{
    int method;
    Known known;
};
constexpr Case kCases[] = {{1, Known::Measured},    {1, Known::TypicalData},        {1, Known::MotorOfTheDatabase},
                           {1, Known::PlateAlone},  {0, Known::Measured},           {0, Known::NoLoadData},
                           {0, Known::TypicalData}, {0, Known::MotorOfTheDatabase}, {0, Known::Resistance},
                           {0, Known::PlateAlone}};

/// The efficiency on its plate, 0.905, lies between the limits of IE1 (0.893) and IE2 (0.912).
MachineRecord MotorOfTheDatabase()
{
    for (const MachineRecord& machine : motordb::AllMachines())
        if (machine.Hersteller.startsWith(QStringLiteral("Normmotor IE1, 4-polig, 18,5 kW")))
            return machine;
    ADD_FAILURE() << "no such motor";
    return {};
}

MachineRecord RecordOf(Known known)
{
    MachineRecord record;
    switch (known) {
    case Known::Measured:
        return MotorWithNoLoadData();
    case Known::MotorOfTheDatabase:
        return MotorOfTheDatabase();
    case Known::Resistance:
        return Motor();
    case Known::NoLoadData:
        record = MotorWithNoLoadData();
        record.Rs.reset();
        return record;
    case Known::PlateAlone:
    case Known::TypicalData:
        record = Motor();
        record.Rs.reset();
        if (known == Known::TypicalData) {
            record.Polpaarzahl = 2;
            motordb::AddTypicalData(record, false);
        }
        return record;
    }
    return record;
}

class RealMotor : public BlockTest
{
protected:
    static void Build(Known known)
    {
        App().MachineI.record = RecordOf(known);
        BuildMachineModel();
        ASSERT_TRUE(App().bModelValid);
    }
    static Errors ErrorsAt(const Point& point, int method, PowerFrom source = PowerFrom::CurrentAndFactor)
    {
        constexpr double kVoltage = 400;
        const double P1 = source == PowerFrom::Efficiency ? point.P2 / point.eta
                                                          : std::numbers::sqrt3 * kVoltage * point.I * point.cosphi;
        EstimateLoad(kVoltage, point.I, 50, P1, std::acos(point.cosphi) * 180 / std::numbers::pi, method);
        const LoadEstimate& estimate = App().Estimate;
        return {(estimate.Pmech / point.P2 - 1) * 100, estimate.n - point.n, (estimate.eta - point.eta) * 100};
    }
    /// Greatest magnitudes from a load in percent on.
    static Errors Greatest(int method, int leastLoad, PowerFrom source = PowerFrom::CurrentAndFactor)
    {
        Errors greatest;
        for (const Point& point : kCurve) {
            if (Load(point) < leastLoad)
                continue;
            const Errors errors = ErrorsAt(point, method, source);
            greatest.power = std::max(greatest.power, std::abs(errors.power));
            greatest.speed = std::max(greatest.speed, std::abs(errors.speed));
            greatest.efficiency = std::max(greatest.efficiency, std::abs(errors.efficiency));
        }
        return greatest;
    }
    /// Percent of the rated power, rounded.
    static int Load(const Point& point) { return static_cast<int>(std::lround(point.P2 / kRatedPower * 100)); }

    /// The rows of one table of the document.
    static QStringList Rows(double Errors::*quantity)
    {
        QStringList rows;
        for (const Point& point : kCurve) {
            QString row = QString::asprintf("| %.0f | %d |", point.P2, Load(point));
            for (const Case& column : kCases) {
                Build(column.known);
                row += QString::asprintf(" %+.2f |", ErrorsAt(point, column.method).*quantity);
            }
            rows << row;
        }
        return rows;
    }
};

TEST_F(RealMotor, PowerBalanceWithNoLoadDataMeetsThePowerAndTheSpeed)
{
    for (const Known known : {Known::Measured, Known::NoLoadData}) {
        Build(known);
        EXPECT_LE(Greatest(1, 10).power, 2.1);
        EXPECT_LE(Greatest(1, 25).power, 1);
        EXPECT_LE(Greatest(1, 10).speed, 2);
        EXPECT_LE(Greatest(1, 25).efficiency, 1);
    }
}

TEST_F(RealMotor, WithThePowerThatFollowsFromTheEfficiencyTheErrorIsALittleGreater)
{
    Build(Known::Measured);
    EXPECT_LE(Greatest(1, 10, PowerFrom::Efficiency).power, 2.4);
    EXPECT_LE(Greatest(1, 25, PowerFrom::Efficiency).power, 1.02);
    EXPECT_LE(Greatest(1, 10, PowerFrom::Efficiency).speed, 2);
    EXPECT_LE(Greatest(1, 25, PowerFrom::Efficiency).efficiency, 1);
}

TEST_F(RealMotor, TheResistanceHasNoInfluenceOnThePowerBalance)
{
    constexpr std::pair<Known, Known> kPairs[] = {{Known::Measured, Known::NoLoadData},
                                                  {Known::Resistance, Known::PlateAlone}};
    for (const auto& [knownWith, knownWithout] : kPairs)
        for (const Point& point : kCurve) {
            Build(knownWith);
            const Errors with = ErrorsAt(point, 1);
            Build(knownWithout);
            const Errors without = ErrorsAt(point, 1);
            EXPECT_EQ(with.power, without.power);
            EXPECT_EQ(with.speed, without.speed);
        }
}

// Whoever has no no-load test takes the motor of his size and class from the database.
TEST_F(RealMotor, MotorOfItsSizeInTheDatabaseMeetsThePowerWithBothMethods)
{
    for (const int method : {0, 1}) {
        Build(Known::MotorOfTheDatabase);
        EXPECT_LE(Greatest(method, 10).power, 8) << method;
        EXPECT_LE(Greatest(method, 25).power, 5) << method;
    }
}

TEST_F(RealMotor, TypicalDataAreWorthMoreThanNone)
{
    for (const int method : {0, 1}) {
        Build(Known::TypicalData);
        const double typical = Greatest(method, 10).power;
        EXPECT_LE(typical, 8) << method;
        EXPECT_LE(Greatest(method, 25).power, 5) << method;
        Build(Known::PlateAlone);
        EXPECT_GT(Greatest(method, 10).power, 2 * typical) << method;
    }
}

TEST_F(RealMotor, TheDocumentShowsTheErrorsOfEveryCase)
{
    QFile file(QStringLiteral(KORVANEL_DOCS "/maschinenmodell.md"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QString document = QString::fromUtf8(file.readAll());
    for (double Errors::*const quantity : {&Errors::power, &Errors::speed, &Errors::efficiency}) {
        const QString rows = Rows(quantity).join(u'\n');
        EXPECT_TRUE(document.contains(rows)) << "should hold:\n" << rows.toStdString();
    }
}

} // namespace
} // namespace korvanel::test
