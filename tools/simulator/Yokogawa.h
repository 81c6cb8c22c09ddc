// What the instruments of YOKOGAWA have in common: they take setup commands of two letters without a word, tell their
// setup on "OS" and all values in one block of fixed length on "OD". Built from the protocol alone, so that a mistake
// of the program's driver isn't repeated here.
//
// The block has lines of items, an item a head of six characters and a value: voltages, currents and powers of each
// element and of all, and what there is once. Only the items of the wiring in use are measured; the others read zero.
#pragma once

#include "simulator/LineMeter.h"

namespace korvanel::simulator {

/// A block while it is put together. Positions count from 0.
class YokogawaBlock
{
public:
    /// An item behind those of its line; the position of its value.
    std::size_t Add(const std::string& head, const std::string& value);
    void EndLine();
    void Append(const std::string& text) { block += text; }
    void Replace(std::size_t position, const std::string& text) { block.replace(position, text.size(), text); }
    /// Lets the log tell what stands there.
    void Name(const char* name, std::size_t position, std::size_t length);
    Answer Tell() const;

private:
    struct Place
    {
        const char* name;
        std::size_t position;
        std::size_t length;
    };

    std::string block;
    std::vector<Place> places;
};

class Yokogawa : public LineMeter
{
protected:
    Yokogawa(const InstrumentSetup& setup, std::vector<int> codes, std::size_t fieldLength);

    Answer Obey(const std::string& line, double now) final;
    MeterWiring Wiring() const final { return wiring; }
    std::string Fit(const std::string& text) const final;

    /// What "OS" answers.
    virtual std::string SetupText() const = 0;
    virtual YokogawaBlock Block(double now) const = 0;

    /// An item of a value, which the log tells.
    void AddValue(YokogawaBlock& block, const std::string& head, int code, double now) const;
    /// The lines of voltage, current and power, with the elements that the instrument tells and that which is measured.
    void AddElements(YokogawaBlock& block, const std::vector<std::string>& elements, std::size_t measured,
                     double now) const;
    std::size_t FieldLength() const { return fieldLength; }
    /// The command that has set the wiring, "WR1".
    std::string WiringText() const;

private:
    bool Set(const std::string& line);

    std::size_t fieldLength;
    MeterWiring wiring = MeterWiring::OnePhase;
};

} // namespace korvanel::simulator
