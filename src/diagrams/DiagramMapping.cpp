#include "diagrams/DiagramMapping.h"

#include <algorithm>

namespace korvanel {

DiagramMapping::DiagramMapping(const DiagramView& ofView, QSize ofSize)
    : view(ofView), size(ofSize), columnsPerSet(std::max(1, ofSize.width() - 1) / (ofView.x2 - ofView.x1)),
      rowsPerUnit(std::max(1, ofSize.height() - 1) / (ofView.y2 - ofView.y1))
{}

} // namespace korvanel
