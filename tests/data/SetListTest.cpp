// The list of all sets: any place of a recording, marks, colours, keys, wheel, order of the columns.
#include "data/SetList.h"

#include "support/Keys.h"
#include "support/ResultPageFixture.h"

#include <QContextMenuEvent>
#include <QDialog>
#include <QHeaderView>
#include <QListWidget>
#include <QPushButton>
#include <QTableView>
#include <QWheelEvent>

namespace korvanel::test {
namespace {

constexpr int kSets = 3000;

class SetListTest : public ResultPageTest
{
protected:
    /// The list over a recording in net configuration 2, some rows high.
    void Open(int sets = kSets)
    {
        OpenProjectOf(2);
        if (sets > 0)
            StoreNumbered(sets);
        ShowList();
    }
    void ShowList()
    {
        list = std::make_unique<SetList>(
            SetJudge{.colourOf = [](double value, int quantity) { return quantity == kI && value > 10 ? 192 : 0; },
                     .verdictOn =
                         [](const tValueRow& row) {
                             return row.dI[kSum] > 10 ? SetJudge::Verdict{QStringLiteral("schlecht"), 192}
                                                      : SetJudge::Verdict{QStringLiteral("gut"), 49152};
                         },
                     .words = {QStringLiteral("gut"), QStringLiteral("schlecht")}});
        list->resize(700, 260);
        list->show();
        QObject::connect(list.get(), &SetList::SetSelected, list.get(), [this](qint32 set) { told.push_back(set); });
        list->Rebuild();
        QApplication::processEvents();
    }
    QTableWidget& Values() { return ControlOf<QTableWidget>(*list, "flxValues"); }
    QTableView& Fixed() { return ControlOf<QTableView>(*list, "flxFixed"); }
    QScrollBar& Bar() { return ControlOf<QScrollBar>(*list, "ScrollFlex"); }
    QString Text(int row, int column)
    {
        const auto* item = Values().item(row, column);
        return item ? item->text() : QStringLiteral("nothing");
    }
    /// Column of a quantity or of a column without one.
    int ColumnOf(int code)
    {
        const auto& layout = App().ColumnLayout;
        return 2 + static_cast<int>(std::find(layout.begin(), layout.end(), code) - layout.begin());
    }
    int LastRow() { return Values().rowCount() - 1; }
    /// Number of the selected set; 0 without one.
    int SelectedSet()
    {
        const QModelIndexList rows = Values().selectionModel()->selectedRows();
        return rows.isEmpty() ? 0 : Text(rows.front().row(), 0).remove(u'*').toInt();
    }
    void Turn(QWidget& part, int notches)
    {
        const QPointF place = QRectF(part.rect()).center();
        QWheelEvent wheel(place, part.mapToGlobal(place), {}, {0, notches * 120}, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&part, &wheel);
    }
    void RightClick(QWidget& part)
    {
        const QPoint place = part.rect().center();
        QContextMenuEvent click(QContextMenuEvent::Mouse, place, part.mapToGlobal(place));
        QApplication::sendEvent(&part, &click);
    }

