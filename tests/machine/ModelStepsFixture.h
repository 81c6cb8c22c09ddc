// Machines in the making, as the steps of the model take them.
#pragma once

#include "machine/ExpectClose.h"
#include "machine/ModelSteps.h"
#include "support/Machines.h"

#include <functional>

namespace korvanel::test {

inline MachineInTheMaking Making(const MachineRecord& record)
{
    MachineInTheMaking machine{record, StatusOf(record), {}};
    ResistanceStep(machine);
    return machine;
}

struct Fault
{
    const char* what;
    std::function<void(MachineRecord&)> enter;
    ModelMessage message;
};

inline void ExpectFaults(ModelStepRoutine step, const MachineRecord& good, std::initializer_list<Fault> faults)
{
    for (const Fault& fault : faults) {
        MachineRecord record = good;
        fault.enter(record);
        MachineInTheMaking machine = Making(record);
        EXPECT_EQ(step(machine), fault.message) << fault.what;
        EXPECT_TRUE(IsFinite(machine)) << fault.what;
    }
}

} // namespace korvanel::test
