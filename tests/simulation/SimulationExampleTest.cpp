// The tables of docs/zweite-maschine.md, worked out by hand there in part, against those of the program: the load cycle
// of the measured motor on a smaller and a larger machine of the shipped database.
#include "core/NumberText.h"
#include "evaluation/Algorithms.h"
#include "evaluation/Rating.h"
#include "motors/MotorDatabase.h"
#include "simulation/Algorithms_ASM_Simulation.h"
#include "support/ProjectFixture.h"
#include "support/TestPaths.h"
#include "support/WorkedExample.h"

#include <QSettings>

#include <map>

namespace korvanel::test {
namespace {

constexpr double kJoulesPerKilowattHour = 3.6e6;

class SimulationExample : public ProjectTest
{
protected:
    SimulationExample()
    {
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, PathOf(QStringLiteral("settings")));
        options.emplace(App().sProgramDir);
        App().ProgSettings = &*options;
    }
    /// The IE3 motor with four poles of a rated power in kW.
    static MachineRecord Shipped(double kilowatts)
    {
        TableDb db = TableDb::Open(QStringLiteral(KORVANEL_MOTOR_DB));
        for (const MachineLine& line : ListMachines(db))
            if (line.record.Pmech == kilowatts * 1000 && line.record.Polpaarzahl == 2 &&
                line.record.Hersteller.contains(QStringLiteral("IE3")))
                return line.record;
        throw std::runtime_error("no such machine");
    }
    static QString Number(double value, double factor) { return RoundValue(value, factor); }
    /// What a machine does in each set: speed, power at the shaft, power drawn, efficiency.
    QStringList RowsOf(const char* table) const
    {
        QStringList cells;
        for (int set = 1; set <= 5; ++set)
            for (const auto& [column, factor] : {std::pair{"n", 1.0}, {"Pmech", 1.0}, {"P sum", 1.0}, {"eta", 1000.0}})
                cells << Number(Query(QStringLiteral("SELECT [%1] FROM %2 WHERE [Set]=%3")
                                          .arg(QLatin1String(column), QLatin1String(table))
                                          .arg(set))
                                    .toDouble(),
                                factor);
        return cells;
    }
    /// Energy per cycle, costs per year, efficiency of motor operation, most torque over the stall torque, the loss
    /// over the rated one and its verdict.
    static QStringList SummaryOf(const MachineInUse& machine)
    {
        const EvaluationResults& results = machine.evaluation;
        const EnergyEntry& energy = results.tEnergy.at(kEnergyActive);
        const UtilisationEntry& torque = results.tAsm.at(kMostTorque);
        const UtilisationEntry& loss = results.tAsm.at(kWholeLoss);
        return {Number(energy.dPlus / kJoulesPerKilowattHour, 10'000),
                Number(results.tEnergy.at(kEnergyEfficiency).dPlus, 1000),
                Number(results.tEnergy.at(kEnergyOfCycles).dPlus / kJoulesPerKilowattHour, 1),
                Number(results.tEnergy.at(kEnergyOfCycles + kCostsActive).dPlus, 100),
                Number(torque.vRatio.value_or(0) * 100, 10),
                Number(loss.vRatio.value_or(0) * 100, 10),
                loss.sVerdict};
    }
    static std::map<QString, QStringList> TablesOfDocument()
    {
        QFile document(QStringLiteral(KORVANEL_DOCS "/zweite-maschine.md"));
        EXPECT_TRUE(document.open(QIODevice::ReadOnly));
        std::map<QString, QStringList> columns; // by table and column, from top to bottom
        QString heading;
        QStringList heads;
        for (const QString& line : QString::fromUtf8(document.readAll()).split(u'\n')) {
            if (line.startsWith(QStringLiteral("### ")))
                heading = line.mid(4);
            if (!line.startsWith(u'|')) {
                heads.clear();
                continue;
            }
            QStringList cells = line.mid(1, line.lastIndexOf(u'|') - 1).split(u'|');
            for (QString& cell : cells)
                cell = cell.trimmed();
            if (heads.isEmpty())
                heads = cells;
            else if (!cells.first().startsWith(QStringLiteral("---")))
                for (qsizetype i = 1; i < cells.size(); ++i)
                    columns[heading + u'/' + heads.value(i)] << cells[i];
        }
        return columns;
    }
    std::optional<clsProgSettings> options;
};

TEST_F(SimulationExample, TablesOfTheDocument_AreThoseOfTheProgram)
{
    CreateProject(2);
    PutExample(*options);
    options->SetCycles(50'000);
    EvaluateProject();
    std::map<QString, QStringList> shown;
    const auto put = [&](const QString& name, const QStringList& rows, const MachineInUse& machine) {
        for (int i = 0; i < 4; ++i) {
            static const QStringList kColumns{"n", "Pmech", "Pel", "eta"};
            for (qsizetype set = 0; set < 5; ++set)
                shown[name + u'/' + kColumns[i]] << rows[set * 4 + i];
        }
        shown[QStringLiteral("Vergleich/") + name] = SummaryOf(machine);
    };
    const QString measured = QStringLiteral(
        "(SELECT SampledValues.[Set], n, Pmech, [P sum], eta FROM SampledValues JOIN ComputedValues USING ([Set]))");
    put(QStringLiteral("18,5 kW gemessen"), RowsOf(measured.toUtf8().constData()), App().MachineI);
    App().bASMSim = true;
    for (const double kilowatts : {15.0, 22.0}) {
        App().MachineII.record = Shipped(kilowatts);
        ASSERT_TRUE(RunSimulation());
        ASSERT_TRUE(EvaluateSimulation());
        put(NumberText(kilowatts) + QStringLiteral(" kW IE3"), RowsOf("SimulatedValues"), App().MachineII);
    }
    const std::map<QString, QStringList> told = TablesOfDocument();
    for (const auto& [name, cells] : shown) {
        const auto found = told.find(name);
        EXPECT_NE(found, told.end()) << name.toStdString() << ": " << cells.join(u'|').toStdString();
        if (found == told.end())
            continue;
        EXPECT_EQ(found->second, cells) << name.toStdString() << ": " << cells.join(u'|').toStdString();
    }
}

} // namespace
} // namespace korvanel::test
