#include "motor_db/MotorTables.h"

#include "machine/ModelSteps.h"
#include "motor_db/EfficiencyLimits.h"
#include "motor_db/TypicalData.h"

#include <array>
#include <cmath>
#include <numbers>
#include <stdexcept>

namespace korvanel::motordb {

namespace {

constexpr double kVoltage = 400;     // V
constexpr double kFrequency = 50;    // Hz
constexpr double kLargestInStar = 3; // kW; larger ones are wound for delta, so that they can start in star
const QString kDelta = QStringLiteral("D");
const QString kStar = QStringLiteral("Y");

/// Rounded to tenths or hundredths: `parts` are 10 or 100.
double RoundedToParts(double value, double parts)
{
    return std::round(value * parts) / parts;
}

double Rpm(int poles)
{
    return 120 * kFrequency / poles;
}

/// The current to the four digits of a rating plate; `eta` is that of the standard or of the maker.
void CompleteRating(MachineRecord& machine, double eta)
{
    constexpr int kPlateDigits = 4;
    const double electrical = *machine.Pmech > 0 ? *machine.Pmech / eta : *machine.Pmech * eta;
    machine.I = RoundedToDigits(electrical / (std::numbers::sqrt3 * *machine.U * *machine.cosphi), kPlateDigits);
}

/// The machine with torque and efficiency as the model computes them, to the last digit: so it is found again after it
/// has been in use. Throws for a machine whose data contradict each other, or whose no-load power leaves no room for
/// load losses.
MachineRecord AsComputed(const MachineRecord& record)
{
    MachineInTheMaking machine{record, StatusOf(record), {}};
    for (const BuildLine& line : BuildOrder())
        if (IsAllKnown(line.needs, machine.status) && line.step(machine) != ModelMessage::None)
            throw std::runtime_error("no model of " + record.Hersteller.toStdString());
    if (machine.model.Po_rech <= 0)
        throw std::runtime_error("no room for load losses: " + record.Hersteller.toStdString());
    return machine.record;
}

/// What is typical of a number of poles.
struct PoleTraits
{
    double slip;             ///< share of that of a four-pole motor
    double leastPowerFactor; ///< of the smallest motor
    double bestPowerFactor;  ///< of the largest
};

constexpr std::array<PoleTraits, kPoles.size()> kTraits{{{0.8, 0.81, 0.90}, {1.0, 0.74, 0.88}, {1.1, 0.68, 0.86}}};

/// The slip of a four-pole motor of an efficiency class: `rest` + `part` P^-0.42, in percent, P in kW.
struct SlipLaw
{
    double rest;
    double part;
};

constexpr SlipLaw kSlipIE1{0.4, 5.9};
constexpr SlipLaw kSlipIE3{0.3, 3.6};

double TypicalSpeed(double kilowatts, int poles, const PoleTraits& traits, const SlipLaw& law)
{
    const double slip = traits.slip * (law.rest + law.part * std::pow(kilowatts, -0.42)) / 100;
    return std::round(Rpm(poles) * (1 - slip));
}

double TypicalPowerFactor(double kilowatts, const PoleTraits& traits)
{
    const double size = SizeOf(kilowatts);
    const double gain = 1 - (1 - size) * (1 - size);
    return RoundedToParts(traits.leastPowerFactor + gain * (traits.bestPowerFactor - traits.leastPowerFactor), 100);
}

QString LocalNumberText(double value)
{
    return QString::number(value).replace(u'.', u',');
}

QString RemarkOf(const char* name, int poles, double kilowatts, const QString& sources)
{
    return QStringLiteral("%1, %2-polig, %3 kW - %4")
        .arg(QString::fromUtf8(name), QString::number(poles), LocalNumberText(kilowatts), sources);
}

MachineRecord RatedMachine(int poles, double kilowatts)
{
    MachineRecord machine;
    machine.Polpaarzahl = static_cast<qint16>(poles / 2);
    machine.Pmech = kilowatts * 1000;
    machine.U = kVoltage;
    machine.f = kFrequency;
    return machine;
}

/// A motor of the standard's table.
MachineRecord StandardMotor(const LimitLine& line, std::size_t poleIndex, bool isEfficient)
{
    const int poles = kPoles[poleIndex];
    MachineRecord machine = RatedMachine(poles, line.kilowatts);
    machine.n = TypicalSpeed(line.kilowatts, poles, kTraits[poleIndex], isEfficient ? kSlipIE3 : kSlipIE1);
    machine.cosphi = TypicalPowerFactor(line.kilowatts, kTraits[poleIndex]);
    machine.Schaltungsart = line.kilowatts > kLargestInStar ? kDelta : kStar;
    CompleteRating(machine, (isEfficient ? line.ie3 : line.ie1)[poleIndex] / 100);
    AddTypicalData(machine, isEfficient);
    machine.Hersteller = RemarkOf(
        isEfficient ? "Normmotor IE3" : "Normmotor IE1", poles, line.kilowatts,
        QStringLiteral("eta: Grenzwert IEC 60034-30-1; I, M: berechnet; alles andere typisch, nicht gemessen"));
    return AsComputed(machine);
}

struct GeneratorLine
{
    int poles;
    double kilowatts; ///< taken from the shaft
    double rpm;
    double eta;
    double powerFactor;
};

constexpr GeneratorLine kGenerators[] = {
    {4, 7.5, 1540, 0.88, 0.80},
    {4, 22, 1525, 0.918, 0.84},
    {6, 55, 1013, 0.938, 0.85},
    {4, 132, 1511, 0.953, 0.87},
};

/// Power flows from the shaft to the net, so that both are negative; the speed lies above the synchronous one.
MachineRecord Generator(const GeneratorLine& line)
{
    MachineRecord machine = RatedMachine(line.poles, -line.kilowatts);
    machine.n = line.rpm;
    machine.cosphi = -line.powerFactor;
    machine.Schaltungsart = kDelta;
    CompleteRating(machine, line.eta);
    AddTypicalData(machine, false);
    machine.Hersteller = RemarkOf("Asynchrongenerator", line.poles, line.kilowatts,
                                  QStringLiteral("I, M: berechnet; alles andere typisch, nicht gemessen"));
    return AsComputed(machine);
}

/// A motor on the test bench: rating, no-load test and stator resistance at 20 degrees.
MachineRecord MeasuredMotor()
{
    constexpr double kNoLoadPowerFactor = 0.085;
    MachineRecord machine = RatedMachine(4, 18.5);
    machine.n = 1462.5;
    machine.I = 32.85;
    machine.cosphi = 0.898;
    machine.Uo = kVoltage;
    machine.Io = 11.0;
    machine.fo = kFrequency;
    machine.Po = std::numbers::sqrt3 * *machine.Uo * *machine.Io * kNoLoadPowerFactor;
    machine.Schaltungsart = kDelta;
    machine.Rs = 0.56;
    AddTypicalData(machine, false);
    machine.Hersteller =
        RemarkOf("Prüfstandsmotor", 4, 18.5,
                 QStringLiteral("Bemessungsdaten, Leerlaufversuch, Rs (20 °C je Strang): gemessen; eta, M: berechnet; "
                                "Kippmoment, Tth, Klasse, Gewicht: typisch"));
    return AsComputed(machine);
}

} // namespace

std::vector<MachineRecord> AllMachines()
{
    std::vector<MachineRecord> machines{MeasuredMotor()};
    for (const LimitLine& line : kLimits)
        for (std::size_t poleIndex = 0; poleIndex < kPoles.size(); ++poleIndex)
            for (const bool isEfficient : {false, true})
                machines.push_back(StandardMotor(line, poleIndex, isEfficient));
    for (const GeneratorLine& line : kGenerators)
        machines.push_back(Generator(line));
    return machines;
}

} // namespace korvanel::motordb
