#include "diagrams/DiagramPicture.h"

#include "core/Common.h"
#include "core/clsSymbols.h"

#include <QBuffer>
#include <QPaintEngine>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgGenerator>

#include <algorithm>

namespace korvanel {

namespace {

constexpr int kLeft = 44;
constexpr int kRight = 150;
constexpr int kTop = 24;
constexpr int kBottom = 36;
constexpr int kNames = 62; ///< of the right margin; the rest is for values
constexpr int kGap = 4;

void PaintAxes(QPainter& painter, const DiagramSheet& sheet, const DiagramDrawing& drawing)
{
    const DiagramMapping& mapping = drawing.Mapping();
    const int width = mapping.Size().width();
    const int height = mapping.Size().height();
    const int lineHeight = painter.fontMetrics().height();
    painter.setPen(Qt::black);
    painter.drawRect(-1, -1, width + 1, height + 1);
    for (const AxisLabel& label : FractionLabels(drawing.Grid()))
        painter.drawText(QRectF(-kLeft, mapping.Y(label.at) - lineHeight / 2.0, kLeft - kGap, lineHeight),
                         Qt::AlignRight | Qt::AlignVCenter, label.text);
    for (const AxisLabel& label : ValueLabels(drawing.Grid(), sheet.axisCurve.quantity, sheet.axisCurve.scaleEnd))
        painter.drawText(
            QRectF(width + kNames, mapping.Y(label.at) - lineHeight / 2.0, kRight - kNames - kGap, lineHeight),
            Qt::AlignRight | Qt::AlignVCenter, label.text);
    constexpr int kHalf = 60;
    for (const AxisLabel& label : SetLabels(drawing.Grid())) {
        const double middle = std::clamp<double>(mapping.X(label.at), kHalf - kLeft, width - 1);
        painter.drawText(QRectF(middle - kHalf, height + kGap, 2 * kHalf, kBottom - kGap),
                         Qt::AlignHCenter | Qt::AlignTop, label.text);
    }
    painter.drawText(QRectF(width + kNames, -kTop, kRight - kNames - kGap, kTop - lineHeight / 2.0),
                     Qt::AlignRight | Qt::AlignVCenter, App().Symbols->SymbolWithUnit(sheet.axisCurve.quantity));
    painter.drawText(QRectF(0, -kTop, width, kTop), Qt::AlignLeft | Qt::AlignVCenter, sheet.title);
}

} // namespace

std::vector<CurveName> PlacedNames(const std::vector<CurveEnd>& ends, double rows, double height)
{
    std::vector<CurveName> names;
    for (const CurveEnd& end : ends) {
        const double row = std::clamp<double>(end.row, 0, rows - 1);
        names.push_back({.symbol = App().Symbols->Symbol(end.quantity), .colour = end.colour, .row = row, .text = row});
    }
    std::ranges::stable_sort(names, {}, &CurveName::row);
    double lowest = height / 2;
    for (CurveName& name : names) {
        name.text = std::max(name.text, lowest);
        lowest = name.text + height;
    }
    double highest = rows - height / 2;
    for (auto name = names.rbegin(); name != names.rend(); ++name) { // back up from the lower edge
        name->text = std::min(name->text, highest);
        highest = name->text - height;
    }
    return names;
}

void PaintNames(QPainter& painter, const std::vector<CurveName>& names, const QColor& textColour, double left,
                double width)
{
    constexpr int kLine = 14;
    const int lineHeight = painter.fontMetrics().height();
    for (const CurveName& name : names) {
        painter.setPen(QPen(name.colour, 2));
        painter.drawLine(QPointF(left + 1, name.row), QPointF(left + kLine, name.text));
        painter.setPen(textColour);
        painter.drawText(QRectF(left + kLine + kGap, name.text - lineHeight / 2.0, width - kLine - kGap, lineHeight),
                         Qt::AlignLeft | Qt::AlignVCenter, name.symbol);
    }
}

void PaintSheet(QPainter& painter, SetValues& values, const DiagramSheet& sheet, QSize size)
{
    const QSize inner = (size - QSize(kLeft + kRight, kTop + kBottom)).expandedTo({1, 1});
    painter.fillRect(QRect({}, size), Qt::white);
    QFont font = painter.font();
    font.setPixelSize(11);
    painter.setFont(font);
    painter.translate(kLeft, kTop);
    DiagramDrawing drawing(values, sheet.curves, sheet.view, sheet.count, inner, sheet.overlay);
    painter.save();
    painter.setClipRect(QRect({}, inner));
    if (painter.transform().isScaling() || painter.paintEngine()->type() != QPaintEngine::Raster)
        painter.translate(0.5, 0.5);
    drawing.DrawWhole(painter);
    painter.restore();
    PaintAxes(painter, sheet, drawing);
    PaintNames(painter, PlacedNames(drawing.Ends(), inner.height(), painter.fontMetrics().height()), Qt::black,
               inner.width(), kNames);
}

QImage ImageOfSheet(SetValues& values, const DiagramSheet& sheet, QSize size, int scale)
{
    QImage image(size * scale, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::TextAntialiasing);
    painter.scale(scale, scale);
    PaintSheet(painter, values, sheet, size);
    return image;
}

namespace {

QByteArray PngOfSheet(SetValues& values, const DiagramSheet& sheet, QSize size)
{
    constexpr int kScale = 2;
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    ImageOfSheet(values, sheet, size, kScale).save(&buffer, "PNG");
    return bytes;
}

QByteArray SvgOfSheet(SetValues& values, const DiagramSheet& sheet, QSize size)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QSvgGenerator generator;
    generator.setOutputDevice(&buffer);
    generator.setSize(size);
    generator.setViewBox(QRect({}, size));
    generator.setTitle(sheet.title);
    QPainter painter(&generator);
    PaintSheet(painter, values, sheet, size);
    painter.end();
    return bytes;
}

QByteArray PdfOfSheet(SetValues& values, const DiagramSheet& sheet, QSize size)
{
    constexpr double kElementsPerInch = 96;
    constexpr double kPointsPerInch = 72;
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setTitle(sheet.title);
    writer.setPageSize(QPageSize(QSizeF(size) * kPointsPerInch / kElementsPerInch, QPageSize::Point));
    writer.setPageMargins({});
    QPainter painter(&writer);
    const double scale = writer.resolution() / kElementsPerInch;
    painter.scale(scale, scale);
    PaintSheet(painter, values, sheet, size);
    painter.end();
    return bytes;
}

} // namespace

QByteArray FileOfSheet(SetValues& values, const DiagramSheet& sheet, QSize size, const QString& ending)
{
    if (ending == u".png")
        return PngOfSheet(values, sheet, size);
    if (ending == u".svg")
        return SvgOfSheet(values, sheet, size);
    if (ending == u".pdf")
        return PdfOfSheet(values, sheet, size);
    return {};
}

} // namespace korvanel
