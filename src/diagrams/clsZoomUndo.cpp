#include "diagrams/clsZoomUndo.h"

namespace korvanel {

void clsZoomUndo::Add(double x1, double x2, double y1, double y2)
{
    const DiagramView view{.x1 = x1, .x2 = x2, .y1 = y1, .y2 = y2};
    if (!records.empty() && records.back() == view)
        return;
    if (std::ssize(records) >= kMostZooms) {
        records.erase(records.begin());
        --lCurrent;
    }
    // Whoever stands on the oldest record of a full history stands on none now, so all that followed go.
    records.resize(static_cast<std::size_t>(lCurrent));
    records.push_back(view);
    lCurrent = Count();
}

std::optional<DiagramView> clsZoomUndo::Undo()
{
    if (records.empty())
        return std::nullopt;
    if (lCurrent > 1)
        --lCurrent;
    return CurrentZoom();
}

std::optional<DiagramView> clsZoomUndo::Redo()
{
    if (records.empty())
        return std::nullopt;
    if (lCurrent < Count())
        ++lCurrent;
    return CurrentZoom();
}

std::optional<DiagramView> clsZoomUndo::CurrentZoom() const
{
    if (records.empty())
        return std::nullopt;
    return records.at(static_cast<std::size_t>(lCurrent - 1));
}

} // namespace korvanel
