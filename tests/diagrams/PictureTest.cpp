// The picture of a view, drawn as the program does it, against the one drawn line by line from every set.
#include "diagrams/RecordingFixture.h"

#include "core/Colour.h"

#include <QImage>
#include <QPainter>

#include <limits>

namespace korvanel::test {
namespace {

const QSize kSize(300, 160);
const DiagramView kAll{.x1 = 1, .x2 = 1e9, .y1 = -1, .y2 = 1};

QImage Blank(QSize size)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::white);
    return image;
}

void Scale(QPainter& painter, int scale)
{
    painter.scale(scale, scale);
    if (scale > 1)
        painter.translate(0.5, 0.5);
}

int Differences(const QImage& one, const QImage& other)
{
    int differences = 0;
    for (int y = 0; y < one.height(); ++y)
        for (int x = 0; x < one.width(); ++x)
            differences += one.pixel(x, y) != other.pixel(x, y) ? 1 : 0;
    return differences;
}

class Picture : public DiagramRecordingTest
{
protected:
    /// As the program draws it, in blocks.
    QImage Drawn(const DiagramView& view, QSize size = kSize, int scale = 1)
    {
        QImage image = Blank(size * scale);
        QPainter painter(&image);
        Scale(painter, scale);
        DiagramDrawing(values, Curves(), view, App().iSetCount, size).DrawWhole(painter);
        return image;
    }
    /// Each line of each set, in the order of the sets and for each set in that of the curves.
    QImage LineByLine(const DiagramView& ofView, QSize size, int scale)
    {
        const std::vector<DiagramCurve> curves = Curves();
        QImage image = Blank(size * scale);
        QPainter painter(&image);
        Scale(painter, scale);
        DiagramDrawing(values, {}, ofView, App().iSetCount, size).DrawGrid(painter);
        const DiagramView view = NormalisedView(ofView, App().iSetCount);
        const auto first = std::max(1, static_cast<int>(std::floor(view.x1 - 1)));
        const auto last = std::min(App().iSetCount, static_cast<int>(std::floor(view.x2)) + 1);
        for (int set = first + 1; set <= last; ++set) {
            if (set <= view.x1)
                continue;
            for (const DiagramCurve& curve : curves) {
                const auto point = [&](int of) {
                    const double fraction = Stored(curve.quantity, of) / curve.divisor / curve.scaleEnd;
                    return QPointF((of - view.x1) * ((size.width() - 1) / (view.x2 - view.x1)),
                                   (view.y2 - fraction) * ((size.height() - 1) / (view.y2 - view.y1)));
                };
                painter.setPen(QPen(curve.colour, 1, Qt::SolidLine, Qt::SquareCap));
                if (const auto line = CurvePainter::LineBetween(size, point(set - 1), point(set)))
                    CurvePainter::DrawLine(painter, *line);
            }
        }
        return image;
    }
    void ExpectSame(const DiagramView& view, QSize size = kSize, int scale = 1)
    {
        const QImage expected = LineByLine(view, size, scale);
        for (const char* how : {"first", "further"})
            EXPECT_EQ(Differences(Drawn(view, size, scale), expected), 0)
                << how << " drawing of " << view.x1 << " to " << view.x2 << ", " << view.y1 << " to " << view.y2
                << " in " << size.width() << " x " << size.height() << " of " << App().iSetCount << " sets";
    }
    /// Number of picture elements in the colour of a curve.
    int Coloured(const QImage& image, int quantity) const
    {
        int count = 0;
        const QRgb colour = ColourOf(App().GraphColours->colour(quantity)).rgb();
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                count += image.pixel(x, y) == colour ? 1 : 0;
        return count;
    }
};

