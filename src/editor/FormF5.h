// The page of the editor: the sets of the recording, the entry of values, the operations on the marked sets, and what
// can be taken back as long as the page is on show.
#pragma once

#include "core/window/Page.h"
#include "editor/EditHistory.h"

#include <functional>

class QAction;
class QBoxLayout;
class QKeySequence;
class QMenu;
class QPushButton;
class QTabWidget;

namespace korvanel {

class EditorGrid;
class EntryBar;
class OverviewDiagram;
class RecordingBar;
struct EntryColumn;
struct PastedRows;

class FormF5 : public Page
{
    Q_OBJECT

public:
    FormF5(PageFrame& host, const PageEntry& entry);
    ~FormF5() override;
    void Refresh() override;
    void Leave() override;
    bool TakeInput(InputUse use) override;

private:
    QBoxLayout* BuildSetButtons();
    void ConnectRecordingBar();
    void BuildOverview();
    void BuildMenu();
    QPushButton* AddButton(QBoxLayout& row, const QString& name, const QString& text,
                           const std::function<void()>& routine);
    QAction* AddAction(const char* name, const QString& text, const QList<QKeySequence>& keys, QWidget& where,
                       const std::function<void()>& routine);

    /// Runs an operation on the rows and shows what has come of it.
    void Operate(const std::function<void()>& operation);
    /// The marked rows of the grid become those of the block.
    void TakeMarks();
    void ShowAll();
    void ShowCursor();
    void ShowCell();
    void ShowStates();

    void BeginEntry(const QString& typed);
    /// Takes what stands in the box over; false if it can't be.
    bool ApplyEntry();
    bool TakePendingEntry();
    void TakeInterval();

    void MakeNew();
    void MoveTo(qint32 set);
    void FindSet();
    void ChooseMethod();
    void Simulate();
    void Copy();
    void Paste(bool isOver);
    void TakeBack();
    void DoAgain();

    EditHistory history;
    EditorGrid* grid;
    EntryBar* entryBar;
    RecordingBar* recordingBar;
    OverviewDiagram* overview;
    QTabWidget* tabs;
    QMenu* menu;
    QPushButton* newButton = nullptr;
    std::vector<QWidget*> forSets; ///< that want sets which can be edited
    QAction* undoAction = nullptr;
    QAction* redoAction = nullptr;
    std::vector<QAction*> editingActions;
    QAction* energiesAction = nullptr;
    qint32 shownSet = 0; ///< whose value stands in the box
    int shownColumn = 0;
    bool isMoving = false;
    bool isWorking = false;
    bool isSaving = false; ///< the header, by this program; nobody else has written the file before
};

} // namespace korvanel
