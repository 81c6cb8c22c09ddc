#include "evaluation/ExpectedEvaluation.h"

#include "support/Fixture.h"

#include <bit>
#include <cmath>
#include <iomanip>
#include <istream>
#include <map>
#include <span>
#include <sstream>

namespace korvanel::test {

namespace {

std::vector<std::string> Split(const std::string& text, char separator)
{
    std::vector<std::string> parts;
    std::istringstream stream(text);
    for (std::string part; std::getline(stream, part, separator);)
        parts.push_back(part);
    return parts;
}

void ExpectNumber(const std::string& name, double value, double expected, double tolerance)
{
    const bool isSame = std::bit_cast<quint64>(value) == std::bit_cast<quint64>(expected);
    const bool isNear = tolerance > 0 && std::abs(value - expected) <= tolerance * std::abs(expected);
    EXPECT_TRUE(isSame || isNear) << name << " is " << Hex(value) << ", expected " << Hex(expected);
}

/// value:set, with *count behind one that stands several times in a row.
ExpectedEvaluation::Pairs ReadPairs(LineWords& words)
{
    ExpectedEvaluation::Pairs pairs;
    for (std::string word = words.Next(); !word.empty(); word = words.Next()) {
        const std::vector<std::string> repeated = Split(word, '*');
        const std::vector<std::string> parts = Split(repeated[0], ':');
        const int count = repeated.size() > 1 ? std::stoi(repeated[1]) : 1;
        const ExtremEntry entry{LineWords::NumberOf(parts.at(0)), static_cast<qint32>(std::stol(parts.at(1)))};
        pairs.insert(pairs.end(), static_cast<std::size_t>(count), entry);
    }
    return pairs;
}

ExpectedEvaluation::Utilisation ReadUtilisation(const std::string& word)
{
    const std::vector<std::string> parts = Split(word, ':');
    ExpectedEvaluation::Utilisation row;
    row.value = LineWords::NumberOf(parts.at(0));
    if (parts.at(1) != "-")
        row.ratio = LineWords::NumberOf(parts.at(1));
    row.set = LineWords::NumberOf(parts.at(2));
    row.rating = std::stoi(parts.at(3));
    return row;
}

void ComparePairs(const std::string& name, std::span<const ExtremEntry> entries,
                  const ExpectedEvaluation::Pairs& expected, double tolerance)
{
    ASSERT_EQ(entries.size(), expected.size()) << name;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const std::string entry = name + " " + std::to_string(i);
        ExpectNumber(entry, entries[i].dValue, expected[i].dValue, tolerance);
        EXPECT_EQ(entries[i].lSet, expected[i].lSet) << entry;
    }
}

void CompareUtilisation(const UtilisationEntry& entry, const ExpectedEvaluation::Utilisation& expected,
                        const std::string& name, double tolerance)
{
    static const QString kWords[] = {"-", "gut", "mittel", "schlecht"};
    static constexpr qint32 kColours[] = {0, 49152, 40443, 192};
    ExpectNumber(name, entry.dValue, expected.value, tolerance);
    ExpectNumber(name + " set", entry.dSet, expected.set, 0);
    EXPECT_EQ(entry.vRatio.has_value(), expected.ratio.has_value()) << name;
    if (entry.vRatio && expected.ratio)
        ExpectNumber(name + " ratio", *entry.vRatio, *expected.ratio, tolerance);
    EXPECT_EQ(entry.sVerdict, kWords[expected.rating]) << name;
    EXPECT_EQ(entry.lColour, kColours[expected.rating]) << name;
}

} // namespace

std::string Hex(double value)
{
    std::ostringstream text;
    text << std::hexfloat << value << std::defaultfloat << std::setprecision(17) << " (" << value << ')';
    return text.str();
}

LineWords::LineWords(const std::string& line)
{
    std::istringstream stream(line);
    for (std::string word; stream >> word;)
        words.push_back(word);
}

std::string LineWords::Next()
{
    return position < words.size() ? words[position++] : std::string();
}

std::optional<double> LineWords::NextOptional()
{
    const std::string word = Next();
    return word == "-" ? std::nullopt : std::optional(NumberOf(word));
}

