// A page without anything in it, in the place of those that a test of the window doesn't want.
#pragma once

#include "core/window/Page.h"

namespace korvanel {

class EmptyPage : public Page
{
public:
    EmptyPage(PageFrame& host, const PageEntry& entry) : Page(host, entry) {}
};

} // namespace korvanel
