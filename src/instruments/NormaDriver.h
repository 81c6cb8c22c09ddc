// The driver of the power analyser NORMA D4355: one text query for each value.
#pragma once

#include "core/ValueRow.h"
#include "instruments/InstrumentDriver.h"

#include <array>

namespace korvanel {

class NormaDriver : public InstrumentDriver
{
protected:
    /// The self-test of the instrument; one that passes it is told its line end, and has to know it.
    Identity Identify() const override;
    void Configure() const override;
    void Sample() const override;
};

/// Forms of what was read (voltage, current, active and reactive power as the instrument gives them) what a row holds.
/// A voltage below half a volt makes the sample invalid, and nothing is formed. `isFourWire`: the voltage is that to
/// the neutral conductor of three phases.
void FinishNormaRow(tMeasuredRow& row, const std::array<double, 2>& ratio, bool isFourWire);

extern const NormaDriver kNormaDriver;

} // namespace korvanel
