#include "diagrams/CurvePainter.h"

#include <QPainter>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace korvanel {

namespace {

constexpr int kNobody = -1;
constexpr int kSeveral = -2;

/// Least and greatest of the values and of `first`. Four of each are carried at once, since each step waits for the one
/// before.
std::pair<double, double> Extent(const double* values, qint32 count, double first)
{
    constexpr qint32 kAtOnce = 4;
    std::array<double, kAtOnce> least{first, first, first, first};
    std::array<double, kAtOnce> greatest = least;
    qint32 i = 0;
    for (; i + kAtOnce <= count; i += kAtOnce)
        for (std::size_t j = 0; j < kAtOnce; ++j) {
            const double value = values[i + static_cast<qint32>(j)];
            least[j] = value < least[j] ? value : least[j];
            greatest[j] = value > greatest[j] ? value : greatest[j];
        }
    for (; i < count; ++i) {
        least[0] = std::min(least[0], values[i]);
        greatest[0] = std::max(greatest[0], values[i]);
    }
    return {*std::ranges::min_element(least), *std::ranges::max_element(greatest)};
}

constexpr qint32 kSpan = 16; ///< sets that are looked at together where curves overlap

constexpr double kMargin = 8192;  // around the picture: far enough for the ends not to turn the line
constexpr double kEndless = 1e12; // for infinities, between which there is no line

} // namespace

CurvePainter::CurvePainter(const DiagramMapping& onto, std::vector<DiagramCurve> ofCurves, CurveStyle ofStyle)
    : mapping(onto), curves(std::move(ofCurves)), style(ofStyle), last(curves.size()),
      owners(static_cast<std::size_t>(onto.Size().height())), nextOpen(owners.size() + 1), lastRows(curves.size()),
      lines(curves.size()), points(curves.size())
{
    for (const DiagramCurve& curve : curves)
        pens.emplace_back(curve.colour, 1, Qt::SolidLine, Qt::SquareCap);
}

void CurvePainter::Draw(QPainter& painter, const ValueBlock& block)
{
    if (lastSet != block.firstSet - 1)
        lastSet = 0;
    for (qint32 from = 0; from < block.count;) {
        const qint32 set = block.firstSet + from;
        if (curves.empty())
            break;
        if (block.hasHoles && std::isnan(block.values.front()[from])) {
            lastSet = 0;
            ++from;
            continue;
        }
        column = mapping.Column(set);
        // Sets up to the left end of the view are the beginning of a line at most.
        qint32 to = from;
        if (set > mapping.View().x1) {
            to = EndOfColumn(block, from);
            DrawColumn(painter, block, from, to);
        }
        for (std::size_t curve = 0; curve < curves.size(); ++curve)
            last[curve] = block.values[curve][to];
        lastSet = block.firstSet + to;
        from = to + 1;
    }
}

qint32 CurvePainter::EndOfColumn(const ValueBlock& block, qint32 from) const
{
    const auto isBeyond = [&](qint32 index) { return mapping.Column(block.firstSet + index) != column; };
    qint32 to = from;
    for (qint32 step = block.count; step > 0; step /= 2)
        while (to + step < block.count && !isBeyond(to + step))
            to += step;
    if (block.hasHoles)
        for (qint32 index = from + 1; index <= to; ++index)
            if (std::isnan(block.values.front()[index]))
                return index - 1;
    return to;
}

