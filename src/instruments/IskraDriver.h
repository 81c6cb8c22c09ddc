// The driver of the power analysers ISKRA MI 7130, MI 7131, MI 7140 and MI 7150: MODBUS RTU for configuration,
// transformers and counters, and the instrument's own text query for the measured values.
#pragma once

#include "instruments/InstrumentDriver.h"

namespace korvanel {

class IskraDriver : public InstrumentDriver
{
protected:
    /// Refuses an address outside the bus before anything is opened.
    void Open() const override;
    Identity Identify() const override;
    void Configure() const override;
    void Sample() const override;
    void ReadTransformers() const override;
    void WriteTransformers() const override;
    void ResetCounters() const override;
    void ReadInfo() const override;
};

extern const IskraDriver kIskraDriver;

} // namespace korvanel
