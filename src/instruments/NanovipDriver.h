// The driver of the power analyser NANOVIP PLUS: one fixed request of MODBUS ASCII, whose reply holds all values.
#pragma once

#include "instruments/InstrumentDriver.h"

namespace korvanel {

class NanovipDriver : public InstrumentDriver
{
protected:
    int DataBits() const override { return 7; }
    Identity Identify() const override;
    /// Compares the instrument's net-type switch with the net configuration, and looks at its battery.
    void Configure() const override;
    void Prepare() const override;
    void Sample() const override;
};

extern const NanovipDriver kNanovipDriver;

} // namespace korvanel
