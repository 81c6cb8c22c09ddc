// The page of the diagrams in the real main window: drawing, zoom and its history, legend, point, pictures.
#include "diagrams/FormF8.h"

#include "core/Colour.h"
#include "core/window/FormH3.h"
#include "diagrams/DiagramBox.h"
#include "diagrams/DiagramLegend.h"
#include "diagrams/DiagramPanel.h"
#include "diagrams/FormH17.h"
#include "support/ResultPageFixture.h"

#include <QClipboard>
#include <QColorDialog>
#include <QListWidget>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>
#include <QToolButton>

#include <cmath>

namespace korvanel::test {
namespace {

class FormF8Test : public ResultPageTest
{
protected:
    FormF8Test() { window.RegisterPage(kPageResultGraph, BuildPage<FormF8>); }

    /// A recording whose curves go up, and the page over it, drawn.
    void EnterDiagrams(int sets = 200, int netConf = 2)
    {
        OpenProjectOf(netConf);
        std::vector<tValueRow> rows;
        for (int set = 1; set <= sets; ++set)
            rows.push_back(WorkingSet(set % 100, 100.0 * set, 60, 9000));
        Store(std::move(rows));
        EnterAgain();
    }
    void CloseProjectOf()
    {
        window.UnloadPage();
        App().bProjectOpen = false;
        QFile::remove(App().sProjectPath);
    }
    void EnterAgain()
    {
        window.UnloadAndOpen(kPageResultGraph);
        WaitForDrawing();
    }
    /// The page draws as soon as it has its size, and then step by step.
    void WaitForDrawing()
    {
        QCoreApplication::processEvents();
        QTRY_VERIFY(Find<QToolButton>("cmdRedraw").isEnabled() && !Find<DiagramBox>("Picture1").grab().isNull());
        QCoreApplication::processEvents();
    }
    void Press(const char* button)
    {
        Find<QToolButton>(button).click();
        WaitForDrawing();
    }
    /// Has all sets read again, which takes more than one step.
    void BeginToDraw()
    {
        RecordingChanged();
        App().bEvaluated = 1;
        Find<QToolButton>("cmdRedraw").click();
    }
    DiagramBox& Box() { return Find<DiagramBox>("Picture1"); }
    DiagramLegend& Legend() { return Find<DiagramLegend>("flxInfo"); }
    void Drag(QPoint from, QPoint to, Qt::MouseButton button = Qt::LeftButton, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::mousePress(&Box(), button, modifiers, from);
        Move(to, button, modifiers);
        QTest::mouseRelease(&Box(), button, modifiers, to);
        WaitForDrawing();
    }
    void Move(QPoint to, Qt::MouseButton held, Qt::KeyboardModifiers modifiers = {})
    {
        QMouseEvent event(QEvent::MouseMove, to, Box().mapToGlobal(to), Qt::NoButton, held, modifiers);
        QApplication::sendEvent(&Box(), &event);
    }
    void Wheel(QPoint at, int notches)
    {
        QWheelEvent event(at, Box().mapToGlobal(at), {}, {0, 120 * notches}, Qt::NoButton, {}, Qt::NoScrollPhase,
                          false);
        QApplication::sendEvent(&Box(), &event);
        WaitForDrawing();
    }
    void ClickCell(int row, int column, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mouseClick(Legend().viewport(), button, {},
                          Legend().visualRect(Legend().model()->index(row, column)).center());
        QCoreApplication::processEvents();
    }
    /// What the axis below the picture tells.
    QStringList Sets() { return Labels("lblCount_%1"); }
    QStringList Fractions() { return Labels("lblLeft_%1"); }
    QStringList Values() { return Labels("lblRight_%1"); }
    QStringList Labels(const char* name)
    {
        QStringList texts;
        for (int i = 0;; ++i) {
            const auto* label = window.findChild<QLabel*>(QString::fromLatin1(name).arg(i));
            if (!label)
                return texts;
            if (!label->isHidden())
                texts << label->text();
        }
    }
    QImage Picture() { return Box().grab().toImage(); }
    int Coloured(int quantity)
    {
        const QImage image = Picture();
        const QRgb colour = ColourOf(App().GraphColours->colour(quantity)).rgb();
        int count = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                count += (image.pixel(x, y) | 0xFF000000) == colour ? 1 : 0;
        return count;
    }
    int ColumnOf(int quantity)
    {
        for (int column = 0; column < Legend().columnCount(); ++column)
            if (Legend().item(0, column)->data(Qt::UserRole).toInt() == quantity)
                return column;
        return -1;
    }
    bool CanUndo() { return Find<QToolButton>("cmdUndo").isEnabled(); }
    bool CanRedo() { return Find<QToolButton>("cmdRedo").isEnabled(); }
};

// Entering.

TEST_F(FormF8Test, EnteringThePage_EvaluatesAndDrawsTheFullView)
{
    EnterDiagrams();
    EXPECT_NE(App().bEvaluated, 0);
    EXPECT_EQ(Sets().first().section(u'\n', 0, 0), "25");
    EXPECT_EQ(Sets().last().section(u'\n', 0, 0), "175");
    EXPECT_EQ(Sets().first().section(u'\n', 1), "00:00:24");
    EXPECT_EQ(Fractions(), (QStringList{"0,0", "0,1", "0,2", "0,3", "0,4", "0,5", "0,6", "0,7", "0,8", "0,9", "1,0"}));
    EXPECT_GT(Coloured(kU), 100);
    EXPECT_FALSE(CanUndo());
    EXPECT_FALSE(CanRedo());
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(FormF8Test, EnteringThePageAgain_TakesTheResultsInHand)
{
    EnterDiagrams();
    App().MachineI.evaluation.tExtremMax[kU].dValue = 4000;
    EnterAgain();
    EXPECT_EQ(Legend().item(2, ColumnOf(kU))->text(), "5000 V");
}

TEST_F(FormF8Test, OfNegativeValuesTheFullViewGoesBelowZero)
{
    OpenProjectOf(2);
    Store({WorkingSet(10, 5000, 30, 4000), WorkingSet(10, -5000, -30, -4000), WorkingSet(10, 100, 1, 90)});
    EnterAgain();
    EXPECT_EQ(Fractions(),
              (QStringList{"-1,0", "-0,8", "-0,6", "-0,4", "-0,2", "0,0", "0,2", "0,4", "0,6", "0,8", "1,0"}));
}

TEST_F(FormF8Test, FirstCurves_AreVoltageCurrentAndPowerAndThoseOfTheMachine)
{
    EnterDiagrams();
    for (const int quantity : {+kU, +kI, +kP, +kN, +kM, +kPmech})
        EXPECT_EQ(App().DiagramPage.iGraphState.at(static_cast<std::size_t>(quantity)), 1) << quantity;
    EXPECT_EQ(std::ranges::count(App().DiagramPage.iGraphState, 1), 6);
    CloseProjectOf();
    EnterDiagrams(50, 1);
    EXPECT_EQ(std::ranges::count(App().DiagramPage.iGraphState, 1), 3);
}

TEST_F(FormF8Test, ChosenCurves_StayWithTheProject)
{
    EnterDiagrams();
    ClickCell(0, ColumnOf(kU));
    window.UnloadAndOpen(kPageResultTable);
    EnterAgain();
    EXPECT_EQ(App().DiagramPage.iGraphState[kU], 0);
    EXPECT_EQ(Coloured(kU), 0);
    CloseProjectOf();
    EnterDiagrams();
    EXPECT_EQ(App().DiagramPage.iGraphState[kU], 1) << "another project begins anew";
}

TEST_F(FormF8Test, WithoutSetsOrWithOneTheGridIsAllThereIs)
{
    for (const int sets : {0, 1}) {
        EnterDiagrams(sets);
        for (const int quantity : {+kU, +kI, +kP})
            EXPECT_EQ(Coloured(quantity), 0) << sets;
        Press("cmdFullScreen");
        Press("cmdRedraw");
        Drag({20, 20}, {200, 100});
        Wheel({50, 50}, 3);
        QTest::mouseClick(&Box(), Qt::RightButton, {}, {30, 30});
        CloseProjectOf();
    }
    EXPECT_TRUE(shell.boxes.empty());
}

// Zoom and its history.

TEST_F(FormF8Test, RectangleZoomsAndUndoGoesBack)
{
    EnterDiagrams();
    const QStringList full = Sets();
    Drag({Box().width() / 4, 10}, {Box().width() / 2, Box().height() / 2});
    const QStringList zoomed = Sets();
    EXPECT_NE(zoomed, full);
    EXPECT_GE(zoomed.first().section(u'\n', 0, 0).toInt(), 50);
    EXPECT_LE(zoomed.last().section(u'\n', 0, 0).toInt(), 101);
    EXPECT_TRUE(CanUndo());
    Press("cmdUndo");
    EXPECT_EQ(Sets(), full);
    EXPECT_FALSE(CanUndo());
    EXPECT_TRUE(CanRedo());
    Press("cmdRedo");
    EXPECT_EQ(Sets(), zoomed);
    EXPECT_FALSE(CanRedo());
    Press("cmdFullScreen");
    EXPECT_EQ(Sets(), full);
    Press("cmdUndo");
    EXPECT_EQ(Sets(), zoomed) << "the full view is a record of its own";
}

TEST_F(FormF8Test, RectangleDraggedRightToLeftGivesTheSameView)
{
    EnterDiagrams();
    Drag({60, 30}, {160, 130});
    const QStringList sets = Sets();
    const QImage picture = Picture();
    Press("cmdUndo");
    Drag({160, 130}, {60, 30});
    EXPECT_EQ(Sets(), sets);
    EXPECT_EQ(Picture(), picture);
}

TEST_F(FormF8Test, RectangleBeyondTheDiagramIsClipped)
{
    EnterDiagrams();
    const QStringList full = Sets();
    Drag({-500, -500}, {5000, 5000});
    EXPECT_EQ(Sets(), full);
    EXPECT_FALSE(CanUndo()) << "the same view again is no new record";
}

TEST_F(FormF8Test, LinesOfTheRectangleFollowTheMouse)
{
    EnterDiagrams();
    const auto isShown = [this](const char* line) { return !Find<QWidget>(line).isHidden(); };
    EXPECT_FALSE(isShown("linLeft"));
    QTest::mousePress(&Box(), Qt::LeftButton, {}, {40, 30});
    for (const char* line : {"linLeft", "linDown", "linRight", "linTop"}) {
        EXPECT_TRUE(isShown(line)) << line;
        EXPECT_EQ(Find<QWidget>(line).pos(), QPoint(40, 30)) << line;
    }
    Move({140, 90}, Qt::LeftButton);
    EXPECT_EQ(Find<QWidget>("linLeft").geometry(), QRect(40, 30, 1, 61));
    EXPECT_EQ(Find<QWidget>("linDown").geometry(), QRect(40, 90, 101, 1));
    EXPECT_EQ(Find<QWidget>("linRight").geometry(), QRect(140, 30, 1, 61));
    EXPECT_EQ(Find<QWidget>("linTop").geometry(), QRect(40, 30, 101, 1));
    QTest::mouseRelease(&Box(), Qt::LeftButton, {}, {140, 90});
    EXPECT_FALSE(isShown("linLeft"));
    WaitForDrawing();
}

TEST_F(FormF8Test, ClickWithoutADragIsNoZoom)
{
    EnterDiagrams();
    Drag({50, 50}, {51, 51});
    EXPECT_FALSE(CanUndo());
}

TEST_F(FormF8Test, EscapeDropsTheRectangle)
{
    EnterDiagrams();
    QTest::mousePress(&Box(), Qt::LeftButton, {}, {40, 30});
    Move({140, 90}, Qt::LeftButton);
    QTest::keyClick(&Box(), Qt::Key_Escape);
    EXPECT_TRUE(Find<QWidget>("linLeft").isHidden());
    QTest::mouseRelease(&Box(), Qt::LeftButton, {}, {140, 90});
    WaitForDrawing();
    EXPECT_FALSE(CanUndo());
}

TEST_F(FormF8Test, WheelZoomsAboutThePointer)
{
    EnterDiagrams();
    const QStringList full = Sets();
    Wheel({0, Box().height() - 1}, 4);
    EXPECT_EQ(Fractions(), (QStringList{"0,00", "0,05", "0,10", "0,15", "0,20", "0,25", "0,30", "0,35", "0,40"}))
        << "the corner under the pointer stays";
    EXPECT_NE(Sets(), full);
    EXPECT_TRUE(CanUndo());
    Wheel({0, Box().height() - 1}, -10);
    EXPECT_EQ(Sets(), full) << "and farther away than the full view it doesn't go";
}

TEST_F(FormF8Test, HandMovesTheView)
{
    EnterDiagrams();
    Drag({Box().width() / 4, 10}, {Box().width() / 2, Box().height() - 10});
    const QString first = Sets().first();
    Drag({200, 50}, {100, 50}, Qt::MiddleButton);
    EXPECT_GT(Sets().first().section(u'\n', 0, 0).toInt(), first.section(u'\n', 0, 0).toInt());
    const QStringList moved = Sets();
    Drag({100, 50}, {200, 50}, Qt::LeftButton, Qt::ShiftModifier);
    EXPECT_NE(Sets(), moved);
    Press("cmdUndo");
    EXPECT_EQ(Sets(), moved);
    Drag({100, 50}, {-5000, 50}, Qt::MiddleButton);
    QTest::mouseClick(&Box(), Qt::RightButton, {}, {Box().width() - 1, 30});
    EXPECT_EQ(Legend().verticalHeaderItem(1)->text(), "Satz 200") << "no farther than the last set";
}

TEST_F(FormF8Test, KeysUndoAndRedo)
{
    EnterDiagrams();
    const QStringList full = Sets();
    Drag({60, 30}, {160, 130});
    const QStringList zoomed = Sets();
    QTest::keyClick(&Box(), Qt::Key_Z, Qt::ControlModifier);
    WaitForDrawing();
    EXPECT_EQ(Sets(), full);
    QTest::keyClick(&Box(), Qt::Key_Y, Qt::ControlModifier);
    WaitForDrawing();
    EXPECT_EQ(Sets(), zoomed);
}

// Legend.

TEST_F(FormF8Test, LegendHasTheQuantitiesOfTheColumnLayout)
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

TEST_F(FormF8Test, LeftClickSwitchesACurveWhichChangesWithRedraw)
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

TEST_F(FormF8Test, RightClickChoosesTheColourWhichTheUserKeeps)
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

TEST_F(FormF8Test, ClickElsewhereAsksForTheOrder)
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

TEST_F(FormF8Test, HidingTheLegendGivesThePictureItsWidth)
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

TEST_F(FormF8Test, SingleDiagramDrawsTheQuantityThatWasClickedLast)
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

TEST_F(FormF8Test, RightAxisTellsTheValuesOfTheQuantityThatWasClickedLast)
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

TEST_F(FormF8Test, RightClickMarksThePointAndShowsItsValues)
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

TEST_F(FormF8Test, MarkStaysOnItsPointInOtherViews)
{
    EnterDiagrams();
    QTest::mouseClick(&Box(), Qt::RightButton, {}, {100, 50});
    Drag({50, 20}, {150, 100});
    EXPECT_NEAR(Find<QWidget>("shpTarget").geometry().center().x(), Box().width() / 2, 3);
    Drag({1, 1}, {20, 20});
    EXPECT_TRUE(Find<QWidget>("shpTarget").isHidden()) << "out of view";
}

TEST_F(FormF8Test, InformationWithoutAPointTellsHowToChooseOne)
{
    EnterDiagrams();
    Press("cmdInfo");
    ASSERT_EQ(shell.boxes.size(), 1u);
    EXPECT_TRUE(shell.boxes[0].text.startsWith("Wenn Sie Informationen zu einem bestimmten Graphen wünschen,"));
    EXPECT_TRUE(Box().toolTip().contains("Wenn Sie Informationen zu einem bestimmten Graphen wünschen,"));
}

TEST_F(FormF8Test, InformationShowsTheValuesAroundThePoint)
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

// While it draws.

TEST_F(FormF8Test, ButtonsAreLockedWhileItDraws)
{
    EnterDiagrams(60'000);
    BeginToDraw();
    ASSERT_FALSE(Find<QToolButton>("cmdRedraw").isEnabled()) << "60000 sets take more than one step";
    for (const char* button : {"cmdInfo", "cmdHide", "cmdUndo", "cmdRedo", "cmdFullScreen", "cmdPicture"})
        EXPECT_FALSE(Find<QToolButton>(button).isEnabled()) << button;
    EXPECT_FALSE(Find<QPushButton>("cmdBack").isEnabled());
    EXPECT_FALSE(IsEntryEnabled("mnuFile"));
    EXPECT_FALSE(Legend().isEnabled());
    Drag({10, 10}, {100, 100}); // waits for the end, and does nothing
    EXPECT_FALSE(CanUndo());
    EXPECT_TRUE(Find<QPushButton>("cmdBack").isEnabled());
    EXPECT_TRUE(IsEntryEnabled("mnuFile"));
    EXPECT_TRUE(Legend().isEnabled());
}

TEST_F(FormF8Test, LeavingThePageWhileItDrawsEndsTheDrawing)
{
    EnterDiagrams(60'000);
    BeginToDraw();
    ASSERT_FALSE(Find<QToolButton>("cmdRedraw").isEnabled());
    window.UnloadAndOpen(kPageGeneralData);
    EXPECT_TRUE(IsEntryEnabled("mnuFile"));
    QTest::qWait(50);
    EXPECT_EQ(PageName(), "FormF1");
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(FormF8Test, ClosingTheWindowWhileItDrawsCloses)
{
    EnterDiagrams(60'000);
    BeginToDraw();
    ASSERT_FALSE(Find<QToolButton>("cmdRedraw").isEnabled());
    EXPECT_TRUE(window.close());
    QTest::qWait(50);
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(FormF8Test, FileThatVanishesIsToldAndThePageGoesOn)
{
    EnterDiagrams();
    const QString path = App().sProjectPath;
    QFile::rename(path, path + ".away");
    Press("cmdRedraw");
    ASSERT_EQ(shell.boxes.size(), 1u);
    EXPECT_TRUE(shell.boxes[0].text.startsWith("Kann Datei nicht lesen!")) << shell.boxes[0].text.toStdString();
    QTest::mouseClick(&Box(), Qt::RightButton, {}, {30, 30});
    EXPECT_EQ(shell.boxes.size(), 2u);
    QFile::rename(path + ".away", path);
    Press("cmdRedraw");
    EXPECT_EQ(shell.boxes.size(), 2u);
    EXPECT_GT(Coloured(kU), 100);
}

TEST_F(FormF8Test, FileThatAnotherProgramHoldsIsTold)
{
    EnterDiagrams();
    SQLite::Database other(App().sProjectPath.toStdString(), SQLite::OPEN_READWRITE);
    other.exec("BEGIN EXCLUSIVE; UPDATE SampledValues SET t=t");
    RecordingChanged();
    App().bEvaluated = 1;
    Press("cmdRedraw");
    ASSERT_EQ(shell.boxes.size(), 1u);
    EXPECT_TRUE(shell.boxes[0].text.contains("wird gerade von einem anderen Programm benutzt"))
        << shell.boxes[0].text.toStdString();
}

// Pictures.

TEST_F(FormF8Test, PictureIsSavedInEachFormat)
{
    EnterDiagrams();
    for (const QString ending : {"png", "svg", "pdf", "PNG"}) {
        const QString path = PathOf("bild." + ending);
        shell.savePaths = {path};
        Find<QAction>("mnuSavePicture").trigger();
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << ending.toStdString();
        const QByteArray bytes = file.readAll();
        EXPECT_GT(bytes.size(), 3000) << ending.toStdString();
        EXPECT_EQ(bytes.contains("<svg"), ending == "svg");
        EXPECT_EQ(bytes.contains("Pmech"), ending == "svg");
        EXPECT_EQ(bytes.startsWith("%PDF"), ending == "pdf");
        EXPECT_EQ(QImage::fromData(bytes, "PNG").isNull(), ending.toLower() != "png");
    }
    EXPECT_TRUE(shell.boxes.empty());
    EXPECT_TRUE(shell.saveQuestions[0].suggestion.endsWith("test.png"));
}

TEST_F(FormF8Test, PictureThatCanNotBeSavedIsTold)
{
    EnterDiagrams();
    shell.savePaths = {PathOf("bild.bmp"), PathOf("no such folder/bild.png")};
    Find<QAction>("mnuSavePicture").trigger();
    Find<QAction>("mnuSavePicture").trigger();
    Find<QAction>("mnuSavePicture").trigger(); // cancelled
    ASSERT_EQ(shell.boxes.size(), 2u);
    EXPECT_EQ(shell.boxes[0].text, "Ein Bild kann als .png, .svg oder .pdf gespeichert werden.");
    EXPECT_TRUE(shell.boxes[1].text.startsWith("Kann Datei nicht schreiben!"));
    EXPECT_FALSE(QFile::exists(PathOf("bild.bmp")));
}

TEST_F(FormF8Test, PictureIsCopied)
{
    EnterDiagrams();
    QApplication::clipboard()->clear();
    QTest::keyClick(&Box(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_GT(QApplication::clipboard()->image().width(), 800);
}

TEST_F(FormF8Test, F11ShowsTheDiagramOnTheWholeScreenAndBack)
{
    EnterDiagrams();
    const QSize size = Box().size();
    DiagramBox& box = Box();
    QTest::keyClick(&box, Qt::Key_F11);
    QTest::qWait(20);
    EXPECT_TRUE(box.window()->isFullScreen());
    EXPECT_GT(box.width(), size.width());
    QTest::mousePress(&box, Qt::LeftButton, {}, {60, 30});
    QTest::mouseRelease(&box, Qt::LeftButton, {}, {160, 130});
    QTest::keyClick(&box, Qt::Key_Escape);
    QTest::qWait(20);
    EXPECT_EQ(&Box(), &box);
    EXPECT_EQ(box.size(), size);
    WaitForDrawing();
    EXPECT_TRUE(CanUndo()) << "the zoom on the whole screen counts";
    QTest::keyClick(&box, Qt::Key_F11);
    window.UnloadAndOpen(kPageGeneralData);
    QTest::qWait(20);
    EXPECT_EQ(PageName(), "FormF1");
}

} // namespace
} // namespace korvanel::test
