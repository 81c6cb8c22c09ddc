// What the sheets of the result page look like: tables with their headings and colours, the overview, the bar.
#include "evaluation/ResultGrid.h"

#include "support/ResultPageFixture.h"

namespace korvanel::test {
namespace {

class ResultSheetsTest : public ResultPageTest
{
};

TEST_F(ResultSheetsTest, VerdictCell_AloneIsColoured)
{
    OpenProjectOf(2);
    StoreNumbered(3);
    EnterPage();
    auto& table = Find<QTableWidget>("flxASM");
    for (int column = 0; column < 5; ++column)
        EXPECT_EQ(table.item(1, column)->foreground().style(), Qt::NoBrush) << column;
    EXPECT_EQ(table.item(1, 5)->text(), "gut");
    EXPECT_EQ(table.item(1, 5)->foreground().color(), QColor(0, 192, 0));
}

TEST_F(ResultSheetsTest, MachineWithoutRatedPower_ShowsDashes)
{
    OpenProjectOf(2);
    App().MachineI.record.Pmech.reset();
    StoreNumbered(3);
    EnterPage();
    EXPECT_EQ(Cell("flxASM", 1, 2), "60 Nm");
    EXPECT_EQ(Cell("flxASM", 1, 3), "-");
    EXPECT_EQ(Cell("flxASM", 1, 5), "-");
}

TEST_F(ResultSheetsTest, BlockHeadings_AreBoldAndStandAcrossTheTable)
{
    OpenProjectOf(2);
    StoreNumbered(3);
    EnterPage();
    for (const char* name : {"flxExtrem", "flxEnergy", "flxASM"}) {
        auto& table = Find<QTableWidget>(name);
        EXPECT_EQ(table.columnSpan(0, 0), table.columnCount()) << name;
        EXPECT_TRUE(table.item(0, 0)->font().bold()) << name;
        EXPECT_EQ(table.columnSpan(1, 0), 1) << name;
        EXPECT_FALSE(table.item(1, 0)->font().bold()) << name;
        for (int column = 2; column < table.columnCount(); ++column)
            EXPECT_EQ(table.item(1, column)->textAlignment(), Qt::AlignCenter) << name;
    }
}

TEST_F(ResultSheetsTest, Columns_AreWideEnoughForEveryText)
{
    OpenProjectOf(2);
    settings->SetUsedCurrency(QStringLiteral("Schweizer Franken (CHF)"));
    StoreNumbered(3);
    EnterPage();
    for (const char* name : {"flxExtrem", "flxEnergy", "flxASM"}) {
        auto& table = Find<QTableWidget>(name);
        for (int row = 0; row < table.rowCount(); ++row)
            for (int column = 0; column < table.columnCount() && table.columnSpan(row, 0) == 1; ++column) {
                const QTableWidgetItem& item = *table.item(row, column);
                EXPECT_GE(table.columnWidth(column), QFontMetrics(item.font()).horizontalAdvance(item.text()) + 8)
                    << name << ' ' << item.text().toStdString();
            }
    }
}

TEST_F(ResultSheetsTest, Overview_TellsWhatWasEvaluated)
{
    OpenProjectOf(2);
    App().sProjectName = QStringLiteral("Halle <b>3</b>");
    App().sDevice = QStringLiteral("ISKRA MI7150");
    App().dtMeasurementBegin = QDateTime({2026, 3, 14}, {8, 0, 0});
    App().sMeasurementTerm = QStringLiteral("00:00:02");
    App().dInterval = 0.5;
    std::vector<tValueRow> rows(3, WorkingSet(10, 9000, 50, 8000));
    rows[1].dU[kSum] = 370;
    rows[2].deta = 1;
    Store(rows);
    EnterPage();
    EXPECT_EQ(Label("lblProject"), "Halle <b>3</b>");
    EXPECT_EQ(Find<QLabel>("lblProject").textFormat(), Qt::PlainText);
    EXPECT_EQ(Label("lblDevice"), "ISKRA MI7150");
    EXPECT_EQ(Label("lblBegin"), DateTimeText(App().dtMeasurementBegin));
    EXPECT_EQ(Label("lblEnd"), "-") << "it was never set";
    EXPECT_EQ(Label("lblTerm"), "00:00:02");
    EXPECT_EQ(Label("lblInterval"), "0,5 s");
    EXPECT_EQ(Label("lblSets"), "3");
    EXPECT_EQ(Label("lblMachine"), "18,5 kW, Werk A");
    EXPECT_EQ(Label("lblClass_1"), "gut: 1 (33,3%)");
    EXPECT_EQ(Label("lblClass_2"), "mittel: 1 (33,3%)");
    EXPECT_EQ(Label("lblClass_3"), "schlecht: 1 (33,3%)");
}

TEST_F(ResultSheetsTest, SuitabilityBar_ShowsTheClassesFromTheLeftInTheirColours)
{
    OpenProjectOf(2);
    std::vector<tValueRow> rows(4, WorkingSet(10, 9000, 50, 8000));
    rows[1].dU[kSum] = 370;
    rows[2].deta = 1;
    rows[3].deta = 1;
    Store(rows);
    EnterPage();
    const QImage bar = Find<QWidget>("picModel").grab().toImage();
    const auto colourAt = [&](double share) { return bar.pixelColor(static_cast<int>(share * (bar.width() - 1)), 7); };
    EXPECT_EQ(colourAt(0.12), QColor(0, 192, 0));
    EXPECT_EQ(colourAt(0.37), QColor(251, 157, 0));
    EXPECT_EQ(colourAt(0.6), QColor(192, 0, 0));
    EXPECT_EQ(colourAt(0.9), QColor(192, 0, 0));
}

TEST_F(ResultSheetsTest, SuitabilityBar_WithoutSetsIsEmpty)
{
    OpenProjectOf(2);
    EnterPage();
    const QImage bar = Find<QWidget>("picModel").grab().toImage();
    for (int x = 0; x < bar.width(); ++x)
        ASSERT_EQ(bar.pixelColor(x, 7), bar.pixelColor(0, bar.height() - 1)) << x;
}

TEST_F(ResultSheetsTest, HeadRowAboveTheCosts_IsBoldInEveryColumn)
{
    OpenProjectOf(2);
    StoreNumbered(3);
    EnterPage();
    auto& table = Find<QTableWidget>("flxEnergy");
    ASSERT_EQ(Cell("flxEnergy", 8, 2), "Kosten");
    EXPECT_EQ(table.columnSpan(8, 0), 1);
    for (int column = 0; column < table.columnCount(); ++column) {
        EXPECT_TRUE(table.item(8, column)->font().bold()) << column;
        EXPECT_FALSE(table.item(9, column)->font().bold()) << column;
    }
}

TEST_F(ResultSheetsTest, Table_ShowsNothingOfTheOneBefore)
{
    ResultGrid grid("flxExtrem");
    const QStringList heads{"a", "b", "c"};
    grid.Show({heads,
               {{.kind = ResultRowKind::Heading, .cells = {"Heading"}},
                {.kind = ResultRowKind::Values, .cells = {"1", "2", "3"}, .lastColour = 192}}});
    grid.Show({heads,
               {{.kind = ResultRowKind::Values, .cells = {"4", "5", "6"}},
                {.kind = ResultRowKind::Heading, .cells = {"Other"}}}});
    EXPECT_EQ(grid.columnSpan(0, 0), 1);
    EXPECT_EQ(grid.item(0, 2)->text(), "6");
    EXPECT_FALSE(grid.item(0, 0)->font().bold());
    EXPECT_EQ(grid.columnSpan(1, 0), 3);
    EXPECT_EQ(grid.item(1, 1), nullptr);
    grid.Show({heads, {}});
    EXPECT_EQ(grid.rowCount(), 0);
    EXPECT_EQ(grid.horizontalHeaderItem(2)->text(), "c");
}

} // namespace
} // namespace korvanel::test
