// The drivers of the power analysers YOKOGAWA WT130 and 2535: line commands, of which one asks for a block that holds
// all values.
#pragma once

#include "instruments/InstrumentDriver.h"

namespace korvanel {

class Wt130Driver : public InstrumentDriver
{
protected:
    Identity Identify() const override;
    void Configure() const override;
    void Sample() const override;
};

class Y2535Driver : public InstrumentDriver
{
protected:
    Identity Identify() const override;
    void Configure() const override;
    /// Asks by what the instrument scales its values itself.
    void Prepare() const override;
    void Sample() const override;
};

extern const Wt130Driver kWt130Driver;
extern const Y2535Driver k2535Driver;

} // namespace korvanel
