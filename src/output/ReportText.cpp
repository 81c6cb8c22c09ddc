#include "output/ReportText.h"

#include <QPainter>

#include <algorithm>

namespace korvanel {

namespace {

const QString kEllipsis = QStringLiteral("...");
constexpr QStringView kBreaks = u" .,;:!?-+";

/// Characters of the line that a text begins with.
qsizetype LineLength(QStringView text, double width, const ReportFont& font)
{
    const qsizetype fitting = font.Fitting(text, width);
    if (fitting == text.size())
        return fitting;
    for (qsizetype length = fitting; length > 0; --length)
        if (kBreaks.contains(text[length - 1]))
            return length;
    const qsizetype least = text[0].isHighSurrogate() && text.size() > 1 ? 2 : 1;
    return std::max(fitting, least);
}

/// Appends the lines of a text without line breaks, until there are so many.
void WrapLine(QStringView text, double width, const ReportFont& font, qsizetype most, QStringList& lines)
{
    do {
        const qsizetype length = LineLength(text, width, font);
        lines << text.first(length).toString();
        text = text.sliced(length);
    } while (!text.isEmpty() && lines.size() < most);
}

/// The first lines of a text, at most so many.
QStringList FirstLines(const QString& text, double width, const ReportFont& font, qsizetype most)
{
    QStringList lines;
    qsizetype begin = 0;
    for (qsizetype at = 0; at <= text.size() && lines.size() < most; ++at) {
        const bool isEnd = at == text.size();
        if (!isEnd && text[at] != u'\r' && text[at] != u'\n')
            continue;
        WrapLine(QStringView(text).sliced(begin, at - begin), width, font, most, lines);
        if (!isEnd && text[at] == u'\r' && at + 1 < text.size() && text[at + 1] == u'\n')
            ++at;
        begin = at + 1;
    }
    return lines;
}

} // namespace

QStringList WrapText(const QString& text, double width, const ReportFont& font)
{
    return FirstLines(text, width, font, std::numeric_limits<qsizetype>::max());
}

QStringList LinesInBox(const QString& text, double width, double height, const ReportFont& font)
{
    constexpr double kRounding = 1e-6;
    const auto fitting = std::max<qsizetype>(1, static_cast<qsizetype>(height / font.LineHeight() + kRounding));
    QStringList lines = FirstLines(text, width, font, fitting + 1);
    if (lines.size() <= fitting)
        return lines;
    lines.resize(fitting);
    QString last = lines.back();
    while (last.endsWith(u' '))
        last.chop(1);
    lines.back() = CutText(last + kEllipsis, width, font);
    return lines;
}

QString CutText(const QString& text, double width, const ReportFont& font)
{
    if (font.Fitting(text, width) == text.size())
        return text;
    const QString whole = text.endsWith(kEllipsis) ? text.chopped(kEllipsis.size()) : text;
    return whole.left(font.Fitting(whole, width - font.Width(kEllipsis))) + kEllipsis;
}

void PainterPaper::Use(const ReportFont& font, QRgb colour)
{
    if (inUse != &font) {
        painter.setFont(font.Font());
        inUse = &font;
    }
    if (painter.pen().color().rgb() != colour)
        painter.setPen(QColor(colour));
}

void PainterPaper::PutText(QPointF place, const QString& text, const ReportFont& font, QRgb colour, double share)
{
    Use(font, colour);
    const QPointF base = QPointF(place.x(), place.y() + font.Ascent()) * kUnitsPerMillimetre;
    if (share == 1) {
        painter.drawText(base, text);
        return;
    }
    const QTransform former = painter.transform();
    painter.translate(base);
    painter.scale(share, 1);
    painter.drawText(QPointF(), text);
    painter.setTransform(former);
}

void PainterPaper::FillBox(const QRectF& box, QRgb colour)
{
    painter.fillRect(QRectF(box.topLeft() * kUnitsPerMillimetre, box.size() * kUnitsPerMillimetre), QColor(colour));
}

void PainterPaper::DrawLine(const QLineF& line, double width, QRgb colour)
{
    painter.setPen(QPen(QColor(colour), width * kUnitsPerMillimetre));
    painter.drawLine(line.p1() * kUnitsPerMillimetre, line.p2() * kUnitsPerMillimetre);
}

void PainterPaper::DrawInBox(const QRectF& box, double elementsPerMillimetre, const BoxDrawing& draw)
{
    painter.save();
    painter.translate(box.topLeft() * kUnitsPerMillimetre);
    painter.scale(kUnitsPerMillimetre / elementsPerMillimetre, kUnitsPerMillimetre / elementsPerMillimetre);
    painter.setFont(fonts.text.Font());
    draw(painter, (box.size() * elementsPerMillimetre).toSize());
    painter.restore();
    inUse = nullptr;
}

void ReportSurface::PutText(double x, double y, const QString& text, const ReportFont& font)
{
    paper.PutText({x, y}, text, font, QColor(Qt::black).rgb(), 1);
}

void ReportSurface::FitText(double left, double right, double y, const QString& whole, const ReportFont& font,
                            Qt::AlignmentFlag side, const QColor& colour)
{
    constexpr double kNarrowest = 0.7;
    const QString text = whole.endsWith(u' ') ? whole.trimmed() : whole; // a number without a unit
    const double room = right - left;
    const double width = font.Width(text);
    if (width <= room) {
        const double x = side == Qt::AlignRight     ? right - width
                         : side == Qt::AlignHCenter ? left + (room - width) / 2
                                                    : left;
        paper.PutText({x, y}, text, font, colour.rgb(), 1);
        return;
    }
    const QString shown = CutText(text, room / kNarrowest, font);
    paper.PutText({left, y}, shown, font, colour.rgb(), room / std::max(room, font.Width(shown)));
}

void ReportSurface::PrintText(const QRectF& box, const QString& text, const ReportFont& font)
{
    double y = box.top();
    for (const QString& line : LinesInBox(text, box.width(), box.height(), font)) {
        PutText(box.left(), y, line, font);
        y += font.LineHeight();
    }
}

void ReportSurface::FillBox(const QRectF& box, const QColor& colour)
{
    paper.FillBox(box, colour.rgb());
}

void ReportSurface::DrawLine(double x1, double y1, double x2, double y2, double width, const QColor& colour)
{
    paper.DrawLine({x1, y1, x2, y2}, width, colour.rgb());
}

} // namespace korvanel
