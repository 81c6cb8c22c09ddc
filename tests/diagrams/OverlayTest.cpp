// Curves of the second machine over those of the first: dashed, and otherwise the lines that they would be.
#include "diagrams/RecordingFixture.h"

#include <QPainter>

namespace korvanel::test {
namespace {

class OverlayTest : public DiagramRecordingTest
{
protected:
    /// Random sets, which the second machine goes through with the same values.
    void RecordBoth(int sets)
    {
        Record(RandomSets(sets, 3));
        StoreSimulated(rows);
    }
    std::vector<DiagramCurve> CurveOfPower()
    {
        std::vector<DiagramCurve> curves = Curves();
        std::erase_if(curves, [](const DiagramCurve& curve) { return curve.quantity != kP; });
        return curves;
    }
    QImage Drawn(const std::vector<DiagramCurve>& solid, const std::vector<DiagramCurve>& dashed)
    {
        QImage image(kSize, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        DiagramDrawing drawing(simulated, solid, FullView(App().iSetCount, true), App().iSetCount, kSize,
                               {&simulated, dashed});
        while (drawing.Continue(painter, 1000)) {
        }
        EXPECT_EQ(drawing.Share(), 1);
        return image;
    }
    static bool IsBlank(const QImage& image, int x)
    {
        for (int y = 0; y < image.height(); ++y)
            if (image.pixelColor(x, y) != Qt::white)
                return false;
        return true;
    }

    static constexpr QSize kSize{400, 200};
    SetValues simulated{SetSource::Simulated};
};

TEST_F(OverlayTest, DashesAreTheCurveInEveryOtherFourColumns)
{
    RecordBoth(20'000);
    const QImage solid = Drawn(CurveOfPower(), {});
    const QImage dashed = Drawn({}, CurveOfPower());
    for (int x = 0; x < kSize.width(); ++x) {
        if (x / 4 % 2 != 0) {
            ASSERT_TRUE(IsBlank(dashed, x)) << x;
            continue;
        }
        for (int y = 0; y < kSize.height(); ++y)
            ASSERT_EQ(dashed.pixel(x, y), solid.pixel(x, y)) << x << ' ' << y;
    }
}

TEST_F(OverlayTest, LongLinesBetweenFewSetsAreDashedToo)
{
    RecordBoth(6);
    const QImage dashed = Drawn({}, CurveOfPower());
    for (int x = 0; x < kSize.width(); ++x)
        EXPECT_EQ(IsBlank(dashed, x), x / 4 % 2 != 0) << x;
}

TEST_F(OverlayTest, MeasuredCurvesStayAsTheyAre)
{
    RecordBoth(3000);
    const QImage alone = Drawn(CurveOfPower(), {});
    EXPECT_EQ(Drawn(CurveOfPower(), CurveOfPower()), alone) << "the same values, so the dashes lie on the lines";
}

} // namespace
} // namespace korvanel::test
