// A machine typed into the real program, its no-load test through the line, and the estimation of each recorded set.
#include "e2e/MachineFixture.h"

#include <cmath>
#include <numbers>

namespace korvanel::test {
namespace {

constexpr double kPi = std::numbers::pi;

/// The rating plate and no-load test of the measured 18.5 kW motor.
struct Plate
{
    double Pmech = 18500;
    double U = 400;
    double f = 50;
    double n = 1462.5;
    double I = 32.85;
    double cosphi = 0.898;
    double Po = 647.8;
    double Uo = 400;
    double fo = 50;
    int p = 2;
};

struct Estimate
{
    double n, M, Pmech, eta;
};

/// The power balance, worked out here step by step for a motor with no-load data.
Estimate PowerBalance(const Plate& m, double U, double f, double P)
{
    const double rated = std::sqrt(3.0) * m.U * m.I * m.cosphi;
    const double ratedTorque = 60 * m.Pmech / (2 * kPi * m.n);
    const double synchronous = 60 * m.f / m.p;
    const auto noLoad = [](double power, double Ua, double Ub, double fa, double fb) {
        return power * std::pow(Ua / Ub, 2) * std::pow(fa / fb, Ua / Ub);
    };
    const double Po = noLoad(m.Po, m.U, m.Uo, m.f, m.fo);
    const double k = (rated - m.Pmech - Po * std::pow(m.n / synchronous, 3)) / std::pow(ratedTorque, 2);
    const double R2 = std::pow(m.U / m.f, 2) * m.p * m.p * (m.f / m.p - m.n / 60) / ratedTorque;
    const double A = k - 2 * kPi * R2 * std::pow(f / (m.p * U), 2);
    const double B = 2 * kPi * f / m.p;
    const auto torque = [&](double losses) {
        const double D = std::pow(B / (2 * A), 2) - (losses - P) / A;
        if (D < 0)
            return 0.0;
        const double r1 = -B / A / 2 + std::sqrt(D);
        const double r2 = -B / A / 2 - std::sqrt(D);
        return std::abs(r1) < std::abs(r2) ? r1 : r2;
    };
    const auto speed = [&](double M) { return 60 * (f / m.p - R2 * M * f * f / std::pow(m.p * U, 2)); };
    double losses = noLoad(Po, U, m.U, f, m.f);
    const double first = speed(torque(losses));
    losses *= std::pow(first / (60 * f / m.p), 3);
    const double M = torque(losses);
    const double n = speed(M);
    const double shaft = 2 * kPi * M * n / 60;
    const double eta = shaft == 0 || P == 0 ? 0 : shaft > 0 ? (P > losses ? shaft / P : 0) : (P < 0 ? P / shaft : 0);
    return {n, M, shaft, eta};
}

class MachineTest : public MachineProgramTest
{
protected:
    void OpenMachinePage() { MachineProgramTest::OpenMachinePage(simulator.Link()); }

