// Looking up an instrument entry in a table whose rows begin with one.
#pragma once

#include "core/Common.h"

#include <QAnyStringView>

#include <algorithm>
#include <cstddef>
#include <stdexcept>

namespace korvanel {

/// The row whose `entry` is this text, case and blanks included; null if there is none.
template <typename Row, std::size_t Count>
const Row* FindEntry(const Row (&rows)[Count], QAnyStringView entry)
{
    const Row* end = rows + Count;
    const Row* row = std::find_if(rows, end, [entry](const Row& r) { return QAnyStringView(r.entry) == entry; });
    return row == end ? nullptr : row;
}

/// The row of the chosen instrument. Every entry of a family stands in the table of its driver; throws
/// std::out_of_range for any other.
template <typename Row, std::size_t Count>
const Row& ChosenEntry(const Row (&rows)[Count])
{
    if (const Row* row = FindEntry(rows, App().sDevice))
        return *row;
    throw std::out_of_range("the driver does not know this entry");
}

} // namespace korvanel