void CurvePainter::DrawColumn(QPainter& painter, const ValueBlock& block, qint32 from, qint32 to)
{
    qint32 first = from;
    if (lastSet > 0) {
        if (mapping.Column(lastSet) == column)
            first = from - 1; // the column goes on
        else
            DrawConnection(painter, block, from);
    }
    if (first == to || column < 0 || column >= mapping.Size().width() || IsGap(column))
        return;
    FindOwners(block, first, to);
    const auto rows = static_cast<int>(owners.size());
    for (int row = 0; row < rows;) {
        const int begin = row;
        const int owner = owners[static_cast<std::size_t>(row)];
        while (row < rows && owners[static_cast<std::size_t>(row)] == owner)
            ++row;
        if (owner >= 0 && begin == row - 1)
            points[static_cast<std::size_t>(owner)].emplace_back(column, begin);
        else if (owner >= 0)
            lines[static_cast<std::size_t>(owner)].emplace_back(column, begin, column, row - 1);
    }
    // Lines of different curves don't overlap any more, so each curve is drawn at once.
    for (std::size_t curve = 0; curve < curves.size(); ++curve) {
        if (lines[curve].empty() && points[curve].empty())
            continue;
        painter.setPen(pens[curve]);
        painter.drawLines(lines[curve].data(), static_cast<int>(lines[curve].size()));
        painter.drawPoints(points[curve].data(), static_cast<int>(points[curve].size()));
        lines[curve].clear();
        points[curve].clear();
    }
}

void CurvePainter::FindOwners(const ValueBlock& block, qint32 from, qint32 to)
{
    std::ranges::fill(owners, kNobody);
    int overlaps = 0;
    for (std::size_t curve = 0; curve < curves.size(); ++curve) {
        const RowRange range = Covered(block, curve, from, to);
        for (int row = range.top; row <= range.bottom; ++row) {
            int& owner = owners[static_cast<std::size_t>(row)];
            overlaps |= owner + 1; // 0 for nobody
            owner = owner == kNobody ? static_cast<int>(curve) : kSeveral;
        }
    }
    if (overlaps != 0)
        ResolveOverlaps(block, from, to);
}

/// Where several curves cover a row, the line that was drawn last is seen: so the lines are gone through from the last
/// one back, each takes what of its rows is still open, and there is an end when all rows are taken.
void CurvePainter::ResolveOverlaps(const ValueBlock& block, qint32 from, qint32 to)
{
    const auto rows = static_cast<int>(owners.size());
    int open = 0;
    nextOpen[static_cast<std::size_t>(rows)] = rows;
    for (int row = rows - 1; row >= 0; --row) {
        const bool isOpen = owners[static_cast<std::size_t>(row)] == kSeveral;
        nextOpen[static_cast<std::size_t>(row)] = isOpen ? row : nextOpen[static_cast<std::size_t>(row) + 1];
        open += isOpen ? 1 : 0;
    }
    for (qint32 end = to; end > from && open > 0; end -= kSpan) {
        const qint32 begin = std::max(from, end - kSpan);
        crossing.clear();
        for (std::size_t curve = curves.size(); curve-- > 0;) {
            const RowRange range = Covered(block, curve, begin, end);
            if (NextOpen(range.top) > range.bottom)
                continue; // mostly
            crossing.push_back(curve);
            lastRows[curve] = RowAt(block, curve, end);
        }
        for (qint32 i = crossing.empty() ? begin - 1 : end - 1; i >= begin; --i)
            for (const std::size_t curve : crossing)
                open -= TakeRows(curve, RowAt(block, curve, i));
    }
}

int CurvePainter::TakeRows(std::size_t curve, int row)
{
    const RowRange range = Within(row, std::exchange(lastRows[curve], row));
    int count = 0;
    for (int taken = NextOpen(range.top); taken <= range.bottom; taken = NextOpen(taken)) {
        owners[static_cast<std::size_t>(taken)] = static_cast<int>(curve);
        nextOpen[static_cast<std::size_t>(taken)] = nextOpen[static_cast<std::size_t>(taken) + 1];
        ++count;
    }
    return count;
}

CurvePainter::RowRange CurvePainter::Within(int one, int other) const
{
    const auto rows = static_cast<int>(owners.size());
    return {.top = std::clamp(std::min(one, other), 0, rows), .bottom = std::min(std::max(one, other), rows - 1)};
}

CurvePainter::RowRange CurvePainter::Covered(const ValueBlock& block, std::size_t curve, qint32 from, qint32 to) const
{
    const auto [least, greatest] = Extent(block.values[curve] + from + 1, to - from, ValueAt(block, curve, from));
    return Within(mapping.Row(curves[curve].Fraction(least)), mapping.Row(curves[curve].Fraction(greatest)));
}

