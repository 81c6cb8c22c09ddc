// What the families have in common that are spoken to in lines: a request is a text up to CR LF, and so is what they
// answer. They tell one value of each quantity, have no bus address that could be changed, and count no energy.
#pragma once

#include "simulator/InstrumentFamily.h"
#include "simulator/MeterValues.h"

#include <map>

namespace korvanel::simulator {

class LineMeter : public InstrumentFamily
{
public:
    std::optional<std::size_t> RequestLength(ByteView beginning) const final;
    bool MarksEnds() const final { return true; }
    Answer Respond(ByteView request, double now) final;
    void SpoilCheck(Bytes& reply) const override;
    void SpoilHead(Bytes& reply, std::size_t part) const override;
    void Advance(double) final {}
    void SetAddress(int address) final;
    void SetProfile(const std::string& name, double now) final;
    void SetText(int code, const std::string& text) final;
    void SetValue(int code, double value) final;

protected:
    /// `codes` are the values that the family tells.
    LineMeter(const InstrumentSetup& setup, std::vector<int> codes);

    /// Takes a line, without its end.
    virtual Answer Obey(const std::string& line, double now) = 0;
    virtual MeterWiring Wiring() const = 0;
    /// A value as the family writes it. Throws std::invalid_argument if it is too large for that.
    virtual std::string Format(int code, double value) const = 0;
    /// A text that was set, as it goes into the reply. Throws std::invalid_argument if it can't.
    virtual std::string Fit(const std::string& text) const = 0;
    /// What the net gives, unless something else was set.
    virtual double Measure(int code, const Readings& readings) const;

    /// The text that was set for a value code; null if it has none.
    const std::string* SetTextOf(int code) const;
    bool HasValue(int code) const { return setValues.count(code) != 0; }
    /// The value in force, of a code without a text of its own.
    double ValueAt(int code, double now) const;
    std::string TextAt(int code, double now) const;

    /// The text and the end of a line.
    static Bytes Line(const std::string& text);

private:
    void RequireCode(int code) const;

    std::vector<int> ownCodes;
    LoadProfile profile;
    std::map<int, std::string> setTexts; ///< value codes that no longer follow the profile; a code is in one of these
    std::map<int, double> setValues;
};

} // namespace korvanel::simulator
