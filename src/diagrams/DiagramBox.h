// The picture box of a diagram: shows the picture and turns what the mouse does over it into views and points.
#pragma once

#include "diagrams/DiagramMapping.h"

#include <QImage>
#include <QWidget>

#include <array>
#include <optional>

namespace korvanel {

class DiagramBox : public QWidget
{
    Q_OBJECT

public:
    DiagramBox();

    /// Picture elements: those of the screen, or squares of them where they are too small to be seen.
    QSize Elements() const;
    /// Edge of an element in those of the screen.
    int ElementSize() const;

    /// The picture that is shown, and where sets and fractions lie in it.
    void Show(const QImage& picture, const DiagramMapping& of);
    /// The extent that wheel and hand keep to.
    void SetFullView(const DiagramView& view) { full = view; }
    /// While it is locked the mouse does nothing.
    void SetLocked(bool isSo) { isLocked = isSo; }

    /// Puts the marker on a point of the diagram, where it stays whatever is in view; nothing takes it away.
    void SetTarget(std::optional<QPointF> setAndFraction);
    /// Drops a rectangle that is being drawn; false if there is none.
    bool DropRectangle();

signals:
    void RectangleDrawn(const DiagramCorners& corners);
    void PointChosen(double set, double fraction);
    /// The wheel wants a view, or the hand that drags the picture; `isFinal` when it lets go.
    void ViewWanted(const DiagramView& view, bool isFinal);
    void MenuWanted(QPoint global);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    /// Set and fraction under a position of the box.
    QPointF PointAt(QPointF position) const;
    QPointF PositionOf(QPointF setAndFraction) const;
    void PlaceRectangle(QPoint to);
    void PlaceTarget();
    /// A view moved by hand or zoomed by the wheel, kept within the full one.
    DiagramView Kept(DiagramView view) const;

    QImage image;
    DiagramMapping mapping{{}, {1, 1}};
    DiagramView full;
    bool isLocked = false;
    std::array<QWidget*, 4> lines{}; ///< left, lower, right, upper
    QWidget* target;
    std::optional<QPointF> targetPoint;
    std::optional<QPoint> rectangleStart;
    std::optional<QPointF> handStart; ///< position at which the picture was taken
    DiagramView handView;             ///< that was in view then
};

} // namespace korvanel
