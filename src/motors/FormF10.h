// The machine page: the list of the motor database, the data of the current machine on two further tabs, editing them,
// and the no-load test through the instrument. On leaving, the current machine becomes that of the project.
#pragma once

#include "core/window/Page.h"
#include "motors/MachineBrowser.h"
#include "motors/NoLoadMeasurement.h"

#include <array>

class QBoxLayout;
class QLabel;
class QLineEdit;
class QTabWidget;
class QTimer;

namespace korvanel {

class BrowseBar;
class FurtherTab;
class MachineGrid;
class NumberBox;
class RatingTab;

class FormF10 : public Page, private NoLoadDisplay
{
    Q_OBJECT

public:
    FormF10(PageFrame& host, const PageEntry& entry);
    void Refresh() override;
    void Leave() override;
    bool TakeInput(InputUse use) override;

private:
    // NoLoadDisplay
    void EnableTicks(bool areEnabled) override;
    void ShowMeasuring(bool isMeasuring) override;
    void ShowNoLoad(const NoLoadTexts& texts) override;
    void RestoreNoLoad() override;

    QWidget* BuildList();
    QBoxLayout* BuildCommentRow();
    QBoxLayout* BuildButtonRow();
    QPushButton* AddButton(const char* name, const QString& caption, void (FormF10::*routine)());
    void Connect();
    void ShowTabOf(const NumberBox& box);

    /// Runs what changes the list, and shows it with its machine afterwards, however it ends.
    void Change(const std::function<void()>& routine);
    void MoveTo(int row);
    void ShowMachine();
    void ShowEntry(const MachineEntry& entry);
    void ShowState();
    MachineEntry Entry() const;
    bool AreNumbersAccepted();
    void SetEditing(bool isEditing);

    void PressNew();
    void PressEdit();
    void PressDelete();
    void PressApply();
    void PressCancel();
    void PressSearch();
    void PressShowAll();
    void PressDatabase();
    void PressInfo();
    void Diagnose();
    void PressNoLoad();
    void Tick();

    MachineBrowser browser;
    NoLoadMeasurement measurement;
    QTimer* timer;
    QTabWidget* tabs;
    MachineGrid* grid;
    RatingTab* ratingTab;
    FurtherTab* furtherTab;
    BrowseBar* browseBar;
    QLabel* noDatabaseLabel = nullptr;
    QLineEdit* commentBox = nullptr;
    std::array<QPushButton*, 3> editButtons{};
    std::array<QPushButton*, 2> insertButtons{};
    QPushButton* searchButton = nullptr;
    QPushButton* showAllButton = nullptr;
    QPushButton* databaseButton = nullptr;
    QPushButton* infoButton = nullptr;

    std::vector<NumberBox*> boxes; ///< of both tabs
    NoLoadTexts formerNoLoad;
    QString shownDatabase; ///< path of the database whose list is shown
    QString shownComment;  ///< as its box returns it, which has no line ends
    QString comment;       ///< as the record has it
    bool isLoaded = false;
    bool isLeft = false;
    bool isEdited = false;
    bool bNew = false; ///< a new row is being entered
};

} // namespace korvanel