TEST_F(Picture, EqualsTheOneDrawnLineByLine)
{
    for (const int count : {2, 3, 50, 299, 300, 301, 1000, 20'000}) {
        Record(RandomSets(count, static_cast<unsigned>(count)));
        ExpectSame(kAll);
    }
}

TEST_F(Picture, EqualsTheOneDrawnLineByLineInEveryView)
{
    Record(RandomSets(6000, 7));
    std::mt19937 random(7); // NOLINT(cert-msc51-cpp): the same views in every run
    std::uniform_real_distribution<double> unit(0, 1);
    for (int i = 0; i < 60; ++i) {
        const double width = 6000 * std::pow(10, -5 * unit(random));
        const double height = 2 * std::pow(10, -3 * unit(random));
        const double x = 1 + unit(random) * (6000 - width);
        const double y = -1 + unit(random) * (2 - height);
        ExpectSame({.x1 = x, .x2 = x + width, .y1 = y, .y2 = y + height},
                   {60 + static_cast<int>(unit(random) * 500), 40 + static_cast<int>(unit(random) * 300)});
    }
}

TEST_F(Picture, EqualsTheOneDrawnLineByLineOnAScreenOfHighResolution)
{
    Record(RandomSets(3000, 5));
    ExpectSame(kAll, kSize, 2);
    ExpectSame({.x1 = 100, .x2 = 180, .y1 = -0.3, .y2 = 0.9}, kSize, 3);
}

TEST_F(Picture, LineOfALaterSetLiesAboveOneOfAnEarlierSet)
{
    // Two curves that fill the same rows; the last line in a column decides each of them.
    std::vector<tValueRow> sets(6000);
    for (std::size_t i = 0; i < sets.size(); ++i) {
        sets[i].dU[kSum] = i % 7 < 3 ? 100 : 900;
        sets[i].dI[kSum] = i % 11 < 6 ? 95 : 11;
    }
    Record(sets);
    ExpectSame(kAll);
    const QImage image = Drawn(kAll);
    EXPECT_GT(Coloured(image, kU), 1000);
    EXPECT_GT(Coloured(image, kI), 1000);
}

TEST_F(Picture, SpikeOfOneSetAmongManyIsVisible)
{
    std::vector<tValueRow> sets(60'000);
    for (tValueRow& row : sets)
        row.dI[kSum] = 1;
    sets[43'210].dI[kSum] = 10;
    Record(sets);
    states = {};
    states.at(kI) = 1;
    const QImage image = Drawn({.x1 = 1, .x2 = 60'000, .y1 = 0, .y2 = 1});
    const int column = static_cast<int>(std::lround(43'210.0 / 59'999 * (kSize.width() - 1)));
    const QRgb colour = ColourOf(App().GraphColours->colour(kI)).rgb();
    for (int row = 0; row < kSize.height() * 9 / 10; ++row)
        EXPECT_EQ(image.pixel(column, row), colour) << row;
    EXPECT_NE(image.pixel(column + 2, 5), colour);
}

TEST_F(Picture, CurveThatNeverLeavesZeroDrawsOnTheZeroLine)
{
    Record(std::vector<tValueRow>(1000));
    states = {};
    states.at(kM) = 1;
    const QImage image = Drawn({.x1 = 1, .x2 = 1000, .y1 = 0, .y2 = 1});
    const QRgb colour = ColourOf(App().GraphColours->colour(kM)).rgb();
    for (int x = 0; x < kSize.width(); ++x)
        EXPECT_EQ(image.pixel(x, kSize.height() - 1), colour) << x;
    EXPECT_EQ(Coloured(image, kM), kSize.width());
}

TEST_F(Picture, EnergyFedBackIsDrawnUpwardThoughStoredNegative)
{
    const DiagramCurve fedBack{
        .quantity = kWpMinusRel, .colour = Qt::red, .divisor = DivisorInDiagram(kWpMinusRel), .scaleEnd = 5};
    EXPECT_DOUBLE_EQ(fedBack.Fraction(-2.5 * 3600), 0.5);
}

TEST_F(Picture, WithoutSetsOrWithOneSetShowsTheGridAlone)
{
    for (const int count : {0, 1}) {
        Record(RandomSets(count, 1));
        const QImage image = Drawn(FullView(count, true));
        for (const int quantity : kEightCurves)
            EXPECT_EQ(Coloured(image, quantity), 0) << quantity;
        EXPECT_NE(image, Blank(kSize));
    }
}

TEST_F(Picture, OfTwoSetsIsOneLineACurve)
{
    Record(RandomSets(2, 3));
    const QImage image = Drawn(FullView(2, true));
    for (const int quantity : {+kI, +kP})
        EXPECT_GE(Coloured(image, quantity), kSize.width() / 2) << quantity;
}

TEST_F(Picture, HugeAndInfiniteValuesEndAtTheEdge)
{
    const double infinity = std::numeric_limits<double>::infinity();
    for (const double huge : {1e308, -1e308, infinity, -infinity}) {
        std::vector<tValueRow> sets = RandomSets(2000, 9);
        for (std::size_t i = 100; i < sets.size(); i += 300) {
            sets[i].dI[kSum] = huge;
            sets[i + 1].dU[kSum] = -huge;
        }
        Record(sets);
        ExpectSame(kAll);
        ExpectSame({.x1 = 95, .x2 = 110, .y1 = -1, .y2 = 1});
        ExpectSame({.x1 = 100.2, .x2 = 100.3, .y1 = 0.1, .y2 = 0.1001});
    }
}

TEST_F(Picture, ViewsWithoutWidthOrHeightEnd)
{
    Record(RandomSets(500, 2));
    for (const DiagramView& view : {DiagramView{.x1 = 5, .x2 = 5, .y1 = 0.5, .y2 = 0.5},
                                    DiagramView{.x1 = 7, .x2 = std::nextafter(7.0, 8.0), .y1 = 0, .y2 = 1e-300},
                                    DiagramView{.x1 = -1e300, .x2 = 1e300, .y1 = -1e300, .y2 = 1e300}})
        ExpectSame(view);
    EXPECT_NE(Drawn(kAll, {1, 1}), QImage());
    EXPECT_NE(Drawn(kAll, {2, 1}), QImage());
}

TEST_F(Picture, SetThatTheFileLacksInterruptsTheCurves)
{
    Record(RandomSets(400, 4));
    Execute(QStringLiteral("DELETE FROM SampledValues WHERE [Set] BETWEEN 150 AND 250"));
    states = {};
    states.at(kF) = 1;
    for (const char* how : {"first", "further"}) {
        const QImage image = Drawn({.x1 = 1, .x2 = 400, .y1 = 0, .y2 = 1});
        EXPECT_NEAR(Coloured(image, kF), 300 * kSize.width() / 400, 3) << how;
    }
}

TEST_F(Picture, NullsAndTextsAreZero)
{
    Record(RandomSets(100, 4));
    Execute(QStringLiteral("UPDATE SampledValues SET [f sum]=NULL WHERE [Set]<=50"));
    Execute(QStringLiteral("UPDATE SampledValues SET [f sum]='viel' WHERE [Set]>50"));
    states = {};
    states.at(kF) = 1;
    EXPECT_EQ(Coloured(Drawn({.x1 = 1, .x2 = 100, .y1 = 0, .y2 = 1}), kF), kSize.width());
}

TEST_F(Picture, FileThatHasVanishedIsToldAndNothingIsKept)
{
    Record(RandomSets(100, 4));
    QFile::remove(App().sProjectPath);
    EXPECT_THROW(Drawn(kAll), DbError);
    EXPECT_EQ(values.Kept(), 0);
}

} // namespace
} // namespace korvanel::test