    SimulatorProcess simulator{folder.path(), {"--profile", "duty"}};
};

TEST_F(MachineTest, TypedMachine_EstimatesEachRecordedSet)
{
    OpenMachinePage();
    const int before = InDatabase("SELECT count(*) FROM Motor").toInt();
    TypePlate(true);
    program.Trigger("cmdInsert_0");
    program.WaitForControl("cmdEdit_0");
    EXPECT_EQ(InDatabase("SELECT count(*) FROM Motor").toInt(), before + 1);
    EXPECT_EQ(InDatabase("SELECT Pmech FROM Motor WHERE Hersteller LIKE 'Pumpe%'").toDouble(), 18.5);
    program.Trigger("cmdForw");
    program.WaitForControl("FormF3");
    EXPECT_EQ(Query("SELECT Hersteller FROM Motor WHERE set_ID=1"), "Pumpe 'Nord'; 100 % \"neu\"");
    program.Choose("cboSelect", "ISKRA MI71XX 3Ø4W (4u)");
    Diagnose();
    OpenRun();
    EXPECT_EQ(program.Text("cboEngine"), "Leistungsbilanz (P)");
    program.Trigger("cmdSTART");
    ASSERT_TRUE(WaitForSamples(8));
    EXPECT_EQ(program.Text("lblMethod"), "Leistungsbilanz (P)");
    StopRun();
    const Plate plate;
    const int count = Count();
    ASSERT_GE(count, 8);
    for (int set = 1; set <= count; ++set) {
        const auto value = [&](const char* column) {
            return Query(QStringLiteral("SELECT [%1] FROM SampledValues NATURAL JOIN ComputedValues WHERE "
                                        "SampledValues.[Set]=%2")
                             .arg(QLatin1String(column))
                             .arg(set))
                .toDouble();
        };
        const Estimate expected = PowerBalance(plate, value("U sum"), value("f sum"), value("P sum"));
        EXPECT_NEAR(value("n"), expected.n, 1e-9 * expected.n) << set;
        EXPECT_NEAR(value("M"), expected.M, 1e-8 * std::max(1.0, std::abs(expected.M))) << set;
        EXPECT_NEAR(value("Pmech"), expected.Pmech, 1e-8 * std::max(1.0, std::abs(expected.Pmech))) << set;
        EXPECT_NEAR(value("eta"), expected.eta, 1e-8) << set;
    }
    EXPECT_EQ(Query("SELECT group_concat(DISTINCT Method) FROM ComputedValues"), "P");
}

TEST_F(MachineTest, NoLoadTest_TakesTheMeanOfSevenSteadySamples)
{
    simulator.Tell("profile constant");
    OpenMachinePage();
    for (const char* command : {"set 40 400.00V", "set 12 33.000A", "set 28 50.000H", "set 32   85.12"})
        simulator.Tell(command);
    TypePlate(false);
    Check("chkstatus_1", true);
    Check("chkOnline", true);
    program.Choose("cboSelect", "ISKRA MI71XX 3Ø4W (4u)");
    program.Trigger("cmdNoLoad");
    program.WaitForText("cmdNoLoad", "Messung beenden");
    program.WaitForText("cmdNoLoad", "Leerlaufdaten ermitteln");
    const auto number = [this](const char* box) { return program.Text(box).replace(',', '.').toDouble(); };
    EXPECT_NEAR(number("txtLeerlauf_1"), 400, 0.01);
    EXPECT_NEAR(number("txtLeerlauf_2"), 11, 0.001);
    EXPECT_NEAR(number("txtLeerlauf_3"), 50, 0.001);
    EXPECT_NEAR(number("txtLeerlauf_0"), std::sqrt(3.0) * 400 * 11 * std::cos(85.12 * kPi / 180) / 1000, 0.0005);
}

TEST_F(MachineTest, NoLoadTest_ThatScattersOrFailsIsTold)
{
    OpenMachinePage();
    TypePlate(false);
    Check("chkstatus_1", true);
    Check("chkOnline", true);
    program.Choose("cboSelect", "ISKRA MI71XX 3Ø4W (4u)");
    for (const char* command : {"set 40 400.00V", "set 12 33.000A", "set 28 50.000H", "set 32   85.12"})
        simulator.Tell(command);
    program.Trigger("cmdNoLoad");
    program.WaitForText("cmdNoLoad", "Messung beenden");
    QThread::msleep(2000);
    simulator.Tell("set 12 40.000A");
    EXPECT_EQ(program.AnswerBox("OK"),
              "Die gemessenen Werte schwankten zu stark.\nWiederholen Sie Messung wenn möglich.");
    program.WaitForQuiet();
    EXPECT_EQ(program.Text("txtLeerlauf_2"), "");
    simulator.Tell("set 12 33.000A");
    program.Trigger("cmdNoLoad");
    program.WaitForText("cmdNoLoad", "Messung beenden");
    simulator.Tell("fault silent");
    EXPECT_EQ(program.AnswerBox("OK"),
              "Es sind Fehler bei der Leerlaufmessung aufgetreten.\nWiederholen Sie Messung wenn möglich.");
    program.WaitForQuiet();
    program.WaitForText("cmdNoLoad", "Leerlaufdaten ermitteln");
}

TEST_F(MachineTest, MeasuringPageWithoutAMachine_LeadsToTheMachinePage)
{
    AssignPort(simulator.Link());
    StartProgram();
    NewProject(2);
    program.Trigger("mnuOnlineDevice");
    EXPECT_EQ(program.AnswerBox("OK"),
              "Sie haben keine bzw. eine für die Messreihe ungültige Asynchron-Maschine aus der "
              "Datenbank gewählt.");
    program.WaitForControl("FormF10");
}

} // namespace
} // namespace korvanel::test
