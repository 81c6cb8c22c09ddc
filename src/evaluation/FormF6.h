// The page of the result tables: extremes, energies, utilisation above, the list of all sets with their ratings below.
// Entering it evaluates the recording if its results are not up to date; after that it shows the results in hand.
#pragma once

#include "core/window/Page.h"

#include <array>
#include <functional>

class QBoxLayout;
class QCheckBox;
class QLabel;
class QPushButton;
class QTabWidget;

namespace korvanel {

class OverviewSheet;
class ResultGrid;
class SetList;
class SimulationSheet;

class FormF6 : public Page
{
    Q_OBJECT

public:
    FormF6(PageFrame& host, const PageEntry& entry);
    /// The first time the page is entered; from then on the results in hand are shown again.
    void Refresh() override;
    void Leave() override;

private:
    QBoxLayout* BuildHead();
    QLabel* AddLabel(QBoxLayout& row, const char* name);
    QCheckBox* AddPanelBox(std::size_t index, const QString& text);
    void BuildTabs();
    void AddTab(QChar key, QWidget* content, const QString& title);
    QWidget* BuildEnergies();
    QWidget* BuildSecondMachine();
    QBoxLayout* BuildButtons();
    QPushButton* AddButton(QBoxLayout& row, const char* name, const QString& text,
                           const std::function<void()>& routine);

    void ShowEvaluationPage();
    /// Shows everything anew, the list from a set on.
    void ShowResults(qint32 firstSet);
    void ShowPanels();
    /// Shows a panel or hides it, but for the last one.
    void ChoosePanel(std::size_t index, bool isShown);
    /// 1 asks for prices and cycles, 2 for the time window.
    void ChangeOptions(int index);
    void FindSet();

    std::array<QCheckBox*, 2> panelBoxes{};
    QLabel* windowLabel = nullptr;
    QLabel* cyclesLabel = nullptr;
    QLabel* correctedLabel = nullptr;
    QTabWidget* tabs = nullptr;
    OverviewSheet* overview = nullptr;
    ResultGrid* extremes = nullptr;
    ResultGrid* energies = nullptr;    ///< none without power
    ResultGrid* utilisation = nullptr; ///< none without a machine
    SimulationSheet* simulation = nullptr;
    QLabel* energyGapsLabel = nullptr; ///< below the energies
    QLabel* outdatedLabel = nullptr;
    SetList* list = nullptr;
    bool isEntered = false;
    bool isEvaluating = false;
};

} // namespace korvanel
