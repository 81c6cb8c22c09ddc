#include "diagrams/DiagramPanel.h"

#include "core/Common.h"
#include "core/clsSymbols.h"
#include "core/window/PlainLabel.h"
#include "diagrams/DiagramBox.h"

#include <QContextMenuEvent>
#include <QPainter>

#include <algorithm>

namespace korvanel {

namespace {

constexpr int kLeft = 38;
constexpr int kNames = 60;
constexpr int kValues = 50;
constexpr int kTop = 18;
constexpr int kBottom = 32;
constexpr int kGap = 4;

} // namespace

DiagramPanel::DiagramPanel() : box(new DiagramBox), quantityLabel(new PlainLabel)
{
    constexpr double kSmall = 0.85;
    setObjectName(QStringLiteral("fraDiagram"));
    QFont small = font();
    small.setPointSizeF(small.pointSizeF() * kSmall);
    setFont(small);
    setAutoFillBackground(true);
    box->setParent(this);
    quantityLabel->setParent(this);
    quantityLabel->setObjectName(QStringLiteral("lblQuantity"));
    quantityLabel->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    setMinimumSize(box->minimumSize() + QSize(kLeft + kNames + kValues, kTop + kBottom));
    connect(box, &DiagramBox::MenuWanted, this, &DiagramPanel::MenuWanted);
}

void DiagramPanel::Fill(std::vector<QLabel*>& labels, const char* name, const std::vector<AxisLabel>& texts)
{
    while (labels.size() < texts.size()) {
        auto* label = new PlainLabel;
        label->setParent(this);
        label->setObjectName(QStringLiteral("%1_%2").arg(QLatin1String(name)).arg(labels.size()));
        labels.push_back(label);
    }
    for (std::size_t i = 0; i < labels.size(); ++i) {
        labels[i]->setVisible(i < texts.size());
        labels[i]->setText(i < texts.size() ? texts[i].text : QString());
    }
}

void DiagramPanel::ShowAxes(const DiagramDrawing& drawing)
{
    const double scale = static_cast<double>(box->ElementSize()) / box->devicePixelRatioF();
    const DiagramMapping& mapping = drawing.Mapping();
    const int lineHeight = fontMetrics().height();
    const std::vector<AxisLabel> fractions = FractionLabels(drawing.Grid());
    Fill(fractionLabels, "lblLeft", fractions);
    for (std::size_t i = 0; i < fractions.size(); ++i) {
        fractionLabels[i]->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        fractionLabels[i]->setGeometry(0,
                                       static_cast<int>(box->y() + mapping.Y(fractions[i].at) * scale) - lineHeight / 2,
                                       kLeft - kGap, lineHeight);
    }
    const std::vector<AxisLabel> sets = SetLabels(drawing.Grid());
    Fill(setLabels, "lblCount", sets);
    for (std::size_t i = 0; i < sets.size(); ++i) {
        const int wide = fontMetrics().boundingRect({}, 0, sets[i].text).width() + kGap;
        const int middle = static_cast<int>(box->x() + mapping.X(sets[i].at) * scale);
        setLabels[i]->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
        setLabels[i]->setGeometry(std::clamp(middle - wide / 2, 0, std::max(0, width() - wide)),
                                  box->geometry().bottom() + 2, wide, kBottom - 2);
    }
}

void DiagramPanel::ShowValues(const DiagramGrid& grid, const DiagramMapping& mapping, const DiagramCurve& curve)
{
    const double scale = static_cast<double>(box->ElementSize()) / box->devicePixelRatioF();
    const int lineHeight = fontMetrics().height();
    const std::vector<AxisLabel> values = ValueLabels(grid, curve.quantity, curve.scaleEnd);
    Fill(valueLabels, "lblRight", values);
    for (std::size_t i = 0; i < values.size(); ++i) {
        valueLabels[i]->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        valueLabels[i]->setGeometry(width() - kValues,
                                    static_cast<int>(box->y() + mapping.Y(values[i].at) * scale) - lineHeight / 2,
                                    kValues - kGap, lineHeight);
    }
    quantityLabel->setText(App().Symbols->SymbolWithUnit(curve.quantity));
    quantityLabel->setGeometry(width() - kValues - kNames, 0, kValues + kNames - kGap, std::min(lineHeight, kTop - 7));
}

void DiagramPanel::ShowNames(const std::vector<CurveEnd>& of)
{
    ends = of;
    elements = box->Elements().height();
    update();
}

void DiagramPanel::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double scale = static_cast<double>(box->height()) / elements;
    std::vector<CurveEnd> shown = ends;
    for (CurveEnd& end : shown)
        end.row = static_cast<int>(end.row * scale);
    painter.translate(0, box->y());
    PaintNames(painter, PlacedNames(shown, box->height(), fontMetrics().height()),
               palette().color(QPalette::WindowText), box->geometry().right() + 1, kNames);
}

void DiagramPanel::PlaceBox()
{
    box->setGeometry(kLeft, kTop, std::max(1, width() - kLeft - kNames - kValues),
                     std::max(1, height() - kTop - kBottom));
}

void DiagramPanel::resizeEvent(QResizeEvent* /*event*/)
{
    PlaceBox();
    emit Resized();
}

void DiagramPanel::contextMenuEvent(QContextMenuEvent* event)
{
    emit MenuWanted(event->globalPos());
}

} // namespace korvanel
