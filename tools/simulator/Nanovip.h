// A power meter NANOVIP PLUS: one request of MODBUS ASCII for all its registers, and one reply that holds all values.
// Built from the protocol alone, so that a mistake of the program's driver isn't repeated here.
//
// A switch at its side says what it is connected to: with one phase it reads that, with three it takes the voltage
// between the lines and tells the power of all. The power factor is negative when capacitive, whatever the direction.
#pragma once

#include "simulator/LineMeter.h"

namespace korvanel::simulator {

class Nanovip final : public LineMeter
{
public:
    /// Throws std::invalid_argument for a switch at neither 1 nor 3.
    explicit Nanovip(const InstrumentSetup& setup);

    void SpoilCheck(Bytes& reply) const override;
    void SpoilHead(Bytes& reply, std::size_t part) const override;
    /// "switch" 1 or 3, "overrange" on or off, "battery" low or good.
    void SetState(const std::string& name, const std::string& state) override;

protected:
    Answer Obey(const std::string& line, double now) override;
    MeterWiring Wiring() const override;
    /// Six characters: three digits of a number, its sign and its power of ten.
    std::string Format(int code, double value) const override;
    std::string Fit(const std::string& text) const override;
    double Measure(int code, const Readings& readings) const override;

private:
    Answer TellAll(double now) const;

    Byte status = 0;
};

} // namespace korvanel::simulator
