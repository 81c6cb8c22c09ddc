#include "simulator/Norma.h"

#include "simulator/Texts.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdio>
#include <stdexcept>

namespace korvanel::simulator {

namespace {

constexpr std::size_t kLongestNormaText = 32;
constexpr char kSelfTest[] = "*TST?";
constexpr char kReadTerminator[] = "rs232:TERM?";
constexpr char kWriteTerminator[] = "rs232:TERM "; // and its name

struct NormaQuery
{
    const char* command;
    int code;
};

constexpr NormaQuery kNormaQueries[] = {
    {"pow:act?", kMeterActive},   {"pow:rea?", kMeterReactive}, {"volt:rms?", kMeterVoltage},
    {"curr:rms?", kMeterCurrent}, {"freq?", kMeterFrequency},
};

struct PhaseSelection
{
    const char* command;
    MeterWiring wiring;
};

constexpr PhaseSelection kPhaseSelections[] = {
    {"form:ph l1", MeterWiring::OnePhase},
    {"form:ph all", MeterWiring::FourWire},
};

constexpr const char* kRangeCommands[] = {"acq:ran:volt auto", "acq:ran:curr auto"};

std::string UpperCase(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char letter) { return static_cast<char>(std::toupper(letter)); });
    return text;
}

bool Means(const std::string& line, const std::string& command)
{
    return line == command || line == UpperCase(command);
}

std::vector<int> NormaCodes()
{
    std::vector<int> codes;
    for (const NormaQuery& query : kNormaQueries)
        codes.push_back(query.code);
    return codes;
}

} // namespace

Norma::Norma(const InstrumentSetup& setup) : LineMeter(setup, NormaCodes()) {}

Answer Norma::Obey(const std::string& line, double now)
{
    for (const NormaQuery& query : kNormaQueries)
        if (Means(line, query.command))
            return Tell(query.code, now);
    if (Means(line, kSelfTest))
        return {RequestKind::Read, std::nullopt, Line(isSound ? "0" : "1"), {}};
    if (Means(line, kReadTerminator))
        return {RequestKind::Read, std::nullopt, Line(terminator), {}};
    return {Set(line) ? RequestKind::Write : RequestKind::Bad, std::nullopt, {}, {}};
}

Answer Norma::Tell(int code, double now) const
{
    Answer answer{RequestKind::Query, code, {}, {}};
    if (code == kMeterFrequency && wiring != MeterWiring::OnePhase)
        answer.text = Format(code, 0);
    else
        answer.text = TextAt(code, now);
    if (!answer.text.empty())
        answer.reply = Line(answer.text);
    return answer;
}

bool Norma::Set(const std::string& line)
{
    const std::string name = kWriteTerminator;
    if (line.size() > name.size() && Means(line.substr(0, name.size()), name)) {
        terminator = line.substr(name.size());
        return true;
    }
    for (const PhaseSelection& selection : kPhaseSelections)
        if (Means(line, selection.command)) {
            wiring = selection.wiring;
            return true;
        }
    return std::any_of(std::begin(kRangeCommands), std::end(kRangeCommands),
                       [&line](const char* command) { return Means(line, command); });
}

void Norma::SetState(const std::string& name, const std::string& state)
{
    if (name != "selftest" || (state != "good" && state != "bad"))
        return LineMeter::SetState(name, state);
    isSound = state == "good";
}

std::string Norma::Format(int, double value) const
{
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.4E", value);
    return text.data();
}

std::string Norma::Fit(const std::string& text) const
{
    FieldText(text, kLongestNormaText); // throws if it can't be sent
    return text;
}

} // namespace korvanel::simulator
