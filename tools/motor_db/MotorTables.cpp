#include "motor_db/MotorTables.h"

#include "motor_db/EfficiencyLimits.h"

#include <cmath>
#include <numbers>

namespace korvanel::motordb {

namespace {

constexpr double kVoltage = 400;  // V
constexpr double kFrequency = 50; // Hz
constexpr double kSmallest = 0.75;
constexpr double kLargest = 200;
constexpr double kLargestInStar = 3; // kW; larger ones are wound for delta, so that they can start in star
const QString kDelta = QStringLiteral("D");
const QString kStar = QStringLiteral("Y");

/// Rounded to tenths or hundredths: `parts` are 10 or 100.
double RoundedToParts(double value, double parts)
{
    return std::round(value * parts) / parts;
}

double RoundedToDigits(double value, int digits)
{
    const int exponent = digits - 1 - static_cast<int>(std::floor(std::log10(std::abs(value))));
    const double factor = std::pow(10.0, std::abs(exponent));
    return exponent >= 0 ? std::round(value * factor) / factor : std::round(value / factor) * factor;
}

double Rpm(int poles)
{
    return 120 * kFrequency / poles;
}

/// Connects power, speed, efficiency and power factor to torque and current, to the four digits of a rating plate.
void CompleteRating(MachineRecord& machine)
{
    constexpr int kPlateDigits = 4;
    const double electrical = *machine.Pmech > 0 ? *machine.Pmech / *machine.eta : *machine.Pmech * *machine.eta;
    machine.M = RoundedToDigits(60 * *machine.Pmech / (2 * std::numbers::pi * *machine.n), kPlateDigits);
    machine.I = RoundedToDigits(electrical / (std::numbers::sqrt3 * *machine.U * *machine.cosphi), kPlateDigits);
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
    const double size = std::log(kilowatts / kSmallest) / std::log(kLargest / kSmallest); // 0 to 1
    const double gain = 1 - (1 - size) * (1 - size);
    return RoundedToParts(traits.leastPowerFactor + gain * (traits.bestPowerFactor - traits.leastPowerFactor), 100);
}

/// Stall ratio, insulation class and mass, which catalogues tell of most four-pole motors.
void AddTypicalData(MachineRecord& machine, double kilowatts, bool isEfficient)
{
    const double size = std::log(kilowatts / kSmallest);
    machine.Mkipp_Mn = RoundedToParts(isEfficient ? 3.4 - 0.08 * size : 2.4 + 0.03 * size, 10);
    machine.I_CL = QStringLiteral("F");
    machine.Masse = RoundedToDigits((isEfficient ? 19 : 16) * std::pow(kilowatts, 0.77), 2);
}

void AddTypicalTimeConstant(MachineRecord& machine, double kilowatts)
{
    constexpr double kSecondsPerMinute = 60;
    machine.Tth = std::round(18 * std::pow(kilowatts, 0.2)) * kSecondsPerMinute;
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

/// A motor of the standard's table. The four-pole ones know more than their rating.
MachineRecord StandardMotor(const LimitLine& line, std::size_t poleIndex, bool isEfficient)
{
    const int poles = kPoles[poleIndex];
    MachineRecord machine = RatedMachine(poles, line.kilowatts);
    machine.eta = RoundedToParts((isEfficient ? line.ie3 : line.ie1)[poleIndex] / 100, 1000);
    machine.n = TypicalSpeed(line.kilowatts, poles, kTraits[poleIndex], isEfficient ? kSlipIE3 : kSlipIE1);
    machine.cosphi = TypicalPowerFactor(line.kilowatts, kTraits[poleIndex]);
    machine.Schaltungsart = line.kilowatts > kLargestInStar ? kDelta : kStar;
    CompleteRating(machine);
    QString sources = QStringLiteral("eta: Grenzwert IEC 60034-30-1; n, cosphi, Schaltung: typisch; I, M: berechnet");
    if (poles == 4) {
        AddTypicalData(machine, line.kilowatts, isEfficient);
        sources += QStringLiteral("; Kippmoment, Klasse, Gewicht: typisch");
    }
    if (poles == 4 && isEfficient) {
        AddTypicalTimeConstant(machine, line.kilowatts);
        sources += QStringLiteral("; Tth: typisch");
    }
    machine.Hersteller = RemarkOf(isEfficient ? "Normmotor IE3" : "Normmotor IE1", poles, line.kilowatts, sources);
    return machine;
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
    machine.eta = line.eta;
    machine.cosphi = -line.powerFactor;
    machine.Schaltungsart = kDelta;
    CompleteRating(machine);
    machine.Hersteller = RemarkOf("Asynchrongenerator", line.poles, line.kilowatts,
                                  QStringLiteral("n, eta, cosphi, Schaltung: typisch; I, M: berechnet"));
    return machine;
}

/// A motor on the test bench: rating, no-load test and stator resistance at 20 degrees.
MachineRecord MeasuredMotor()
{
    constexpr double kNoLoadPowerFactor = 0.085;
    MachineRecord machine = RatedMachine(4, 18.5);
    machine.n = 1462.5;
    machine.I = 32.85;
    machine.cosphi = 0.898;
    machine.eta =
        RoundedToDigits(*machine.Pmech / (std::numbers::sqrt3 * *machine.U * *machine.I * *machine.cosphi), 4);
    machine.M = RoundedToDigits(60 * *machine.Pmech / (2 * std::numbers::pi * *machine.n), 4);
    machine.Uo = kVoltage;
    machine.Io = 11.0;
    machine.fo = kFrequency;
    machine.Po = std::numbers::sqrt3 * *machine.Uo * *machine.Io * kNoLoadPowerFactor;
    machine.Schaltungsart = kDelta;
    machine.Rs = 0.56;
    machine.Hersteller =
        RemarkOf("Prüfstandsmotor", 4, 18.5,
                 QStringLiteral("Bemessungsdaten, Leerlaufversuch, Rs (20 °C je Strang): gemessen; eta, M: berechnet"));
    return machine;
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
