// Looking up an instrument entry in a table whose rows begin with one.
#pragma once

#include <QAnyStringView>

#include <algorithm>
#include <cstddef>

namespace korvanel {

/// The row whose `entry` is this text, case and blanks included; null if there is none.
template <typename Row, std::size_t Count>
const Row* FindEntry(const Row (&rows)[Count], QAnyStringView entry)
{
    const Row* end = rows + Count;
    const Row* row = std::find_if(rows, end, [entry](const Row& r) { return QAnyStringView(r.entry) == entry; });
    return row == end ? nullptr : row;
}

} // namespace korvanel
