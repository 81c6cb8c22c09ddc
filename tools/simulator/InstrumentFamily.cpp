#include "simulator/InstrumentFamily.h"

#include "simulator/Iskra.h"
#include "simulator/Nanovip.h"
#include "simulator/Norma.h"
#include "simulator/Yokogawa2535.h"
#include "simulator/YokogawaWt130.h"

#include <stdexcept>

namespace korvanel::simulator {

namespace {

struct NamedFamily
{
    const char* name;
    std::unique_ptr<InstrumentFamily> (*make)(const InstrumentSetup&);
};

template <typename Family>
std::unique_ptr<InstrumentFamily> Make(const InstrumentSetup& setup)
{
    return std::make_unique<Family>(setup);
}

constexpr NamedFamily kFamilies[] = {
    {"iskra", Make<Iskra>},       {"nanovip", Make<Nanovip>}, {"wt130", Make<YokogawaWt130>},
    {"2535", Make<Yokogawa2535>}, {"norma", Make<Norma>},
};

} // namespace

void InstrumentFamily::SetState(const std::string& name, const std::string& state)
{
    throw std::invalid_argument("unknown state: " + name + ' ' + state);
}

std::unique_ptr<InstrumentFamily> MakeFamily(const std::string& name, const InstrumentSetup& setup)
{
    for (const NamedFamily& family : kFamilies)
        if (name == family.name)
            return family.make(setup);
    throw std::invalid_argument("unknown family: " + name);
}

std::vector<std::string> FamilyNames()
{
    std::vector<std::string> names;
    for (const NamedFamily& family : kFamilies)
        names.emplace_back(family.name);
    return names;
}

} // namespace korvanel::simulator
