// What stands on each page of a report around its sections.
#pragma once

#include "output/ReportText.h"

namespace korvanel {

/// The head of each page: a grey box with the title, the project below it and the program's name; and the foot.
void PrintPageHead(ReportSurface& surface);
void PrintPageFoot(ReportSurface& surface, int page, int pageCount);

} // namespace korvanel
