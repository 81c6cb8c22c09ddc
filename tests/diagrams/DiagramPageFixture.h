// The page of the diagrams in the real main window, over a recording whose curves go up.
#pragma once

#include "core/Colour.h"
#include "diagrams/DiagramBox.h"
#include "diagrams/DiagramLegend.h"
#include "diagrams/DiagramPanel.h"
#include "diagrams/FormF8.h"
#include "support/ResultPageFixture.h"

#include <QTest>
#include <QToolButton>

namespace korvanel::test {

class DiagramPageTest : public ResultPageTest
{
protected:
    DiagramPageTest() { window.RegisterPage(kPageResultGraph, BuildPage<FormF8>); }

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

} // namespace korvanel::test
