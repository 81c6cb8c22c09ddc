// The page of the diagrams: legend, the chosen quantity, the values of a point.
#include "diagrams/DiagramPageFixture.h"

#include "core/window/FormH3.h"
#include "diagrams/FormH17.h"

#include <QColorDialog>
#include <QListWidget>
#include <QPushButton>
#include <QTabWidget>

#include <cmath>

namespace korvanel::test {
namespace {

using FormF8LegendTest = DiagramPageTest;

// Legend.

TEST_F(FormF8LegendTest, LegendHasTheQuantitiesOfTheColumnLayout)
{
    EnterDiagrams();
    std::vector<int> expected;
    for (const qint16 column : App().ColumnLayout)
        if (column >= 0)
            expected.push_back(column);
    ASSERT_EQ(Legend().columnCount(), static_cast<int>(expected.size()));
    for (int column = 0; column < Legend().columnCount(); ++column) {
        EXPECT_EQ(Legend().item(0, column)->data(Qt::UserRole).toInt(), expected[static_cast<std::size_t>(column)]);
        EXPECT_EQ(Legend().horizontalHeaderItem(column)->text(),
                  App().Symbols->SymbolWithUnit(expected[static_cast<std::size_t>(column)]));
    }
    EXPECT_TRUE(Legend().toolTip().contains("Linke Maustaste zum ein-/ausschalten des jeweiligen Graphen. Rechte Taste "
                                            "zum auswählen der Farbe."));
}

TEST_F(FormF8LegendTest, LeftClickSwitchesACurveWhichChangesWithRedraw)
{
    EnterDiagrams();
    const auto circle = [this] { return Legend().item(0, ColumnOf(kU))->icon().pixmap(16).toImage(); };
    const QImage filled = circle();
    ClickCell(0, ColumnOf(kU));
    EXPECT_NE(circle(), filled);
    EXPECT_GT(Coloured(kU), 100) << "not yet";
    Press("cmdRedraw");
    EXPECT_EQ(Coloured(kU), 0);
    ClickCell(0, ColumnOf(kU));
    EXPECT_EQ(circle(), filled);
    Press("cmdRedraw");
    EXPECT_GT(Coloured(kU), 100);
}

TEST_F(FormF8LegendTest, RightClickChoosesTheColourWhichTheUserKeeps)
{
    EnterDiagrams();
    WithNextDialog<QColorDialog>([](QColorDialog& dialog) {
        dialog.setCurrentColor(QColor(1, 2, 3));
        dialog.accept();
    });
    ClickCell(0, ColumnOf(kU), Qt::RightButton);
    WaitForDrawing();
    EXPECT_EQ(App().GraphColours->colour(kU), 0x030201);
    EXPECT_GT(Coloured(kU), 100);
    WithNextDialog<QColorDialog>([](QColorDialog& dialog) {
        dialog.setCurrentColor(Qt::white);
        dialog.reject();
    });
    ClickCell(0, ColumnOf(kU), Qt::RightButton);
    EXPECT_EQ(App().GraphColours->colour(kU), 0x030201);
    clsGraphColours stored(QStringLiteral("KORVANEL"));
    stored.ReadSettings();
    EXPECT_EQ(stored.colour(kU), 0x030201);
}

TEST_F(FormF8LegendTest, ClickElsewhereAsksForTheOrder)
{
    EnterDiagrams();
    const QString first = Legend().horizontalHeaderItem(0)->text();
    for (const auto button : {Qt::LeftButton, Qt::RightButton}) {
        bool wasAsked = false;
        WithNextDialog<FormH3>([&](FormH3& dialog) {
            wasAsked = true;
            dialog.reject();
        });
        ClickCell(2, 1, button);
        EXPECT_TRUE(wasAsked);
    }
    WithNextDialog<FormH3>([](FormH3& dialog) {
        auto& list = ControlOf<QListWidget>(dialog, "lstOrder");
        list.setCurrentRow(list.count() - 1);
        ControlOf<QPushButton>(dialog, "cmdMove_0").click();
        ControlOf<QPushButton>(dialog, "cmdOK").click();
    });
    ClickCell(1, 0);
    EXPECT_EQ(Legend().item(0, 0)->data(Qt::UserRole).toInt(),
              *std::ranges::find_if(App().ColumnLayout, [](qint16 column) { return column >= 0; }));
}

TEST_F(FormF8LegendTest, HidingTheLegendGivesThePictureItsWidth)
{
    EnterDiagrams();
    const int narrow = Box().width();
    Press("cmdHide");
    EXPECT_FALSE(Legend().isVisible());
    EXPECT_GT(Box().width(), narrow + 100);
    EXPECT_GT(Coloured(kU), narrow + 50) << "drawn again in the new size";
    Press("cmdHide");
    EXPECT_EQ(Box().width(), narrow);
    EXPECT_FALSE(CanUndo());
}

TEST_F(FormF8LegendTest, SingleDiagramDrawsTheQuantityThatWasClickedLast)
{
    EnterDiagrams();
    ClickCell(0, ColumnOf(kI));
    ClickCell(0, ColumnOf(kI));
    Find<QTabWidget>("tabPage").setCurrentIndex(0);
    WaitForDrawing();
    EXPECT_GT(Coloured(kI), 100);
    EXPECT_EQ(Coloured(kU), 0);
    ClickCell(0, ColumnOf(kU));
    WaitForDrawing();
    EXPECT_GT(Coloured(kU), 100);
    EXPECT_EQ(Coloured(kI), 0);
    Find<QTabWidget>("tabPage").setCurrentIndex(1);
    WaitForDrawing();
    EXPECT_EQ(Coloured(kU), 0) << "the click has switched it off";
    EXPECT_GT(Coloured(kI), 100);
}

TEST_F(FormF8LegendTest, RightAxisTellsTheValuesOfTheQuantityThatWasClickedLast)
{
    EnterDiagrams();
    EXPECT_EQ(Find<QLabel>("lblQuantity").text(), "U [V]");
    EXPECT_EQ(Values().last(), "500 V");
    ClickCell(0, ColumnOf(kP));
    EXPECT_EQ(Find<QLabel>("lblQuantity").text(), "Pel [W]");
    EXPECT_EQ(Values().first(), "0 W");
    EXPECT_EQ(Values().last(), "50 kW");
}

// Point.

TEST_F(FormF8LegendTest, RightClickMarksThePointAndShowsItsValues)
{
    EnterDiagrams();
    const int x = static_cast<int>(std::lround((37.0 - 1) / 199 * (Box().width() - 1)));
    QTest::mouseClick(&Box(), Qt::RightButton, {}, {x, 50});
    EXPECT_EQ(Legend().verticalHeaderItem(1)->text(), "Satz 37");
    EXPECT_EQ(Legend().item(1, ColumnOf(kU))->text(), "400 V");
    EXPECT_EQ(Legend().item(1, ColumnOf(kI))->text(), "37 A");
    EXPECT_EQ(Legend().item(1, ColumnOf(kP))->text(), "3700 W");
    EXPECT_EQ(Legend().item(1, ColumnOf(kCosPhi))->text(), "0,8");
    const QWidget& mark = Find<QWidget>("shpTarget");
    EXPECT_FALSE(mark.isHidden());
    EXPECT_NEAR(mark.geometry().center().x(), x, 1);
    EXPECT_NEAR(mark.geometry().center().y(), 50, 1);
    EXPECT_NEAR(mark.width(), 0.03 * Box().width(), 2);
    EXPECT_NEAR(mark.height(), 0.03 * Box().height(), 2);
}

TEST_F(FormF8LegendTest, MarkStaysOnItsPointInOtherViews)
{
    EnterDiagrams();
    QTest::mouseClick(&Box(), Qt::RightButton, {}, {100, 50});
    Drag({50, 20}, {150, 100});
    EXPECT_NEAR(Find<QWidget>("shpTarget").geometry().center().x(), Box().width() / 2, 3);
    Drag({1, 1}, {20, 20});
    EXPECT_TRUE(Find<QWidget>("shpTarget").isHidden()) << "out of view";
}

TEST_F(FormF8LegendTest, InformationWithoutAPointTellsHowToChooseOne)
{
    EnterDiagrams();
    Press("cmdInfo");
    ASSERT_EQ(shell.boxes.size(), 1u);
    EXPECT_TRUE(shell.boxes[0].text.startsWith("Wenn Sie Informationen zu einem bestimmten Graphen wünschen,"));
    EXPECT_TRUE(Box().toolTip().contains("Wenn Sie Informationen zu einem bestimmten Graphen wünschen,"));
}

TEST_F(FormF8LegendTest, InformationShowsTheValuesAroundThePoint)
{
    EnterDiagrams();
    const auto at = [this](double set) {
        return QPoint(static_cast<int>(std::lround((set - 1) / 199 * (Box().width() - 1))), 40);
    };
    QTest::mouseClick(&Box(), Qt::RightButton, {}, at(50));
    ClickCell(0, ColumnOf(kI));
    Press("cmdInfo");
    auto& point = Find<FormH17>("FormH17");
    EXPECT_TRUE(point.isVisible());
    EXPECT_FALSE(point.isModal());
    auto& table = ControlOf<QTableWidget>(point, "flxvalues");
    EXPECT_EQ(ControlOf<QLabel>(point, "lblSymbol").text(), "I [A]");
    EXPECT_EQ(ControlOf<QLabel>(point, "lblValue").text(), "50 A");
    EXPECT_EQ(ControlOf<QFrame>(point, "picColour").palette().color(QPalette::Window).rgb(), QColor(Qt::red).rgb());
    ASSERT_EQ(table.rowCount(), 11);
    EXPECT_EQ(table.item(0, 0)->text(), "45");
    EXPECT_EQ(table.item(10, 2)->text(), "55 A");
    QTest::mouseClick(&Box(), Qt::RightButton, {}, at(2));
    EXPECT_EQ(table.rowCount(), 7) << "from the first set on";
    EXPECT_EQ(ControlOf<QLabel>(point, "lblValue").text(), "2 A");
    ClickCell(0, ColumnOf(kU));
    EXPECT_EQ(ControlOf<QLabel>(point, "lblSymbol").text(), "U [V]");
    ControlOf<QPushButton>(point, "cmdShowTable").click();
    EXPECT_TRUE(table.isHidden());
    ControlOf<QPushButton>(point, "cmdShowTable").click();
    EXPECT_FALSE(table.isHidden());
    ControlOf<QPushButton>(point, "cmdOK").click();
    EXPECT_FALSE(point.isVisible());
}

} // namespace
} // namespace korvanel::test
