#include "diagrams/DiagramBox.h"

#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace korvanel {

namespace {

constexpr int kLeastDrag = 3; // a shorter one is a click

/// One edge of the rectangle that is being drawn.
class RubberLine : public QWidget
{
public:
    RubberLine(QWidget* parent, const char* name) : QWidget(parent)
    {
        setObjectName(QLatin1String(name));
        setAttribute(Qt::WA_TransparentForMouseEvents);
        hide();
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override { QPainter(this).fillRect(rect(), Qt::black); }
};

/// The marker of a point.
class TargetMark : public QWidget
{
public:
    explicit TargetMark(QWidget* parent) : QWidget(parent)
    {
        setObjectName(QStringLiteral("shpTarget"));
        setAttribute(Qt::WA_TransparentForMouseEvents);
        hide();
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const QRectF ring = QRectF(rect()).adjusted(1.5, 1.5, -1.5, -1.5);
        painter.setPen(QPen(Qt::white, 3)); // stands out against dark curves too
        painter.drawEllipse(ring);
        painter.setPen(QPen(Qt::black, 1.5));
        painter.drawEllipse(ring);
    }
};

} // namespace

DiagramBox::DiagramBox() : target(new TargetMark(this))
{
    constexpr std::array kNames{"linLeft", "linDown", "linRight", "linTop"};
    constexpr QSize kLeast(120, 80);
    setObjectName(QStringLiteral("Picture1"));
    setMinimumSize(kLeast);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::CrossCursor);
    setAttribute(Qt::WA_OpaquePaintEvent);
    for (std::size_t i = 0; i < lines.size(); ++i)
        lines.at(i) = new RubberLine(this, kNames.at(i));
}

int DiagramBox::ElementSize() const
{
    return std::max(1, static_cast<int>(devicePixelRatioF()));
}

QSize DiagramBox::Elements() const
{
    const QSizeF screen = QSizeF(size()) * devicePixelRatioF() / ElementSize();
    return {std::max(1, static_cast<int>(screen.width())), std::max(1, static_cast<int>(screen.height()))};
}

void DiagramBox::Show(const QImage& picture, const DiagramMapping& of)
{
    image = picture;
    mapping = of;
    PlaceTarget();
    update();
}

void DiagramBox::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white); // like paper, whatever the palette: the colours are chosen for it
    if (!image.isNull())
        painter.drawImage(QRectF({}, QSizeF(image.size()) / devicePixelRatioF()), image);
}

QPointF DiagramBox::PointAt(QPointF position) const
{
    const double scale = devicePixelRatioF() / ElementSize();
    return {mapping.SetAt(position.x() * scale), mapping.FractionAt(position.y() * scale)};
}

QPointF DiagramBox::PositionOf(QPointF setAndFraction) const
{
    const double scale = ElementSize() / devicePixelRatioF();
    return {mapping.X(setAndFraction.x()) * scale, mapping.Y(setAndFraction.y()) * scale};
}

void DiagramBox::SetTarget(std::optional<QPointF> setAndFraction)
{
    targetPoint = setAndFraction;
    PlaceTarget();
}

void DiagramBox::PlaceTarget()
{
    constexpr double kShare = 1.5 * 0.02; // of the picture's extent
    const QSizeF mark(width() * kShare, height() * kShare);
    const QPointF middle = targetPoint ? PositionOf(*targetPoint) : QPointF();
    target->setVisible(targetPoint && QRectF(rect()).adjusted(-1, -1, 1, 1).contains(middle));
    if (!target->isHidden())
        target->setGeometry(QRectF(middle - QPointF(mark.width(), mark.height()) / 2, mark).toAlignedRect());
}

bool DiagramBox::DropRectangle()
{
    const bool wasDrawn = rectangleStart.has_value();
    rectangleStart.reset();
    for (QWidget* line : lines)
        line->hide();
    return wasDrawn;
}

