// The views that the user of a diagram has zoomed to, to walk back and forth in.
#pragma once

#include "diagrams/DiagramView.h"

#include <QtGlobal>

#include <optional>
#include <vector>

namespace korvanel {

/// At most so many views are kept; the oldest goes first.
inline constexpr qsizetype kMostZooms = 10;

class clsZoomUndo
{
public:
    /// Stores a view behind the one in view, and drops those that followed it. A view equal to the last record changes
    /// nothing, wherever in the history one stands. In a full history the oldest record goes before those that follow
    /// are dropped, so that it is lost even where they would have made room.
    void Add(double x1, double x2, double y1, double y2);
    /// Steps back and gives the record; at the first one it stays there. Nothing in an empty history.
    std::optional<DiagramView> Undo();
    /// Steps forward and gives the record; at the last one it stays there. Nothing in an empty history.
    std::optional<DiagramView> Redo();
    /// The record in view; nothing in an empty history.
    std::optional<DiagramView> CurrentZoom() const;
    bool HasUndo() const { return lCurrent >= 2; }
    bool HasRedo() const { return lCurrent < Count(); }
    qint32 Count() const { return static_cast<qint32>(records.size()); }

private:
    std::vector<DiagramView> records; ///< oldest first
    qint32 lCurrent = 0;              ///< number of the record in view, from 1; 0 in an empty history
};

} // namespace korvanel
