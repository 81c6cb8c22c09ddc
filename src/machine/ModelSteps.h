// The steps by which the model of a machine is built. Each is a pure function on a machine in the making: it reads what
// is known, writes what follows, and ends at the first error it finds with the number of the message that tells it.
#pragma once

#include "core/Machine.h"

#include <span>

namespace korvanel {

/// Numbers of the messages about a machine's data.
enum class ModelMessage
{
    None = 0,
    CheckRating = 1,
    InvalidSpeed = 2,
    CheckNoLoad = 3,
    NoLoadBeyondRating = 4,
    CheckRatingAndPolePairs = 5,
    NoLoadMeasurementFailed = 6,
    NoLoadMeasurementScattered = 7,
    NoLoadFrequency = 8
};
inline constexpr int kModelMessageCount = 8;

/// A machine whose model is being built. The record takes part: rated torque, efficiency and pole pairs follow from the
/// rest of the rating data.
struct MachineInTheMaking
{
    MachineRecord record;
    MachineStatus status{};
    MachineModel model;
};

/// What is known of a machine. An empty text counts as not known.
MachineStatus StatusOf(const MachineRecord& record);

/// Friction torque in use, Nm: at the connection of the machine that of the no-load test, else that of the rating; 0
/// without either, for any other connection, and if the record forces it to zero.
double FrictionTorque(const MachineRecord& record, const MachineModel& model);

using ModelStepRoutine = ModelMessage (*)(MachineInTheMaking&);

/// Step 8: stator resistance.
ModelMessage ResistanceStep(MachineInTheMaking& machine);
/// Step 1: what follows from the rating data. A rated value that is missing counts as an error of the rating data.
ModelMessage RatingStep(MachineInTheMaking& machine);
/// Whether the no-load data fit to the rating data. It compares with the power factor that the build before has left,
/// since step 2 comes after it. What is not known can't contradict.
ModelMessage NoLoadCheck(MachineInTheMaking& machine);
/// Step 2: what follows from the no-load data. A value that is missing counts as an error of the no-load data.
ModelMessage NoLoadStep(MachineInTheMaking& machine);
/// Step 4: stall point.
ModelMessage StallStep(MachineInTheMaking& machine);
/// Step 5: thermal time constant from insulation class and mass.
ModelMessage ThermalStep(MachineInTheMaking& machine);
/// Step 7: thermal time constant and friction torque in use.
ModelMessage ChoiceStep(MachineInTheMaking& machine);
/// Step 6: factor of the space vector torque.
ModelMessage FactorStep(MachineInTheMaking& machine);

/// What is kept of the machine of the simulation: electrical power (its magnitude), stall torque, synchronous speed,
/// slip, no-load powers and load-loss constant. Torque and pole pairs are those of the record, as it stands.
ModelMessage SecondMachineStep(MachineInTheMaking& machine);

/// A line of the order in which a model is built: it applies if all that it needs is known.
struct BuildLine
{
    ModelStepRoutine step;
    unsigned needs = 0; ///< bits by `MachineKnowledge`
};
std::span<const BuildLine> BuildOrder();

/// Whether all pieces of knowledge are there; bits by `MachineKnowledge`.
bool IsAllKnown(unsigned needs, const MachineStatus& status);

/// The step of a number; nothing for a number without one.
ModelStepRoutine StepOf(int code);

/// Whether all results of a machine are finite.
bool IsFinite(const MachineInTheMaking& machine);

/// Whether a machine can be used for estimation: rating data are known, or connection and pole pairs.
bool IsUsable(const MachineStatus& status);

/// Limits of the diagram axes from the rating data: 5 or 10 times a power of ten above the rated values.
DiagramLimitList DiagramLimitsOf(const MachineInTheMaking& machine);

} // namespace korvanel
