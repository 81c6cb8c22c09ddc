// A power analyser NORMA D4355: a text query for each value, and settings that it takes without a word. Built from the
// protocol alone, so that a mistake of the program's driver isn't repeated here.
//
// It reads the phase that was selected, or all of them: then powers are those of all, voltage (to neutral) and current
// the means. The frequency is measured in phase 1 and told only while that is selected.
#pragma once

#include "simulator/LineMeter.h"

namespace korvanel::simulator {

class Norma final : public LineMeter
{
public:
    explicit Norma(const InstrumentSetup& setup);

    /// "selftest" good or bad.
    void SetState(const std::string& name, const std::string& state) override;

protected:
    Answer Obey(const std::string& line, double now) override;
    MeterWiring Wiring() const override { return wiring; }
    std::string Format(int code, double value) const override;
    /// As it is. With an empty text the query isn't answered at all.
    std::string Fit(const std::string& text) const override;

private:
    Answer Tell(int code, double now) const;
    bool Set(const std::string& line);

    MeterWiring wiring = MeterWiring::FourWire; // until a phase is selected
    std::string terminator = "vbCr";
    bool isSound = true; // as the self-test sees it
};

} // namespace korvanel::simulator
