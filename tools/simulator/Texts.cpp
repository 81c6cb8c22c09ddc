#include "simulator/Texts.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <stdexcept>

namespace korvanel::simulator {

bool IsPrintable(const std::string& text)
{
    return std::all_of(text.begin(), text.end(), [](char letter) { return letter >= ' ' && letter <= '~'; });
}

std::string Trimmed(const std::string& text)
{
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string::npos)
        return {};
    return text.substr(first, text.find_last_not_of(' ') + 1 - first);
}

std::string FieldText(const std::string& text, std::size_t length)
{
    if (text.size() > length)
        throw std::invalid_argument("text is longer than " + std::to_string(length) + " characters: " + text);
    if (!IsPrintable(text))
        throw std::invalid_argument("text holds what can't be printed");
    return std::string(length - text.size(), ' ') + text;
}

std::string Fixed(double value, int decimals)
{
    std::array<char, 400> text{};
    std::snprintf(text.data(), text.size(), "%.*f", decimals, value);
    return text.data();
}

std::string NumberWithin(double value, int digits, std::size_t room)
{
    std::string number;
    for (int decimals = digits - 1; decimals >= 0; --decimals) {
        number = Fixed(value, decimals);
        if (number.size() <= room)
            break;
    }
    return number;
}

} // namespace korvanel::simulator