ExpectedEvaluation ExpectedEvaluation::Read(std::istream& table)
{
    ExpectedEvaluation expected;
    const std::map<std::string, Pairs*> pairTables{
        {"min", &expected.extremMin}, {"max", &expected.extremMax}, {"rmsmin", &expected.rmsMin},
        {"rmsmax", &expected.rmsMax}, {"avgmin", &expected.avgMin}, {"avgmax", &expected.avgMax},
    };
    for (std::string line; std::getline(table, line);) {
        LineWords words(line);
        const std::string kind = words.Next();
        if (pairTables.contains(kind))
            *pairTables.at(kind) = ReadPairs(words);
        else if (kind == "window")
            expected.ReadWindow(words);
        else if (kind == "energy")
            for (int i = 0; i < 3 * kEnergyRowCount; ++i)
                expected.energy.push_back(words.NextNumber());
        else if (kind == "asm")
            for (int i = 0; i < kUtilisationRowCount; ++i)
                expected.asmRows.push_back(ReadUtilisation(words.Next()));
        else if (kind == "classes" || kind == "fault") { // the last line of an evaluation
            expected.isFault = kind == "fault";
            for (int i = 0; !expected.isFault && i < kRatingCount; ++i)
                expected.classes[static_cast<std::size_t>(i)] = words.NextWhole();
            return expected;
        } else {
            ADD_FAILURE() << "unknown line: " << line;
        }
    }
    ADD_FAILURE() << "the table ends within an evaluation";
    return expected;
}

void ExpectedEvaluation::ReadWindow(LineWords& words)
{
    window = words.NextNumber();
    selection = words.NextWhole();
    windowRows = words.NextNumber();
    correctedRows = words.NextWhole();
}

void ExpectedEvaluation::Compare(const EvaluationResults& results, double tolerance) const
{
    ComparePairs("smallest of quantity", results.tExtremMin, extremMin, tolerance);
    ComparePairs("largest of quantity", results.tExtremMax, extremMax, tolerance);
    ComparePairs("smallest rms of channel", results.tRmsMin, rmsMin, tolerance);
    ComparePairs("largest rms of channel", results.tRmsMax, rmsMax, tolerance);
    ComparePairs("smallest mean of channel", results.tAvgMin, avgMin, tolerance);
    ComparePairs("largest mean of channel", results.tAvgMax, avgMax, tolerance);
    EXPECT_EQ(results.dWindowRows, windowRows);
    EXPECT_EQ(results.lCorrectedRows, correctedRows);
    ASSERT_EQ(energy.size(), 3U * kEnergyRowCount);
    for (std::size_t i = 0; i < results.tEnergy.size(); ++i) {
        const std::string name = "energy " + std::to_string(i);
        ExpectNumber(name + " plus", results.tEnergy[i].dPlus, energy[3 * i], tolerance);
        ExpectNumber(name + " minus", results.tEnergy[i].dMinus, energy[3 * i + 1], tolerance);
        ExpectNumber(name + " total", results.tEnergy[i].dTotal, energy[3 * i + 2], tolerance);
    }
    for (std::size_t i = 0; i < asmRows.size(); ++i)
        CompareUtilisation(results.tAsm[i], asmRows[i], "utilisation " + std::to_string(i), tolerance);
    if (asmRows.empty()) {
        for (const UtilisationEntry& entry : results.tAsm)
            EXPECT_TRUE(entry.dValue == 0 && entry.dSet == 0 && !entry.vRatio) << "utilisation without a machine";
    }
    for (std::size_t i = 0; i < classes.size(); ++i)
        EXPECT_EQ(results.lRowClassCount[i], classes[i]) << "sets of class " << i;
}

void ExpectSameResults(const EvaluationResults& one, const EvaluationResults& other)
{
    const auto pairs = [](std::span<const ExtremEntry> entries) {
        return ExpectedEvaluation::Pairs(entries.begin(), entries.end());
    };
    ExpectedEvaluation expected;
    expected.extremMin = pairs(other.tExtremMin);
    expected.extremMax = pairs(other.tExtremMax);
    expected.rmsMin = pairs(other.tRmsMin);
    expected.rmsMax = pairs(other.tRmsMax);
    expected.avgMin = pairs(other.tAvgMin);
    expected.avgMax = pairs(other.tAvgMax);
    expected.windowRows = other.dWindowRows;
    expected.correctedRows = other.lCorrectedRows;
    for (const EnergyEntry& entry : other.tEnergy)
        expected.energy.insert(expected.energy.end(), {entry.dPlus, entry.dMinus, entry.dTotal});
    for (std::size_t i = 0; i < expected.classes.size(); ++i)
        expected.classes[i] = other.lRowClassCount[i];
    const bool hasUtilisation = !other.tAsm[0].sVerdict.isEmpty();
    for (const UtilisationEntry& entry : other.tAsm) {
        const QStringList words{"-", "gut", "mittel", "schlecht"};
        if (hasUtilisation)
            expected.asmRows.push_back(
                {entry.dValue, entry.vRatio, entry.dSet, static_cast<int>(words.indexOf(entry.sVerdict))});
    }
    expected.Compare(one);
    EXPECT_EQ(one.lSets, other.lSets);
}

} // namespace korvanel::test
