// The page of the report: where it goes, which sections and columns it has, which sets its tables show, and its pages
// as they will be printed.
#pragma once

#include "core/window/Page.h"

#include <QTimer>

class QLabel;
class QPushButton;
class QTableWidget;
class QTableWidgetItem;

namespace korvanel {

class PrinterChoice;
class Report;
class ReportPreview;
class SetRangeBar;

class FormF9 : public Page
{
    Q_OBJECT

public:
    FormF9(PageFrame& host, const PageEntry& entry);
    void Refresh() override;
    void Leave() override;
    bool TakeInput(InputUse use) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* BuildChoice();
    QWidget* BuildTabs();
    QWidget* BuildPreview();
    QTableWidget* BuildGrid(const char* name, const QString& title);
    void AddSection(QTableWidget& grid, int section);
    void AddColumns();
    void Switch(const QTableWidgetItem& item);
    void ShowReport();
    void ShowPagesOfSections(const Report& report);
    void ShowPlace();
    void Print();

    PrinterChoice* printers;
    SetRangeBar* range;
    ReportPreview* preview;
    QTableWidget* sections = nullptr;
    QTableWidget* diagrams = nullptr;
    QPushButton* printButton = nullptr;
    QLabel* pageLabel = nullptr;
    QTimer changed; ///< something of the report
    bool isFilling = false;
    bool isEvaluating = false;
};

} // namespace korvanel
