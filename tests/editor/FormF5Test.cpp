// The page of the editor: what it shows, cursor and marks by mouse and keys, and the picture of the whole.
#include "EditorPageFixture.h"
#include "data/FormH15.h"

#include <QWheelEvent>

namespace korvanel::test {
namespace {

using FormF5Test = EditorPageTest;

TEST_F(FormF5Test, ShowsFiveSetsWithTheCursorOnTheFirst)
{
    EnterEditor(20, 2);
    EXPECT_EQ(Shown(), (QStringList{"1", "2", "3", "4", "5"}));
    EXPECT_EQ(Grid().CursorSet(), 1);
    EXPECT_EQ(Values().toolTip(), "Doppelklick zum Editieren");
    EXPECT_EQ(Cell("flxHeader", 0, 1), "1") << "the set under the cursor stands above";
    TakePicture("editor");
}

TEST_F(FormF5Test, ButtonsHaveTheirCaptions)
{
    EnterEditor();
    const std::pair<const char*, const char*> captions[] = {
        {"cmdEnter", "Eingaben übernehmen"}, {"cmdNew", "Neu"},
        {"cmdInsDel_0", "Satz Duplizieren"}, {"cmdInsDel_1", "Satz Löschen"},
        {"cmdInsDel_2", "Interpolieren"},    {"cmdSet_0", "Erster Satz"},
        {"cmdSet_1", "Letzter Satz"},        {"cmdSet_2", "Satz suchen"},
        {"cmdSimulation", "Si&mulation"},
    };
    for (const auto& [name, caption] : captions)
        EXPECT_EQ(Find<QPushButton>(name).text(), QString::fromUtf8(caption)) << name;
}

TEST_F(FormF5Test, ClickedRowMovesToTheMiddle)
{
    EnterEditor();
    Click(3);
    EXPECT_EQ(App().iCurrentSet, 4);
    EXPECT_EQ(Shown(), (QStringList{"3", "4", "5", "6", "7"}));
    EXPECT_EQ(App().EditorGrid.lFirstVisibleSet, 3);
    EXPECT_EQ(Cell("flxHeader", 0, 1), "4");
    Click(0);
    EXPECT_EQ(Shown().first(), "2");
    Click(0);
    Click(0);
    EXPECT_EQ(Shown().first(), "1") << "no further than the first set";
    EXPECT_EQ(App().iCurrentSet, 1);
}

TEST_F(FormF5Test, ClickBelowTheLastSetChangesNothing)
{
    EnterEditor(3);
    Click(4);
    EXPECT_EQ(App().iCurrentSet, 1);
    EXPECT_EQ(Shown(), (QStringList{"1", "2", "3", "", ""}));
}

TEST_F(FormF5Test, ShiftAndClickMarksUpToThere)
{
    EnterEditor();
    Click(0);
    Click(3, 0, Qt::ShiftModifier);
    EXPECT_EQ(Grid().FirstMarked(), 1);
    EXPECT_EQ(Grid().MarkedCount(), 4);
    EXPECT_EQ(App().lMarkedSets, 4);
    EXPECT_EQ(Values().selectionModel()->selectedRows().size(), 4);
}

TEST_F(FormF5Test, DraggingMarksAndGoesOnBeyondTheEdge)
{
    EnterEditor();
    QWidget* over = Values().viewport();
    QTest::mousePress(over, Qt::LeftButton, {}, CellAt(1, 0));
    const auto move = [&](QPoint to) {
        QMouseEvent event(QEvent::MouseMove, to, over->mapToGlobal(to), Qt::NoButton, Qt::LeftButton, {});
        QApplication::sendEvent(over, &event);
    };
    move(CellAt(4, 0));
    EXPECT_EQ(Grid().FirstMarked(), 2);
    EXPECT_EQ(Grid().MarkedCount(), 4);
    move({5, over->height() + 30});
    QTRY_VERIFY(Grid().MarkedCount() >= 8);
    QTest::mouseRelease(over, Qt::LeftButton, {}, {5, over->height() + 30});
    const qint32 marked = Grid().MarkedCount();
    QTest::qWait(150);
    EXPECT_EQ(Grid().MarkedCount(), marked) << "the mouse is up";
    EXPECT_EQ(Grid().FirstMarked(), 2);
}

TEST_F(FormF5Test, KeysMoveTheCursorThroughAllSets)
{
    EnterEditor(20);
    const struct
    {
        Qt::Key key;
        qint32 set;
        const char* first;
    } steps[] = {
        {Qt::Key_Up, 1, "1"},    {Qt::Key_Down, 2, "1"},   {Qt::Key_PageDown, 7, "3"}, {Qt::Key_PageUp, 2, "2"},
        {Qt::Key_End, 20, "16"}, {Qt::Key_Down, 20, "16"}, {Qt::Key_PageUp, 15, "15"}, {Qt::Key_Home, 1, "1"},
    };
    for (const auto& step : steps) {
        Key(step.key);
        EXPECT_EQ(App().iCurrentSet, step.set) << step.key;
        EXPECT_EQ(Shown().first(), step.first) << step.key;
        EXPECT_EQ(Grid().MarkedCount(), 1);
    }
}

TEST_F(FormF5Test, KeysWithShiftMarkBeyondWhatIsInView)
{
    EnterEditor(2000);
    Key(Qt::Key_Down);
    Key(Qt::Key_End, Qt::ShiftModifier);
    EXPECT_EQ(Grid().FirstMarked(), 2);
    EXPECT_EQ(Grid().MarkedCount(), 1999);
    Key(Qt::Key_Escape);
    EXPECT_EQ(Grid().MarkedCount(), 1);
    QTest::keyClick(&Values(), Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(Grid().MarkedCount(), 2000);
}

TEST_F(FormF5Test, LeftAndRightMoveToTheCellsOfTheSet)
{
    EnterEditor();
    EXPECT_EQ(Find<QLabel>("lblEdit").text(), "Satz 1, U [V]:");
    Key(Qt::Key_Right);
    EXPECT_EQ(Find<QLabel>("lblEdit").text(), "Satz 1, I [A]:");
    EXPECT_EQ(Box().text(), "1");
    Key(Qt::Key_Left);
    Key(Qt::Key_Left);
    EXPECT_EQ(Find<QLabel>("lblEdit").text(), "Satz 1, U [V]:");
    for (int i = 0; i < 40; ++i)
        Key(Qt::Key_Right);
    EXPECT_EQ(Grid().CursorColumn(), App().ColumnLayout.back());
    EXPECT_GT(Values().horizontalScrollBar()->value(), 0) << "the cell comes into view";
}

TEST_F(FormF5Test, RowsSelectedByAnotherWayAreTheMarkedOnes)
{
    EnterEditor();
    Values().selectionModel()->select(Values().model()->index(2, 0),
                                      QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    EXPECT_EQ(Grid().FirstMarked(), 3);
    EXPECT_EQ(App().iCurrentSet, 3);
}

TEST_F(FormF5Test, ButtonsLeadToTheFirstAndLastSetAndToAnyOther)
{
    EnterEditor(200);
    Press("cmdSet_1");
    EXPECT_EQ(App().iCurrentSet, 200);
    EXPECT_EQ(Shown(), (QStringList{"199", "200", "", "", ""}));
    Press("cmdSet_0");
    EXPECT_EQ(App().iCurrentSet, 1);
    WithNextDialog<FormH15>([](FormH15& dialog) {
        ControlOf<QLineEdit>(dialog, "txtSet").setText("77");
        ControlOf<QPushButton>(dialog, "cmdOK").click();
    });
    Press("cmdSet_2");
    EXPECT_EQ(App().iCurrentSet, 77);
    EXPECT_EQ(Shown().first(), "76");
    WithNextDialog<FormH15>([](FormH15& dialog) {
        ControlOf<QLineEdit>(dialog, "txtSet").setText("9999");
        ControlOf<QPushButton>(dialog, "cmdOK").click();
    });
    Press("cmdSet_2");
    EXPECT_EQ(App().iCurrentSet, 200) << "a number above all of them is the last one";
}

TEST_F(FormF5Test, FortyThousandSetsScrollInStepsOfTwo)
{
    OpenProjectOf(0);
    Execute(
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<40000) INSERT INTO SampledValues "
        "([Set], [U sum], [I sum], [f sum], [P sum], [phi sum], t, Edit) SELECT i, 230, 1, 50, 100, 10, i-1, 0 FROM n");
    Execute("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<40000) INSERT INTO ComputedValues "
            "SELECT i, 0, 0, 0, 0, 0, 0, 0 FROM n");
    EnterAgain();
    auto& bar = Find<QScrollBar>("ScrollFlex");
    EXPECT_EQ(App().EditorGrid.lScrollScale, 2);
    EXPECT_EQ(bar.maximum(), 19999) << "(40000 - 5) / 2, rounded up, plus 1";
    bar.setValue(bar.value() + 1);
    EXPECT_EQ(Shown().first(), "3");
    bar.setValue(bar.maximum());
    EXPECT_EQ(Shown(), (QStringList{"39997", "39998", "39999", "40000", ""}));
    Key(Qt::Key_Home);
    Key(Qt::Key_PageDown);
    EXPECT_EQ(Shown().first(), "2") << "keys reach every set";
    EXPECT_EQ(App().iCurrentSet, 6);
    QWheelEvent turn(CellAt(1, 1), Values().viewport()->mapToGlobal(CellAt(1, 1)), {}, {0, -120}, Qt::NoButton, {},
                     Qt::NoScrollPhase, false);
    QApplication::sendEvent(Values().viewport(), &turn);
    EXPECT_EQ(Shown().first(), "5") << "and so does the wheel";
}

TEST_F(FormF5Test, ThirtyTwoThousandSetsAreTheFirstThatNeedStepsOfTwo)
{
    EnterEditor(10);
    for (const auto& [sets, scale] : {std::pair{31'999, 1}, {32'000, 2}, {64'000, 3}}) {
        App().iSetCount = sets;
        Grid().Rebuild(1);
        EXPECT_EQ(App().EditorGrid.lScrollScale, scale) << sets;
    }
}

TEST_F(FormF5Test, PlaceIsKeptApartFromThatOfTheRun)
{
    EnterEditor(50);
    Press("cmdSet_1");
    EXPECT_EQ(App().EditorGrid.lFirstVisibleSet, 49);
    EXPECT_EQ(App().MeasureGrid.lFirstVisibleSet, 1);
    window.UnloadAndOpen(kPageMeasure);
    window.RefreshPage();
    EXPECT_EQ(App().MeasureGrid.lFirstVisibleSet, 46);
    EnterAgain();
    EXPECT_EQ(App().iCurrentSet, 50) << "the page is entered where it was left";
    EXPECT_EQ(Shown().first(), "49");
}

TEST_F(FormF5Test, RegistersOfAnInstrumentMakeTheGridReadOnly)
{
    for (const int netConf : {3, 4, 5}) {
        OpenProjectOf(netConf);
        StoreNumbered(5);
        EnterAgain();
        EXPECT_EQ(Shown().first(), "1");
        for (const char* name : {"txtEdit_0", "cmdEnter", "cmdPlusMinus", "cmdNew", "cmdInsDel_0", "cmdInsDel_1",
                                 "cmdInsDel_2", "txtInterval"})
            EXPECT_FALSE(IsEnabled(name)) << name << " in " << netConf;
        EXPECT_EQ(Values().toolTip(), "");
        const QString before = Query("SELECT group_concat([U sum]) FROM SampledValues");
        Key(Qt::Key_Delete);
        DoubleClick(0, 0);
        Key(Qt::Key_7);
        EXPECT_EQ(Query("SELECT group_concat([U sum]) FROM SampledValues"), before);
        window.UnloadPage();
        App().bProjectOpen = false;
        QFile::remove(App().sProjectPath);
    }
}

TEST_F(FormF5Test, PictureShowsTheMarkedSetsAndMarksThem)
{
    EnterEditor(100);
    const auto markedAt = [this](double share) {
        const QImage image = Overview().grab().toImage();
        // A mark lies on the white of the picture; curves and lines of the grid are few.
        int coloured = 0;
        for (int y = 0; y < image.height(); ++y) {
            const QColor colour = image.pixelColor(static_cast<int>(share * image.width()), y);
            coloured += colour.blue() > colour.red() + 20 ? 1 : 0;
        }
        return coloured > image.height() / 2;
    };
    MarkSets(41, 20);
    EXPECT_TRUE(markedAt(0.5));
    EXPECT_FALSE(markedAt(0.2));
    const int y = Overview().height() / 3;
    QTest::mouseClick(&Overview(), Qt::LeftButton, {}, {Overview().width() / 5, y});
    EXPECT_NEAR(App().iCurrentSet, 20, 2);
    EXPECT_EQ(Grid().MarkedCount(), 1);
    QTest::mousePress(&Overview(), Qt::LeftButton, {}, {Overview().width() / 5, y});
    const QPoint to{Overview().width() / 2, y};
    QMouseEvent event(QEvent::MouseMove, to, Overview().mapToGlobal(to), Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(&Overview(), &event);
    EXPECT_NEAR(Grid().FirstMarked(), 20, 2);
    EXPECT_NEAR(Grid().MarkedCount(), 31, 3);
    EXPECT_TRUE(markedAt(0.3));
}

TEST_F(FormF5Test, PictureOfTheMarkedSetsShowsWhatLiesAroundThem)
{
    EnterEditor(2000);
    MarkSets(1000, 10);
    const QImage all = Overview().grab().toImage();
    Find<QTabWidget>("tabPage").setCurrentIndex(1);
    Settle();
    const QImage closeUp = Overview().grab().toImage();
    EXPECT_NE(all, closeUp);
    QTest::mouseClick(&Overview(), Qt::LeftButton, {}, {1, 5});
    EXPECT_NEAR(App().iCurrentSet, 900, 2);
    TakePicture("editor-closeup");
}

TEST_F(FormF5Test, EmptyProjectShowsNothingAndOffersTheFirstSet)
{
    EnterEditor(0);
    EXPECT_EQ(Shown(), (QStringList{"", "", "", "", ""}));
    EXPECT_TRUE(IsEnabled("cmdNew"));
    for (const char* name : {"cmdInsDel_0", "cmdInsDel_1", "cmdInsDel_2", "txtEdit_0"})
        EXPECT_FALSE(IsEnabled(name)) << name;
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_End, Qt::Key_Delete, Qt::Key_Return})
        Key(key);
    Press("cmdSet_1");
    Press("cmdNew");
    EXPECT_EQ(Shown().first(), "1*");
    EXPECT_EQ(Cell("flxValues", 0, 0), "380");
    EXPECT_FALSE(IsEnabled("cmdNew")) << "only the first one is made so";
}

} // namespace
} // namespace korvanel::test
