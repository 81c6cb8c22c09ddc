// An empty page: it holds the place of one that a later version brings, so that the path through a project can be
// walked from end to end.
#pragma once

#include "core/window/Page.h"

namespace korvanel {

class FormLater : public Page
{
    Q_OBJECT

public:
    FormLater(PageFrame& host, const PageEntry& entry);
};

} // namespace korvanel
