// The page of the diagrams: curves over the sets, zoom and its history, values of a point, legend. Until a drawing
// is complete the page's buttons are locked.
#pragma once

#include "core/window/Page.h"
#include "diagrams/DiagramContent.h"
#include "diagrams/DiagramPicture.h"
#include "diagrams/clsZoomUndo.h"

#include <QPointer>
#include <QTimer>

#include <functional>
#include <memory>
#include <optional>

class QAbstractButton;
class QAction;
class QBoxLayout;
class QCheckBox;
class QMenu;
class QPushButton;
class QSplitter;
class QTabWidget;
class QToolButton;

namespace korvanel {

class DiagramLegend;
class DiagramPanel;
class FormH17;
class SteppedDrawing;
class WholeScreen;

class FormF8 : public Page
{
    Q_OBJECT

public:
    FormF8(PageFrame& host, const PageEntry& entry);
    ~FormF8() override;
    /// The first time the page is entered; from then on the legend is filled again.
    void Refresh() override;
    void Leave() override;
    bool StopWork() override;

private:
    void BuildTabs();
    void BuildLegend();
    QBoxLayout* BuildButtons();
    QToolButton* AddTool(QBoxLayout& row, const char* name, const QString& sign, const QString& tip,
                         const std::function<void()>& routine);
    QAction* AddKeys(const char* name, const QList<QKeySequence>& keys, const std::function<void()>& routine);
    void ConnectPicture();

    void ShowEvaluationPage();
    void FillLegend();
    void ShowSecondMachine(bool isShown);

    /// Draws a view and shows it; the caller adds it to the history.
    void DrawDiagram(double x1, double x2, double y1, double y2);
    void DrawView(const DiagramView& of) { DrawDiagram(of.x1, of.x2, of.y1, of.y2); }
    void AddToHistory();
    void F8UndoRedoButtons();
    /// Draws the full view, as the button does.
    void ShowFullView();
    void Redraw();
    void LockButtons(bool areLocked);
    void ShowAxes();
    void ShowValuesOfQuantity();

    void ShowPointInfo(double x, double y);
    void ShowInfo();
    void SwitchCurve(int quantity);
    void ChooseColour(int quantity);
    void ChangeOrder();
    void Choose(int quantity);
    void HideTable();
    void ShowWholeScreen();
    void Escape();

    DiagramSheet Sheet() const;

    QTabWidget* tabs = nullptr;
    QSplitter* splitter = nullptr;
    DiagramPanel* panel = nullptr;
    QWidget* legendSide = nullptr;
    DiagramLegend* legend = nullptr;
    QAbstractButton* undoButton = nullptr;
    QAbstractButton* redoButton = nullptr;
    std::vector<QWidget*> lockable; ///< while a drawing goes on
    QMenu* pictureMenu = nullptr;
    QCheckBox* secondMachineBox = nullptr;
    QPointer<FormH17> pointWindow;
    std::unique_ptr<WholeScreen> wholeScreen;

    DiagramContent content;
    clsZoomUndo history;
    DiagramView view; ///< of the picture
    std::optional<qint32> pointSet;

    std::unique_ptr<SteppedDrawing> drawing;
    bool areLocked = false;
    QTimer resized;

    bool isEntered = false;
    bool isEvaluating = false;
};

} // namespace korvanel
