// A power analyser YOKOGAWA 2535. Its block tells voltage, current, power and frequency, and nothing of the phase; it
// can be told to tell them without the factors of its transformers, which are read with its setup.
#pragma once

#include "simulator/Yokogawa.h"

namespace korvanel::simulator {

class Yokogawa2535 final : public Yokogawa
{
public:
    /// Throws std::invalid_argument for factors that its setup has no room for.
    explicit Yokogawa2535(const InstrumentSetup& setup);

protected:
    std::string SetupText() const override;
    YokogawaBlock Block(double now) const override;
    /// A number with a point, at the right end of the field.
    std::string Format(int code, double value) const override;
    double Measure(int code, const Readings& readings) const override;

private:
    std::string scalingText;
    Scaling scaling; ///< as the setup tells it, with its digits
};

} // namespace korvanel::simulator
