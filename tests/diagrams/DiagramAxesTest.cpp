// What stands at the axes of a diagram, and the names at the ends of its curves.
#include "diagrams/DiagramAxes.h"

#include "core/clsSymbols.h"
#include "diagrams/DiagramPicture.h"
#include "diagrams/RecordingFixture.h"

#include <QPainter>

namespace korvanel::test {
namespace {

class DiagramAxes : public DiagramRecordingTest
{
protected:
    DiagramAxes() { App().Symbols = &symbols; }
    ~DiagramAxes() override { App().Symbols = nullptr; }

    static QStringList Texts(const std::vector<AxisLabel>& labels)
    {
        QStringList texts;
        for (const AxisLabel& label : labels)
            texts << label.text;
        return texts;
    }
    static DiagramGrid Grid(double y1, double y2) { return GridOf({.x1 = 1, .x2 = 10, .y1 = y1, .y2 = y2}); }
    /// A sheet that shows all of so many sets.
    DiagramSheet SheetOf(int sets) const
    {
        DiagramSheet sheet;
        sheet.view = FullView(sets, true);
        sheet.curves = Curves();
        sheet.axisCurve = sheet.curves.front();
        sheet.count = sets;
        return sheet;
    }

    clsSymbols symbols;
};

TEST_F(DiagramAxes, FullHeightHasElevenFractions)
{
    EXPECT_EQ(Texts(FractionLabels(Grid(-1, 1))),
              (QStringList{"-1,0", "-0,8", "-0,6", "-0,4", "-0,2", "0,0", "0,2", "0,4", "0,6", "0,8", "1,0"}));
}

TEST_F(DiagramAxes, FractionsHaveTheDecimalsOfTheirStep)
{
    EXPECT_EQ(Texts(FractionLabels(Grid(0.1, 0.3))).first(), "0,10");
    EXPECT_EQ(Texts(FractionLabels(Grid(0.1, 0.102))), (QStringList{"0,100", "0,101", "0,102"}));
    App().DecimalChar = u'.';
    EXPECT_EQ(Texts(FractionLabels(Grid(0, 1)))[5], "0.5");
    App().DecimalChar = u',';
}

TEST_F(DiagramAxes, NoAxisHasMoreThanElevenFractions)
{
    for (double height = 2; height > 1e-4; height *= 0.97)
        EXPECT_LE(FractionLabels(Grid(-1, -1 + height)).size(), 11u) << height;
}

TEST_F(DiagramAxes, ValuesAreTheFullScaleTimesTheFraction)
{
    EXPECT_EQ(Texts(ValueLabels(Grid(0, 1), kU, 500)).last(), "500 V");
    EXPECT_EQ(Texts(ValueLabels(Grid(0, 1), kU, 500))[3], "150 V");
    EXPECT_EQ(Texts(ValueLabels(Grid(-1, 1), kP, 50'000)).first(), "-50 kW");
    EXPECT_EQ(Texts(ValueLabels(Grid(0, 1), kCosPhi, 1)).last(), "1");
}

TEST_F(DiagramAxes, EnergiesAreToldInHoursWhateverTheyAreDrawnIn)
{
    EXPECT_EQ(Texts(ValueLabels(Grid(0, 1), kWp, 50)).last(), "50 Wh") << "drawn in watt hours";
    EXPECT_EQ(Texts(ValueLabels(Grid(0, 1), kWpAbs, 3'600'000)).last(), "1000 Wh") << "drawn in watt seconds";
    EXPECT_EQ(Texts(ValueLabels(Grid(0, 1), kWpMinusRel, 50)).last(), "-50 Wh") << "drawn upward, stored negative";
}

TEST_F(DiagramAxes, SetsHaveTheirTimeBelow)
{
    std::vector<tValueRow> sets = RandomSets(100, 1);
    for (tValueRow& row : sets)
        row.dt *= 60;
    Record(sets);
    EXPECT_EQ(Texts(SetLabels(GridOf({.x1 = 10, .x2 = 14, .y1 = 0, .y2 = 1}))).first(), "10\n00:09:00");
    EXPECT_EQ(Texts(SetLabels(GridOf({.x1 = 10, .x2 = 10.4, .y1 = 0, .y2 = 1}))),
              (QStringList{"10\n00:09:00", "10,1", "10,2", "10,3", "10,4"}));
}

TEST_F(DiagramAxes, WithoutTheFileSetsHaveNoTime)
{
    Record(RandomSets(10, 1));
    QFile::remove(App().sProjectPath);
    EXPECT_EQ(Texts(SetLabels(GridOf({.x1 = 1, .x2 = 3, .y1 = 0, .y2 = 1}))).first(), "1\n");
}

TEST_F(DiagramAxes, NamesKeepTheirDistanceWithinThePicture)
{
    std::vector<CurveEnd> ends;
    for (const int row : {5, 6, 7, 500, 100, 101, -4000, 199, 198})
        ends.push_back({.quantity = kU, .colour = Qt::red, .row = row});
    const std::vector<CurveName> names = PlacedNames(ends, 200, 12);
    ASSERT_EQ(names.size(), ends.size());
    for (std::size_t i = 0; i < names.size(); ++i) {
        EXPECT_GE(names[i].text, 6);
        EXPECT_LE(names[i].text, 194);
        EXPECT_GE(names[i].row, 0);
        EXPECT_LE(names[i].row, 199);
        if (i > 0) {
            EXPECT_GE(names[i].text - names[i - 1].text, 12) << i;
        }
    }
}

TEST_F(DiagramAxes, SheetHoldsCurvesAxesAndNames)
{
    Record(RandomSets(500, 3));
    DiagramSheet sheet = SheetOf(500);
    sheet.title = "Prüfstand <b>";
    const QByteArray svg = FileOfSheet(values, sheet, {700, 400}, ".svg");
    for (const char* text : {">Pmech<", ">0,8<", ">500 V<", ">U [V]<", "Prüfstand &lt;b&gt;"})
        EXPECT_TRUE(svg.contains(text)) << text;
    EXPECT_TRUE(FileOfSheet(values, sheet, {700, 400}, ".pdf").startsWith("%PDF"));
    EXPECT_TRUE(FileOfSheet(values, sheet, {700, 400}, ".bmp").isEmpty());
    const QImage image = ImageOfSheet(values, sheet, {700, 400}, 2);
    EXPECT_EQ(image.size(), QSize(1400, 800));
    const QRgb colour = sheet.curves.front().colour.rgb();
    int coloured = 0;
    for (int x = 0; x < image.width(); ++x)
        for (int y = 0; y < image.height(); ++y)
            coloured += image.pixel(x, y) == colour ? 1 : 0;
    EXPECT_GT(coloured, 2000);
}

TEST_F(DiagramAxes, SheetTooSmallForItsAxesIsStillDrawn)
{
    Record(RandomSets(50, 3));
    EXPECT_FALSE(ImageOfSheet(values, SheetOf(50), {10, 10}, 1).isNull());
}

} // namespace
} // namespace korvanel::test
