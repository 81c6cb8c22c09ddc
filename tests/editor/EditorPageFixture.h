// The page of the editor in the real main window, over a recording that a test stores.
#pragma once

#include "editor/EditorGrid.h"
#include "editor/FormF5.h"
#include "editor/OverviewDiagram.h"
#include "support/ResultPageFixture.h"

#include <QAction>
#include <QClipboard>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>

namespace korvanel::test {

class EditorPageTest : public ResultPageTest
{
protected:
    EditorPageTest()
    {
        constexpr int kShortInterval = 100; // for the clicks that must not be taken for a double one
        QApplication::setDoubleClickInterval(kShortInterval);
        window.RegisterPage(kPageEditor, BuildPage<FormF5>);
    }

    /// A recording whose currents are the numbers of the sets, and the page over it.
    void EnterEditor(int sets = 20, int netConf = 0)
    {
        OpenProjectOf(netConf);
        if (sets > 0)
            StoreNumbered(sets);
        EnterAgain();
    }
    void EnterAgain()
    {
        window.UnloadAndOpen(kPageEditor);
        window.activateWindow();
        window.RefreshPage();
        Settle();
    }
    /// The picture is drawn between the events.
    void Settle()
    {
        do
            QCoreApplication::processEvents();
        while (Overview().IsGoingOn());
    }

    EditorGrid& Grid() { return *window.findChild<EditorGrid*>(); }
    QTableWidget& Values() { return Find<QTableWidget>("flxValues"); }
    QLineEdit& Box() { return Find<QLineEdit>("txtEdit_0"); }
    OverviewDiagram& Overview() { return Find<OverviewDiagram>("Picture1"); }
    /// Numbers of the sets in view.
    QStringList Shown()
    {
        QStringList numbers;
        for (int row = 0; row < Values().rowCount(); ++row) {
            const auto* item = Values().verticalHeaderItem(row);
            numbers << (item ? item->text() : QString());
        }
        return numbers;
    }
    QPoint CellAt(int row, int column) { return Values().visualRect(Values().model()->index(row, column)).center(); }
    void Click(int row, int column = 0, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::mouseClick(Values().viewport(), Qt::LeftButton, modifiers, CellAt(row, column));
        QTest::qWait(QApplication::doubleClickInterval() + 1);
    }
    void DoubleClick(int row, int column)
    {
        QWidget* over = Values().viewport();
        const QPoint at = CellAt(row, column);
        QTest::mouseClick(over, Qt::LeftButton, {}, at);
        QTest::mouseDClick(over, Qt::LeftButton, {}, at);
    }
    void Key(int key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(&Values(), Qt::Key(key), modifiers); }
    bool IsEnabled(const char* name) { return Find<QWidget>(name).isEnabled(); }
    void Press(const char* button)
    {
        Find<QPushButton>(button).click();
        Settle();
    }
    /// Types over what stands in a box, and Enter.
    void Enter(QLineEdit& box, const QString& text)
    {
        box.setFocus();
        box.selectAll();
        QTest::keyClicks(&box, text);
        QTest::keyClick(&box, Qt::Key_Return);
        Settle();
    }
    void MarkSets(qint32 first, qint32 count) { Grid().Mark(first, count); }
    QAction& Entry(const char* name) { return *window.findChild<QAction*>(QLatin1String(name)); }
    void Undo() { PressWithControl(Qt::Key_Z); }
    void Redo() { PressWithControl(Qt::Key_Y); }
    void PasteText(const QString& text)
    {
        QApplication::clipboard()->setText(text);
        PressWithControl(Qt::Key_V);
    }
    /// A value of a set, as the file has it.
    double Stored(const char* column, int set) const
    {
        return Query(QStringLiteral("SELECT %1 FROM SampledValues JOIN ComputedValues USING ([Set]) WHERE [Set]=%2")
                         .arg(QLatin1String(column))
                         .arg(set))
            .toDouble();
    }
    QString Currents() const { return Query("SELECT group_concat(CAST([I sum] AS INTEGER)) FROM SampledValues"); }
    QString Voltages() const { return Query("SELECT group_concat(CAST([U sum] AS INTEGER)) FROM SampledValues"); }
    void TakePicture(const char* name)
    {
        const QByteArray target = qgetenv("KORVANEL_PICTURES");
        if (!target.isEmpty())
            window.grab().save(QString::fromLocal8Bit(target) + u'/' + QLatin1String(name) + QStringLiteral(".png"));
    }

private:
    void PressWithControl(Qt::Key key)
    {
        Key(key, Qt::ControlModifier);
        Settle();
    }
};

} // namespace korvanel::test
