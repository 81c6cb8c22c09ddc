// Machines that the tests of model and estimation share: a measured motor of 18.5 kW, with and without its no-load
// test, and a generator of its size.
#pragma once

#include "core/Machine.h"

#include <cmath>

namespace korvanel::test {

/// Rating data and stator resistance: 18.5 kW, 400 V, 50 Hz, 1462.5 rpm, 32.85 A, cos phi 0.898.
inline MachineRecord Motor()
{
    MachineRecord record;
    record.Pmech = 18500;
    record.U = 400;
    record.n = 1462.5;
    record.I = 32.85;
    record.f = 50;
    record.cosphi = 0.898;
    record.Rs = 0.56;
    record.Schaltungsart = QStringLiteral("D");
    return record;
}

inline void AddNoLoadData(MachineRecord& record)
{
    record.Uo = 400;
    record.Io = 11;
    record.fo = 50;
    record.Po = std::sqrt(3.0) * 400 * 11 * 0.085;
}

inline MachineRecord MotorWithNoLoadData()
{
    MachineRecord record = Motor();
    AddNoLoadData(record);
    return record;
}

/// That motor as a database has it for a simulation: with its torque, pole pairs and stall torque.
inline MachineRecord SecondMotor()
{
    MachineRecord record = MotorWithNoLoadData();
    record.Polpaarzahl = 2;
    record.M = 120.8;
    record.Mkipp_Mn = 2.8;
    return record;
}

/// Pole pairs and no-load test, nothing else.
inline MachineRecord NoLoadDataOnly()
{
    MachineRecord record;
    record.Polpaarzahl = 2;
    AddNoLoadData(record);
    return record;
}

inline MachineRecord Generator()
{
    MachineRecord record = Motor();
    record.Pmech = -18500;
    record.n = 1530;
    record.I = 28;
    record.cosphi = -0.88;
    return record;
}

} // namespace korvanel::test
