// A power analyser of the family ISKRA MI71XX: settings in MODBUS registers, measured values by a text query of its
// own. Built from the protocol alone, so that a mistake of the program's driver isn't repeated here.
//
// Values are those of the primary side, whatever the transformers are set to.
#pragma once

#include "simulator/InstrumentFamily.h"
#include "simulator/Readings.h"

#include <map>

namespace korvanel::simulator {

class Iskra final : public InstrumentFamily
{
public:
    explicit Iskra(const InstrumentSetup& setup);

    std::optional<std::size_t> RequestLength(ByteView beginning) const override;
    Answer Respond(ByteView request, double now) override;
    void SpoilCheck(Bytes& reply) const override;
    void SpoilHead(Bytes& reply, std::size_t part) const override;
    void Advance(double now) override;
    void SetAddress(int address) override;
    void SetProfile(const std::string& name, double now) override;
    void SetText(int code, const std::string& text) override;
    void SetValue(int code, double value) override;

private:
    Answer Read(ByteView request) const;
    Answer Write(ByteView request);
    Answer Query(ByteView request, double now) const;
    std::string ValueText(int code, double now) const;
    int ConnectedPhases() const;

    Byte ownAddress = 0;
    std::map<int, std::uint16_t> registers;
    std::map<int, std::string> setTexts; ///< value codes that no longer follow the profile
    LoadProfile profile = nullptr;
    EnergyCounters counters;
};

} // namespace korvanel::simulator
