#include "demo/DemoInstrument.h"

#include <algorithm>
#include <numbers>

namespace korvanel {

namespace {

constexpr double kExact = 1e-9;
constexpr double kSinglePrecision = 1e-7; // in which the values of that instrument are read

const std::vector<DemoInstrument>& DemoInstruments()
{
    static const std::vector<DemoInstrument> instruments = {
        {"iskra",
         "ISKRA MI71XX 3Ø4W (4u)",
         true,
         kExact,
         {{40, "", "U sum", 1},
          {12, "", "I sum", 1.0 / 3}, // the instrument sends the sum of the phases, the set holds their mean
          {28, "", "f sum", 1},
          {32, "", "phi sum", 1}}},
        {"nanovip",
         "NANOVIP-PLUS 3Ø3W",
         false,
         kSinglePrecision,
         {{-1, "U", "U sum", 1}, {-1, "I", "I sum", 1}, {-1, "P", "P sum", 1}, {-1, "f", "f sum", 1}}},
        {"wt130",
         "YOKOGAWA WT130 3Ø3W",
         false,
         kExact,
         {{-1, "U", "U sum", 1}, {-1, "I", "I sum", 1}, {-1, "P", "P sum", 1}, {-1, "f", "f sum", 1}}},
        {"2535",
         "YOKOGAWA 2535 3Ø3W",
         false,
         kExact,
         {{-1, "U", "U sum", 1}, {-1, "I", "I sum", 1}, {-1, "P", "P sum", 1}, {-1, "f", "f sum", 1}}},
        {"norma",
         "NORMA D4355 3Ø4W",
         false,
         kExact,
         {{3, "", "P sum", 1},
          {0, "", "U sum", std::numbers::sqrt3}, // sent to neutral, stored between the lines
          {1, "", "I sum", 1},
          {2, "", "f sum", 1}}},
    };
    return instruments;
}

} // namespace

const DemoInstrument* FindDemoInstrument(const QString& family)
{
    const std::vector<DemoInstrument>& all = DemoInstruments();
    const auto found = std::find_if(all.begin(), all.end(), [&family](const DemoInstrument& instrument) {
        return family == QLatin1String(instrument.family);
    });
    return found == all.end() ? nullptr : &*found;
}

QStringList DemoFamilies()
{
    QStringList families;
    for (const DemoInstrument& instrument : DemoInstruments())
        families << QString::fromLatin1(instrument.family);
    return families;
}

} // namespace korvanel
