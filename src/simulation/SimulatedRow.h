// One set of a load cycle on another machine: torque, voltage and frequency are those of the set, speed and powers what
// the other machine makes of them. Plain numbers in, plain numbers out.
#pragma once

#include "core/Machine.h"

namespace korvanel {

/// What is taken of the second machine.
struct SecondMachine
{
    double U = 0;      ///< V, rated voltage
    double f = 0;      ///< Hz, rated frequency
    double M = 0;      ///< Nm, rated torque
    int polePairs = 0; ///< less than 1: not known
    double slip = 0;   ///< rated slip, 1
    double Po = 0;     ///< W, no-load power at rated voltage and frequency
    double k = 0;      ///< W/Nm2, load losses are k M2; may be negative
};

/// Of a machine whose working values have been computed. k is what the rated losses leave beside the full no-load
/// power, over the square of the torque; unlike that of the machine's own listing it knows no speed ratio, so that the
/// machine draws its rated power at rated torque and synchronous speed of the losses. 0 without torque.
SecondMachine SecondMachineOf(const MachineRecord& record, const MachineModel& model);

struct SimulatedPoint
{
    double n = 0;     ///< rpm
    double Pmech = 0; ///< W at the shaft
    double P = 0;     ///< W drawn, signed
    double eta = 0;   ///< 0 to 1
    double loss = 0;  ///< W lost in the machine
};

/// The machine at a torque `M` (Nm), supply voltage `U` (V) and frequency `f` (Hz). Speed: the straight line through
/// the synchronous speed and the rated point, whose torque goes with the square of U/f (law of small slips). Power:
/// load losses, shaft power, and the no-load power at this supply, which goes with the cube of the speed ratio. Without
/// frequency, pole pairs or rated values what depends on them is 0.
SimulatedPoint SimulatedPointAt(const SecondMachine& machine, double M, double U, double f);

} // namespace korvanel
