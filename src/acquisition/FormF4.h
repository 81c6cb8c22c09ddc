// The page of the run: START and STOP, the samples as they come, the sets that are stored, the curves.
#pragma once

#include "acquisition/MeasurementRun.h"
#include "core/window/Page.h"

#include <array>

class QBoxLayout;
class QComboBox;
class QLabel;
class QTableWidget;
class QTabWidget;
class QTimer;

namespace korvanel {

class CurveList;
class OnlineGraph;
class ScheduleGrid;
class SampleGrid;
class StatusLamp;

class FormF4 : public Page, private RunDisplay
{
    Q_OBJECT

public:
    FormF4(PageFrame& host, const PageEntry& entry);
    void Refresh() override;
    void Leave() override;
    bool MayClose() override;

private:
    // RunDisplay
    void MarkEntry(int index) override;
    void ShowTimerPicture(bool isShown) override;
    void ShowCountdown(const QString& text) override;
    void EnableTicks(bool areEnabled) override;
    void LockPage(bool isLocked) override;
    void ShowRunning(bool isRunning) override;
    void ResetStartColour() override;
    void UpdateOnline(OnlineMode mode) override;
    void ShowBadSample() override;
    void ShowBegin(const QString& begin) override;
    void ShowElapsed(const QString& elapsed) override;
    void ShowLamp(int colour) override;
    void ShowInstrument() override;
    void ShowDropped() override;
    void ShowRejected(qint32 count) override;
    void ShowStored() override;
    void ShowKept(qint32 count) override;

    QBoxLayout* BuildInstrumentRow();
    QBoxLayout* BuildCountRow();
    QBoxLayout* BuildGraphRow();
    QBoxLayout* BuildButtonRow();
    QLabel* AddValue(QBoxLayout& row, const char* name, const QString& caption);
    void BuildExtraTable();
    void PressStart();
    void Tick();
    void FillExtraTable();
    void EnableDrop();
    void ClearOnline();

    MeasurementRun run;
    QTimer* timer;
    SampleGrid* grid;
    OnlineGraph* graph;
    QTabWidget* side;
    CurveList* curveList;
    QTableWidget* extraTable;
    ScheduleGrid* scheduleGrid;
    StatusLamp* lamp;
    QLabel* deviceLabel;
    std::array<QLabel*, 2> ratioLabels{};
    std::array<QLabel*, 4> counts{};
    QLabel* rejectedLabel;
    QLabel* keptLabel;
    QLabel* timerPicture;
    QLabel* countdownLabel;
    QPushButton* startButton;
    QPushButton* dropButton;
    QComboBox* engineBox;
    QLabel* engineExtra;
    QLabel* methodLabel;
    bool isStartColoured = false;
};

} // namespace korvanel
