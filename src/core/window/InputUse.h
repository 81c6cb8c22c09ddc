#pragma once

namespace korvanel {

/// What the typed input of a page is taken for.
enum class InputUse
{
    Saving, ///< the page stays
    Leaving
};

} // namespace korvanel