void DiagramBox::PlaceRectangle(QPoint to)
{
    const QRect corners = QRect(*rectangleStart, to).normalized();
    lines[0]->setGeometry(corners.left(), corners.top(), 1, corners.height());
    lines[1]->setGeometry(corners.left(), corners.bottom(), corners.width(), 1);
    lines[2]->setGeometry(corners.right(), corners.top(), 1, corners.height());
    lines[3]->setGeometry(corners.left(), corners.top(), corners.width(), 1);
}

void DiagramBox::mousePressEvent(QMouseEvent* event)
{
    if (isLocked || rectangleStart || handStart)
        return;
    const bool isHand = event->button() == Qt::MiddleButton ||
                        (event->button() == Qt::LeftButton && event->modifiers() & Qt::ShiftModifier);
    if (isHand) {
        handStart = event->position();
        handView = mapping.View();
        setCursor(Qt::ClosedHandCursor);
    } else if (event->button() == Qt::LeftButton) {
        rectangleStart = event->position().toPoint();
        PlaceRectangle(*rectangleStart);
        for (QWidget* line : lines)
            line->show();
    }
}

void DiagramBox::mouseMoveEvent(QMouseEvent* event)
{
    if (rectangleStart)
        PlaceRectangle(event->position().toPoint());
    if (!handStart || isLocked)
        return;
    const QPointF moved = PointAt(event->position()) - PointAt(*handStart);
    emit ViewWanted(Kept({.x1 = handView.x1 - moved.x(),
                          .x2 = handView.x2 - moved.x(),
                          .y1 = handView.y1 - moved.y(),
                          .y2 = handView.y2 - moved.y()}),
                    false);
}

void DiagramBox::mouseReleaseEvent(QMouseEvent* event)
{
    if (handStart && (event->button() == Qt::MiddleButton || event->button() == Qt::LeftButton)) {
        handStart.reset();
        setCursor(Qt::CrossCursor);
        emit ViewWanted(mapping.View(), true);
        return;
    }
    if (event->button() == Qt::LeftButton && rectangleStart) {
        const QPoint start = *rectangleStart;
        const QPoint end = event->position().toPoint();
        DropRectangle();
        if ((end - start).manhattanLength() < kLeastDrag)
            return;
        const QPointF from = PointAt(start);
        const QPointF to = PointAt(end);
        emit RectangleDrawn({.xStart = from.x(), .yStart = from.y(), .xEnd = to.x(), .yEnd = to.y()});
        return;
    }
    if (event->button() == Qt::RightButton && !isLocked && !(event->modifiers() & Qt::ControlModifier)) {
        const QPointF point = PointAt(event->position());
        SetTarget(point);
        emit PointChosen(point.x(), point.y());
    }
}

void DiagramBox::wheelEvent(QWheelEvent* event)
{
    constexpr double kNotch = 120;
    constexpr double kFactor = 0.8;
    event->accept();
    if (isLocked || rectangleStart || handStart || event->angleDelta().y() == 0)
        return;
    const double factor = std::pow(kFactor, event->angleDelta().y() / kNotch);
    const QPointF middle = PointAt(event->position());
    const DiagramView& view = mapping.View();
    emit ViewWanted(Kept({.x1 = middle.x() + (view.x1 - middle.x()) * factor,
                          .x2 = middle.x() + (view.x2 - middle.x()) * factor,
                          .y1 = middle.y() + (view.y1 - middle.y()) * factor,
                          .y2 = middle.y() + (view.y2 - middle.y()) * factor}),
                    true);
}

DiagramView DiagramBox::Kept(DiagramView view) const
{
    const auto keep = [](double& low, double& high, double least, double most) {
        const double extent = std::min(high - low, most - least);
        low = std::clamp(low, least, std::max(least, most - extent));
        high = low + extent;
    };
    keep(view.x1, view.x2, full.x1, full.x2);
    keep(view.y1, view.y2, full.y1, full.y2);
    return view;
}

/// The right button asks for the values of a point; the menu comes by its key, or by Control and the button.
void DiagramBox::contextMenuEvent(QContextMenuEvent* event)
{
    if (event->reason() == QContextMenuEvent::Mouse && !(event->modifiers() & Qt::ControlModifier))
        return;
    emit MenuWanted(event->globalPos());
}

} // namespace korvanel
