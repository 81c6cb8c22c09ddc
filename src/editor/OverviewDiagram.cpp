#include "editor/OverviewDiagram.h"

#include "core/Common.h"
#include "core/Messages.h"
#include "core/clsSymbols.h"
#include "core/texts/FormF5Texts.h"
#include "core/window/PlainToolTip.h"

#include <QMouseEvent>
#include <QPainter>
#include <QTextOption>

#include <algorithm>
#include <cmath>
#include <span>

namespace korvanel {

namespace {

constexpr int kStepMs = 5;
constexpr qint32 kCloseUp = 100; ///< sets at each side of the marks

std::vector<int> QuantitiesOf(int netConf)
{
    if (TraitsOf(netConf).hasPower)
        return {kU, kI, kP};
    return {kU, kU1, kU1 + 1, kU1 + 2};
}

} // namespace

OverviewDiagram::OverviewDiagram() : quantities(QuantitiesOf(App().iNetConfIndex))
{
    setObjectName(QStringLiteral("Picture1"));
    setAccessibleName(texts::editorOverview);
    setToolTip(PlainToolTip(texts::editorOverviewTip));
    setMinimumHeight(60);
    setCursor(Qt::CrossCursor);
    steps.setInterval(0);
    connect(&steps, &QTimer::timeout, this, [this] { GoOn(); });
}

OverviewDiagram::~OverviewDiagram() = default;

/// Below the picture stand the numbers of the sets at its ends.
QRect OverviewDiagram::PictureRect() const
{
    return rect().adjusted(0, 0, 0, -fontMetrics().height());
}

DiagramView OverviewDiagram::ViewWanted() const
{
    const bool hasNegative =
        std::any_of(extremes.begin(), extremes.end(), [](const auto& e) { return e.second.first < 0; });
    DiagramView view = FullView(count, hasNegative);
    if (isCloseUp) {
        view.x1 = firstMarked - kCloseUp;
        view.x2 = static_cast<double>(firstMarked) + markedCount + kCloseUp;
    }
    return NormalisedView(view, count);
}

/// Voltages have one full scale in common.
double OverviewDiagram::ScaleEndOf(int quantity) const
{
    const bool isVoltage = quantity == kU || quantity >= kU1;
    double least = 0;
    double most = 0;
    for (const auto& [other, range] : extremes)
        if (other == quantity || (isVoltage && (other == kU || other >= kU1))) {
            least = std::min(least, range.first);
            most = std::max(most, range.second);
        }
    return korvanel::ScaleEndOf(least, most, 1);
}

void OverviewDiagram::ShowRecording()
{
    Stop();
    count = App().iSetCount;
    extremes.clear();
    seenTo = 0;
    if (count > 0)
        steps.start();
    else
        mapping.reset();
    update();
}

void OverviewDiagram::Stop()
{
    steps.stop();
    drawing.reset();
    values.Drop();
}

void OverviewDiagram::SetCloseUp(bool isSo)
{
    isCloseUp = isSo;
    ShowMarks(firstMarked, markedCount);
}

void OverviewDiagram::ShowMarks(qint32 first, qint32 number)
{
    firstMarked = first;
    markedCount = number;
    if (mapping && seenTo == count && !(mapping->View() == ViewWanted()))
        BeginDrawing();
    update();
}

void OverviewDiagram::FindExtremes()
{
    ValueBlock block;
    SetValues::Walk walk(values, quantities, seenTo + 1, count);
    if (!walk.Next(block, kStepMs)) {
        seenTo = count;
        return;
    }
    for (std::size_t i = 0; i < quantities.size(); ++i)
        for (const double value : std::span(block.values[i], static_cast<std::size_t>(block.count))) {
            if (!std::isfinite(value))
                continue;
            auto& [least, most] = extremes.try_emplace(quantities[i], value, value).first->second;
            least = std::min(least, value);
            most = std::max(most, value);
        }
    seenTo = block.firstSet + block.count - 1;
}

void OverviewDiagram::BeginDrawing()
{
    DiagramScaleEnds ends{};
    DiagramStates states{};
    for (const int quantity : quantities) {
        ends.at(static_cast<std::size_t>(quantity)) = ScaleEndOf(quantity);
        states.at(static_cast<std::size_t>(quantity)) = 1;
    }
    const QSize size = (PictureRect().size() * devicePixelRatioF()).expandedTo({1, 1});
    drawing = std::make_unique<DiagramDrawing>(values, CurvesOf(quantities, states, ends), ViewWanted(), count, size);
    mapping = drawing->Mapping();
    picture = QImage(size, QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    drawing->DrawGrid(painter);
    steps.start();
}

void OverviewDiagram::GoOn()
{
    try {
        if (seenTo < count) {
            FindExtremes();
            if (seenTo == count)
                BeginDrawing();
        } else {
            QPainter painter(&picture);
            if (!drawing->Continue(painter, kStepMs))
                steps.stop();
        }
    } catch (const DbError&) {
        Stop(); // the grid tells what can't be read
    }
    update();
}

qint32 OverviewDiagram::SetAt(QPointF position) const
{
    if (!mapping)
        return 0;
    const double set = std::round(mapping->SetAt(position.x() * devicePixelRatioF()));
    return static_cast<qint32>(std::clamp(set, 1.0, static_cast<double>(count)));
}

void OverviewDiagram::mousePressEvent(QMouseEvent* event)
{
    pressedSet = SetAt(event->position());
    if (event->button() == Qt::LeftButton && pressedSet > 0)
        emit SetsChosen(pressedSet, 1);
}

void OverviewDiagram::mouseMoveEvent(QMouseEvent* event)
{
    const qint32 set = SetAt(event->position());
    if (event->buttons() & Qt::LeftButton && pressedSet > 0 && set > 0)
        emit SetsChosen(std::min(set, pressedSet), std::abs(set - pressedSet) + 1);
}

void OverviewDiagram::resizeEvent(QResizeEvent* /*event*/)
{
    if (mapping && seenTo == count)
        BeginDrawing();
}

void OverviewDiagram::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.fillRect(PictureRect(), Qt::white); // like paper, whatever the palette: the colours are chosen for it
    if (!mapping)
        return;
    painter.drawImage(QRectF(PictureRect()), picture);
    PaintMarks(painter);
    PaintLabels(painter);
}

void OverviewDiagram::PaintMarks(QPainter& painter) const
{
    const QRectF where = PictureRect();
    const auto xOf = [this](double set) { return mapping->X(set) / devicePixelRatioF(); };
    const double left = std::max(where.left(), xOf(firstMarked - 0.5));
    const double right = std::min(where.right() - 1, xOf(firstMarked + markedCount - 0.5));
    if (markedCount < 1 || right < left)
        return;
    QColor ground = palette().color(QPalette::Highlight);
    painter.setPen(ground); // seen however narrow it is
    for (const double x : {left, right})
        painter.drawLine(QPointF(x, where.top()), QPointF(x, where.bottom() - 1));
    constexpr int kPale = 80;
    ground.setAlpha(kPale);
    painter.fillRect(QRectF(left, where.top(), right - left, where.height()), ground);
}

/// The numbers of the sets at the ends, and in the middle which colour is which quantity.
void OverviewDiagram::PaintLabels(QPainter& painter) const
{
    constexpr int kSample = 14; // length of the line before a name
    constexpr int kGap = 6;
    const QRect below(0, PictureRect().bottom() + 1, width(), fontMetrics().height());
    const auto write = [&](Qt::AlignmentFlag side, double set) {
        painter.drawText(QRectF(below), QString::number(qRound64(set)), QTextOption(side));
    };
    painter.setPen(palette().color(QPalette::WindowText));
    write(Qt::AlignLeft, mapping->View().x1);
    write(Qt::AlignRight, mapping->View().x2);
    DiagramStates states{};
    states.fill(1);
    const std::vector<DiagramCurve> curves = CurvesOf(quantities, states, {});
    int x = width() / 2 - static_cast<int>(curves.size()) * 2 * (kSample + kGap);
    for (const DiagramCurve& curve : curves) {
        const QString name = App().Symbols->Symbol(curve.quantity);
        painter.fillRect(QRect(x, below.center().y() - 1, kSample, 3), curve.colour);
        x += kSample + kGap;
        painter.drawText(QRect(x, below.top(), width(), below.height()), Qt::AlignLeft | Qt::AlignVCenter, name);
        x += fontMetrics().horizontalAdvance(name) + 2 * kGap;
    }
}

} // namespace korvanel