int CurvePainter::NextOpen(int row)
{
    int found = row;
    while (nextOpen[static_cast<std::size_t>(found)] != found)
        found = nextOpen[static_cast<std::size_t>(found)];
    for (int passed = row; passed != found;) // the next search goes there at once
        passed = std::exchange(nextOpen[static_cast<std::size_t>(passed)], found);
    return found;
}

void CurvePainter::DrawConnection(QPainter& painter, const ValueBlock& block, qint32 index)
{
    const qint32 set = block.firstSet + index;
    for (std::size_t curve = 0; curve < curves.size(); ++curve) {
        const QPointF from(mapping.X(lastSet), mapping.Y(curves[curve].Fraction(last[curve])));
        const QPointF to(mapping.X(set), mapping.Y(curves[curve].Fraction(block.values[curve][index])));
        const std::optional<QLine> line = LineBetween(mapping.Size(), from, to);
        if (!line)
            continue;
        painter.setPen(pens[curve]);
        if (style == CurveStyle::Dashed)
            DrawDashes(painter, *line);
        else
            DrawLine(painter, *line);
    }
}

/// The dashes are those of the columns, however short the lines are that a curve consists of.
void CurvePainter::DrawDashes(QPainter& painter, const QLine& line) const
{
    const int first = std::max(0, line.x1());
    const int end = std::min(mapping.Size().width() - 1, line.x2());
    const auto rowAt = [&line](int x) {
        return line.dx() == 0 ? line.y2()
                              : DiagramMapping::Nearest(line.y1() + double(line.dy()) * (x - line.x1()) / line.dx());
    };
    for (int begin = first - first % kDash; begin <= end; begin += kDash) {
        if (IsGap(begin))
            continue;
        const int from = std::max(begin, first);
        const int to = std::min(begin + kDash - 1, end);
        const int top = line.dx() == 0 ? line.y1() : rowAt(from);
        DrawLine(painter, {from, top, to, rowAt(to)});
    }
}

std::vector<CurveEnd> CurvePainter::Ends() const
{
    std::vector<CurveEnd> ends;
    for (std::size_t curve = 0; curve < curves.size() && lastSet > 0; ++curve)
        ends.push_back({.quantity = curves[curve].quantity,
                        .colour = curves[curve].colour,
                        .row = mapping.Row(curves[curve].Fraction(last[curve]))});
    return ends;
}

/// A line without length is a point: painters that scale make something wider of it.
void CurvePainter::DrawLine(QPainter& painter, const QLine& line)
{
    if (line.p1() == line.p2())
        painter.drawPoint(line.p1());
    else
        painter.drawLine(line);
}

std::optional<QLine> CurvePainter::LineBetween(QSize size, QPointF from, QPointF to)
{
    const auto isNear = [](QPointF point) {
        return std::abs(point.x()) < DiagramMapping::kFarthest && std::abs(point.y()) < DiagramMapping::kFarthest;
    };
    if (!isNear(from) || !isNear(to)) {
        const auto finite = [](double coordinate) { return std::clamp(coordinate, -kEndless, kEndless); };
        const QPointF begin(finite(from.x()), finite(from.y()));
        const QPointF step(finite(to.x()) - begin.x(), finite(to.y()) - begin.y());
        double enters = 0;
        double leaves = 1;
        const auto cut = [&](double at, double by, double least, double most) {
            if (by == 0)
                return at >= least && at <= most;
            const auto [first, second] = std::minmax({(least - at) / by, (most - at) / by});
            enters = std::max(enters, first);
            leaves = std::min(leaves, second);
            return enters <= leaves;
        };
        if (!cut(begin.x(), step.x(), -kMargin, size.width() + kMargin) ||
            !cut(begin.y(), step.y(), -kMargin, size.height() + kMargin))
            return std::nullopt;
        if (leaves < 1) // an end in the picture stays what it is
            to = begin + step * leaves;
        if (enters > 0)
            from = begin + step * enters;
    }
    return QLine(DiagramMapping::Nearest(from.x()), DiagramMapping::Nearest(from.y()), DiagramMapping::Nearest(to.x()),
                 DiagramMapping::Nearest(to.y()));
}

} // namespace korvanel
