// Value texts as the families of instruments build them.
#pragma once

#include <string>

namespace korvanel::simulator {

/// True if a line of characters of seven bits can show all of it.
bool IsPrintable(const std::string& text);

/// Without the blanks on both sides.
std::string Trimmed(const std::string& text);

/// The text at the right end of a field. Throws std::invalid_argument if it is too long for it, or not printable.
std::string FieldText(const std::string& text, std::size_t length);

std::string Fixed(double value, int decimals);

/// The number with as many decimals as fit, fewer than `digits`; longer than `room` if it can't be had.
std::string NumberWithin(double value, int digits, std::size_t room);

} // namespace korvanel::simulator
