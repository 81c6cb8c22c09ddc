// Results of the evaluation as independent_evaluation.py prints them, and their comparison with those of the program.
#pragma once

#include "core/Evaluation.h"

#include <gtest/gtest.h>

#include <array>
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

namespace korvanel::test {

/// A number with all its bits, and in decimal.
std::string Hex(double value);

/// The words of one line; a number may be hexadecimal, "-" is none.
class LineWords
{
public:
    explicit LineWords(const std::string& line);
    /// The empty text behind the last word.
    std::string Next();
    double NextNumber() { return NumberOf(Next()); }
    std::optional<double> NextOptional();
    int NextWhole() { return std::stoi(Next()); }
    static double NumberOf(const std::string& word) { return std::stod(word); }

private:
    std::vector<std::string> words;
    std::size_t position = 0;
};

struct ExpectedEvaluation
{
    using Pairs = std::vector<ExtremEntry>;

    bool isFault = false; ///< a number would not be finite
    Pairs extremMin, extremMax, rmsMin, rmsMax, avgMin, avgMax;
    double window = 0; ///< s
    int selection = 0;
    double windowRows = 0;
    int correctedRows = 0;
    std::vector<double> energy; ///< plus, minus, total of each row
    struct Utilisation
    {
        double value = 0;
        std::optional<double> ratio;
        double set = 0;
        int rating = 0;
    };
    std::vector<Utilisation> asmRows; ///< none without a machine
    std::array<int, kRatingCount> classes{};

    /// Reads the lines of one evaluation.
    static ExpectedEvaluation Read(std::istream& table);

    /// Expects every figure of the program. `tolerance` is relative; 0 wants the same bits.
    void Compare(const EvaluationResults& results, double tolerance = 0) const;

private:
    void ReadWindow(LineWords& words);
};

/// Expects two runs of the program to agree in every bit.
void ExpectSameResults(const EvaluationResults& one, const EvaluationResults& other);

} // namespace korvanel::test
