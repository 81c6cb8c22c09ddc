// Accessors of the fields of a row, as tables name them: an element of a group, or a single value.
#pragma once

#include "core/ValueRow.h"

#include <cstddef>

namespace korvanel {

using RowField = double& (*)(tValueRow&);

template <auto Member, std::size_t Position>
double& Element(tValueRow& row)
{
    return (row.*Member)[Position];
}

template <auto Member>
double& Single(tValueRow& row)
{
    return row.*Member;
}

} // namespace korvanel
