// A power meter YOKOGAWA WT130, whose block tells the phase angle beside voltage, current, power and frequency.
#pragma once

#include "simulator/Yokogawa.h"

namespace korvanel::simulator {

class YokogawaWt130 final : public Yokogawa
{
public:
    explicit YokogawaWt130(const InstrumentSetup& setup);

protected:
    std::string SetupText() const override;
    YokogawaBlock Block(double now) const override;
    /// A sign, five digits with their point, and a power of ten in threes.
    std::string Format(int code, double value) const override;

private:
    struct Angle;
    Angle AngleAt(double now) const;
};

} // namespace korvanel::simulator
