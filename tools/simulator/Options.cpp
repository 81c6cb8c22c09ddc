#include "simulator/Options.h"

#include "simulator/LoadProfile.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <sstream>

#include <getopt.h>

namespace korvanel::simulator {

namespace {

template <typename Number>
Number ParseWhole(const std::string& text)
{
    Number number{};
    const char* const end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || rest != end)
        throw std::invalid_argument("not a number: " + text);
    return number;
}

std::string Listed(const std::vector<std::string>& names)
{
    std::string list;
    for (const std::string& name : names)
        list += (list.empty() ? "" : "|") + name;
    return list;
}

/// Numbers with commas between; `need` says how many there have to be.
std::vector<double> ParseList(const std::string& text, std::size_t count, const char* need)
{
    std::vector<double> numbers;
    std::istringstream parts(text);
    for (std::string part; std::getline(parts, part, ',');)
        numbers.push_back(ParseNumber(part));
    if (numbers.size() != count || text.back() == ',')
        throw std::invalid_argument(need + (": " + text));
    return numbers;
}

Transformers ParseTransformers(const std::string& text)
{
    const std::vector<double> numbers = ParseList(text, 4, "transformers need four numbers");
    return {numbers[0], numbers[1], numbers[2], numbers[3]};
}

Scaling ParseScaling(const std::string& text)
{
    const std::vector<double> numbers = ParseList(text, 2, "scale needs two numbers");
    return {numbers[0], numbers[1]};
}

struct OptionEntry
{
    const char* name;
    const char* argument; ///< null: none
    std::string help;
    void (*apply)(Options&, const std::string&);
};

const std::vector<OptionEntry>& Entries()
{
    static const std::vector<OptionEntry> entries = {
        {"family", "NAME", "protocol: " + Listed(FamilyNames()),
         [](Options& o, const std::string& v) { o.family = v; }},
        {"address", "N", "iskra: address on the bus, 1 to 247 (33)",
         [](Options& o, const std::string& v) { o.setup.address = ParseInteger(v); }},
        {"link", "PATH", "symbolic link to the device, while the simulator runs",
         [](Options& o, const std::string& v) { o.link = v; }},
        {"log", "FILE", "table of all requests and replies", [](Options& o, const std::string& v) { o.log = v; }},
        {"profile", "NAME", "what the machine does: " + Listed(ProfileNames()),
         [](Options& o, const std::string& v) { o.setup.profile = v; }},
        {"model", "TEXT", "iskra: model text (MI7150)", [](Options& o, const std::string& v) { o.setup.model = v; }},
        {"number", "N", "iskra: device number (4711)",
         [](Options& o, const std::string& v) { o.setup.number = ParseInteger(v); }},
        {"transformers", "UPRIM,USEC,IPRIM,ISEC", "iskra: transformers set in the instrument, in V and A (230,230,5,5)",
         [](Options& o, const std::string& v) { o.setup.transformers = ParseTransformers(v); }},
        {"switch", "1|3", "nanovip: phases that its switch stands at (1)",
         [](Options& o, const std::string& v) { o.setup.netSwitch = ParseInteger(v); }},
        {"scale", "U,I", "2535: factors that its values want to be multiplied by (none)",
         [](Options& o, const std::string& v) { o.setup.scaling = ParseScaling(v); }},
        {"fault", "KIND", "what spoils the replies: " + Listed(FaultNames()),
         [](Options& o, const std::string& v) { o.fault = FaultOf(v); }},
        {"delay", "SECONDS", "of fault late, 0 to 60 (0.5)",
         [](Options& o, const std::string& v) { o.delay = ParseNumber(v); }},
        {"help", nullptr, "this text", [](Options& o, const std::string&) { o.isHelpWanted = true; }},
    };
    return entries;
}

} // namespace

Options ParseOptions(int count, char* const values[])
{
    std::vector<option> known;
    for (const OptionEntry& entry : Entries())
        known.push_back({entry.name, entry.argument == nullptr ? no_argument : required_argument, nullptr, 0});
    known.push_back({nullptr, 0, nullptr, 0});

    Options options;
    optind = 0; // from the beginning, however often this is called
    opterr = 0;
    int index = 0;
    for (int found = 0; (found = getopt_long(count, values, ":", known.data(), &index)) != -1;) {
        if (found == ':')
            throw std::invalid_argument(std::string("option needs a value: ") + values[optind - 1]);
        if (found != 0)
            throw std::invalid_argument(std::string("unknown option: ") + values[optind - 1]);
        const OptionEntry& entry = Entries()[static_cast<std::size_t>(index)];
        try {
            entry.apply(options, optarg == nullptr ? "" : optarg);
        } catch (const std::invalid_argument& error) {
            throw std::invalid_argument(std::string("--") + entry.name + ": " + error.what());
        }
    }
    if (optind < count)
        throw std::invalid_argument(std::string("unexpected: ") + values[optind]);
    return options;
}

std::string HelpText()
{
    constexpr std::size_t kColumn = 40;
    std::string text = "instrument_simulator [OPTION...]\n"
                       "Offers a measuring instrument on a pseudo-terminal and prints the device to open.\n\n";
    for (const OptionEntry& entry : Entries()) {
        std::string line = std::string("  --") + entry.name;
        if (entry.argument != nullptr)
            line += std::string(" ") + entry.argument;
        line.resize(std::max(line.size() + 1, kColumn), ' ');
        text += line + entry.help + '\n';
    }
    return text + "\n"
                  "A family ignores the options of others.\n"
                  "\n"
                  "Commands on the standard input, one a line, each answered by \"ok\" or \"error\" and the reason:\n"
                  "  fault KIND | delay SECONDS | address N | profile NAME | close | open | quit\n"
                  "  set CODE TEXT | value CODE NUMBER   what a value code answers from now on\n"
                  "  state NAME STATE                    nanovip: switch 1|3, overrange on|off, battery low|good\n"
                  "                                      norma: selftest good|bad\n"
                  "\n"
                  "Value codes of iskra are those of its text query. The other families have, as far as they tell it:\n"
                  "  0 U in V, 1 I in A, 2 f in Hz, 3 P in W, 4 S in VA, 5 Q in var, 6 power factor,\n"
                  "  11 phase angle in degrees (positive when inductive)\n"
                  "An empty text: wt130 tells no phase angle, norma doesn't answer the query.\n";
}

double ParseNumber(const std::string& text)
{
    const auto number = ParseWhole<double>(text);
    if (!std::isfinite(number))
        throw std::invalid_argument("not a number: " + text);
    return number;
}

int ParseInteger(const std::string& text)
{
    return ParseWhole<int>(text);
}

} // namespace korvanel::simulator
