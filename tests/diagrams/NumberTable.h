// Tables of numbers that a second calculation has written: a line of them each, and comments behind '#'.
#pragma once

#include "support/TestPaths.h"

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace korvanel::test {

struct NumberLine
{
    std::string text; ///< for messages
    std::vector<double> numbers;
};

inline std::vector<NumberLine> NumberTable(const std::string& name)
{
    std::vector<NumberLine> lines;
    std::ifstream table(KORVANEL_DIAGRAM_DATA "/" + name);
    for (std::string text; std::getline(table, text);) {
        if (text.starts_with('#'))
            continue;
        std::istringstream words(text);
        NumberLine line{.text = text, .numbers = {}};
        for (std::string word; words >> word;)
            line.numbers.push_back(std::stod(word));
        lines.push_back(line);
    }
    return lines;
}

} // namespace korvanel::test