    std::unique_ptr<SetList> list;
    std::vector<qint32> told;
};

TEST_F(SetListTest, Columns_AreNumberTimeAndTheLayout)
{
    Open(1);
    const QStringList heads = [this] {
        QStringList texts;
        for (int i = 0; i < Values().columnCount(); ++i)
            texts << Values().horizontalHeaderItem(i)->text();
        return texts;
    }();
    EXPECT_EQ(heads, (QStringList{"Satz",      "t Sample", "U [V]",    "I [A]",      "f [Hz]",   "Pel [W]",
                                  "Q [var]",   "S [VA]",   "Phi [°]",  "cosphi",     "n [rpm]",  "M [Nm]",
                                  "Pmech [W]", "eta",      "Wp [Wh]",  "Wp+ [Wh]",   "Wp- [Wh]", "Wq [varh]",
                                  "Methode",   "Modell",   "t Sample", "Zeitstempel"}));
    EXPECT_EQ(list->toolTip(), "Rechte Maustaste zur Veränderung der Spaltenanordnung.");
}

TEST_F(SetListTest, Row_ShowsTheSet)
{
    Open(3);
    const QStringList expected{"2",  "00:00:01", "400", "2", "50", "10000", "7500", "12500", "36,87", "0,8",     "1460",
                               "60", "9000",     "0,9", "0", "0",  "0",     "0",    "P",     "gut",   "00:00:01"};
    for (int i = 0; i < expected.size(); ++i)
        EXPECT_EQ(Text(1, i), expected[i]) << i;
    EXPECT_EQ(Text(1, ColumnOf(kColumnTimeStamp)), DateTimeText(QDateTime({2026, 3, 14}, {15, 9, 26})));
    EXPECT_EQ(Text(3, 0), "") << "no set behind the last one";
}

TEST_F(SetListTest, AnyPlace_IsShown)
{
    Open();
    EXPECT_EQ(Text(0, 0), "1");
    EXPECT_EQ(Text(0, 3), "1");
    Bar().setValue(1499);
    EXPECT_EQ(Text(0, 0), "1500");
    EXPECT_EQ(Text(0, 3), "1500");
    Bar().setValue(Bar().maximum());
    EXPECT_EQ(Text(LastRow(), 0), "3000");
    EXPECT_EQ(Text(LastRow(), 3), "3000");
}

TEST_F(SetListTest, ReadsOnlyWhatIsSeen)
{
    Open();
    ShowList();
    EXPECT_LE(Values().rowCount(), 12);
    EXPECT_EQ(Values().item(Values().rowCount() - 1, 0)->text().toInt(), Values().rowCount());
}

TEST_F(SetListTest, Painting_TouchesNoBufferOfTheBlock)
{
    Open();
    App().CurrentRow.dU[kSum] = 7;
    App().lLastReadSet = 9;
    App().sTimeText = QStringLiteral("before");
    ShowList();
    EXPECT_EQ(App().CurrentRow.dU[kSum], 7);
    EXPECT_EQ(App().lLastReadSet, 9);
    EXPECT_EQ(App().sTimeText, "before");
}

TEST_F(SetListTest, Height_DecidesHowManySetsAreShown)
{
    Open();
    const int before = Values().rowCount();
    list->ShowFrom(kSets);
    list->resize(700, 460);
    QApplication::processEvents();
    EXPECT_GT(Values().rowCount(), before);
    EXPECT_EQ(Text(LastRow(), 0), "3000") << "no empty row behind the last set";
}

TEST_F(SetListTest, CorrectedSets_CarryAStar)
{
    OpenProjectOf(2);
    std::vector<tValueRow> rows(4, WorkingSet(5, 100, 1, 90));
    rows[1].bEdit = 255;
    Store(rows);
    ShowList();
    EXPECT_EQ(Text(0, 0), "1");
    EXPECT_EQ(Text(1, 0), "2*");
    EXPECT_EQ(Text(2, 0), "3");
}

TEST_F(SetListTest, Colours_ComeFromTheJudge)
{
    Open(11);
    const int verdict = ColumnOf(kColumnSuitability);
    EXPECT_EQ(Values().item(9, 3)->foreground().style(), Qt::NoBrush) << "without a rating as all other texts";
    EXPECT_EQ(Text(9, verdict), "gut");
    EXPECT_EQ(Values().item(9, verdict)->foreground().color(), QColor(0, 192, 0));
    Bar().setValue(Bar().maximum());
    EXPECT_EQ(Text(LastRow(), 0), "11");
    EXPECT_EQ(Values().item(LastRow(), 3)->foreground().color(), QColor(192, 0, 0));
    EXPECT_EQ(Values().item(LastRow(), 2)->foreground().style(), Qt::NoBrush) << "another quantity";
    EXPECT_EQ(Values().item(LastRow(), verdict)->foreground().color(), QColor(192, 0, 0));
    Bar().setValue(0);
    EXPECT_EQ(Values().item(LastRow() - 1, 3)->foreground().style(), Qt::NoBrush) << "and the colour goes again";
}

TEST_F(SetListTest, FixedColumns_StayWhenTheOthersMove)
{
    Open();
    EXPECT_FALSE(Fixed().isColumnHidden(0));
    EXPECT_FALSE(Fixed().isColumnHidden(1));
    EXPECT_TRUE(Fixed().isColumnHidden(2));
    EXPECT_TRUE(Values().isColumnHidden(0));
    EXPECT_TRUE(Values().isColumnHidden(1));
    const int place = Fixed().columnViewportPosition(0);
    Values().horizontalScrollBar()->setValue(Values().horizontalScrollBar()->maximum());
    EXPECT_GT(Values().horizontalScrollBar()->value(), 0);
    EXPECT_EQ(Fixed().columnViewportPosition(0), place);
    EXPECT_EQ(Fixed().rowViewportPosition(3), Values().rowViewportPosition(3));
    EXPECT_EQ(Fixed().horizontalHeader()->height(), Values().horizontalHeader()->height());
}

TEST_F(SetListTest, Keys_MoveThroughAllSets)
{
    Open();
    const int page = Values().rowCount();
    struct Step
    {
        int key;
        int set;
    };
    const Step steps[] = {
        {Qt::Key_End, kSets},
        {Qt::Key_Down, kSets},
        {Qt::Key_Up, kSets - 1},
        {Qt::Key_Home, 1},
        {Qt::Key_Up, 1},
        {Qt::Key_PageUp, 1},
        {Qt::Key_PageDown, 1 + page},
        {Qt::Key_PageDown, 1 + 2 * page},
        {Qt::Key_PageUp, 1 + page},
        {Qt::Key_Down, 2 + page},
    };
    for (const Step& step : steps) {
        PressKey(Values(), step.key);
        EXPECT_EQ(SelectedSet(), step.set);
        ASSERT_FALSE(told.empty());
        EXPECT_EQ(told.back(), step.set);
    }
}

TEST_F(SetListTest, SidewaysKeys_MoveTheColumns)
{
    Open();
    PressKey(Values(), Qt::Key_Right);
    EXPECT_GT(Values().horizontalScrollBar()->value(), 0);
    PressKey(Values(), Qt::Key_Left);
    EXPECT_EQ(Values().horizontalScrollBar()->value(), 0);
    EXPECT_EQ(Text(0, 0), "1");
}

TEST_F(SetListTest, Wheel_MovesTheSetsOverBothParts)
{
    Open();
    Turn(*Values().viewport(), -1);
    const QString first = Text(0, 0);
    EXPECT_GT(first.toInt(), 1);
    Turn(*Fixed().viewport(), -1);
    EXPECT_GT(Text(0, 0).toInt(), first.toInt());
    Turn(*Values().viewport(), 50);
    EXPECT_EQ(Text(0, 0), "1");
}

TEST_F(SetListTest, ShowSet_BringsItIntoTheMiddle)
{
    Open();
    list->ShowSet(1500);
    EXPECT_EQ(SelectedSet(), 1500);
    EXPECT_EQ(Text(Values().rowCount() / 2 - 1, 0), "1500");
    list->ShowSet(1);
    EXPECT_EQ(SelectedSet(), 1);
    EXPECT_EQ(Text(0, 0), "1");
    list->ShowSet(kSets);
    EXPECT_EQ(SelectedSet(), kSets);
    EXPECT_EQ(Text(LastRow(), 0), "3000");
}

TEST_F(SetListTest, Selection_StaysWithItsSet)
{
    Open();
    list->ShowSet(1500);
    Bar().setValue(0);
    EXPECT_EQ(SelectedSet(), 0) << "out of sight";
    Bar().setValue(1499);
    EXPECT_EQ(SelectedSet(), 1500);
    EXPECT_TRUE(told.empty()) << "moving about chooses nothing";
}

TEST_F(SetListTest, Click_SelectsTheSetInBothParts)
{
    Open();
    Bar().setValue(99);
    PostClick(*Values().viewport());
    QApplication::processEvents();
    ASSERT_EQ(told.size(), 1U);
    EXPECT_EQ(SelectedSet(), told.back());
    EXPECT_GE(told.back(), 100);
    PressKey(Values(), Qt::Key_Home);
    PostClick(*Fixed().viewport());
    QApplication::processEvents();
    EXPECT_EQ(SelectedSet(), told.back());
    EXPECT_GT(told.back(), 1);
}

TEST_F(SetListTest, ClickBehindTheLastSet_SelectsNothing)
{
    Open(2);
    list->Select(1);
    PostClick(*Values().viewport());
    QApplication::processEvents();
    QApplication::processEvents();
    EXPECT_TRUE(told.empty());
    EXPECT_EQ(SelectedSet(), 1);
}

TEST_F(SetListTest, WithoutSets_NothingIsShownAndNoKeyDoesHarm)
{
    Open(0);
    for (const int key : {Qt::Key_End, Qt::Key_Down, Qt::Key_PageDown, Qt::Key_Home, Qt::Key_Up})
        PressKey(Values(), key);
    EXPECT_TRUE(told.empty());
    for (int row = 0; row < Values().rowCount(); ++row)
        EXPECT_EQ(Text(row, 0), "");
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(SetListTest, RightClickAnywhere_OpensTheOrderAndRebuildsTheColumns)
{
    Open();
    Bar().setValue(99);
    for (QWidget* part : {Values().viewport(), Fixed().viewport(), Values().horizontalHeader()->viewport(),
                          static_cast<QWidget*>(&Bar()), static_cast<QWidget*>(Values().horizontalScrollBar())}) {
        const qint16 last = App().ColumnLayout.back();
        WithNextDialog<QDialog>([](QDialog& dialog) {
            EXPECT_EQ(dialog.objectName(), "FormH3");
            auto& order = ControlOf<QListWidget>(dialog, "lstOrder");
            order.setCurrentRow(order.count() - 1);
            ControlOf<QPushButton>(dialog, "cmdMove_0").click();
            ControlOf<QPushButton>(dialog, "cmdOK").click();
        });
        RightClick(*part);
        EXPECT_EQ(App().ColumnLayout.front(), last);
        EXPECT_EQ(Values().horizontalHeaderItem(2)->text(), ColumnHeading(last));
        EXPECT_EQ(Text(0, 0), "100") << "the place stays";
        EXPECT_EQ(Text(0, ColumnOf(kI)), "100");
    }
}

TEST_F(SetListTest, SetsMissingInTheFile_AreNotShownAsTheirNeighbours)
{
    Open(6);
    Execute("DELETE FROM SampledValues WHERE [Set]=3");
    list->Rebuild();
    EXPECT_EQ(Text(1, 0), "2");
    EXPECT_EQ(Text(2, 0), "");
    EXPECT_EQ(Text(2, 3), "");
}

TEST_F(SetListTest, UnreadableFile_IsToldOnce)
{
    Open(6);
    Execute("DROP TABLE ComputedValues");
    list->Rebuild();
    EXPECT_EQ(shell.boxes.size(), 1U);
    EXPECT_EQ(Text(0, 0), "");
    list->resize(700, 460);
    QApplication::processEvents();
    EXPECT_EQ(shell.boxes.size(), 1U) << "not again for a change of its size";
    list->Rebuild();
    EXPECT_EQ(shell.boxes.size(), 2U) << "but for a new try";
}

TEST_F(SetListTest, FileThatIsReadableAgain_IsShownAgain)
{
    Open(20);
    const QString path = App().sProjectPath;
    ASSERT_TRUE(QFile::rename(path, path + ".weg"));
    list->Rebuild();
    EXPECT_EQ(shell.boxes.size(), 1U);
    EXPECT_EQ(Text(0, 0), "");
    ASSERT_TRUE(QFile::rename(path + ".weg", path));
    Bar().setValue(3);
    EXPECT_EQ(Text(0, 0), "4");
    list->resize(700, 460);
    QApplication::processEvents();
    EXPECT_EQ(Text(LastRow(), 0), QString::number(list->FirstShown() + LastRow()));
    EXPECT_EQ(shell.boxes.size(), 1U);
}

TEST_F(SetListTest, ShowSet_IsInViewHoweverFewRowsThereAre)
{
    Open();
    for (int height = 40; height < 260; height += 20) {
        list->setFixedHeight(height);
        QApplication::processEvents();
        list->ShowSet(1500);
        EXPECT_EQ(SelectedSet(), 1500) << height;
        EXPECT_EQ(list->FirstShown(), 1500 - std::max(0, Values().rowCount() / 2 - 1)) << height;
    }
}

} // namespace
} // namespace korvanel::test
