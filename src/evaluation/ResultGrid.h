// A result table on a page: block headings bold across it, the columns from the third on centred, the last cell of a
// row in its colour.
#pragma once

#include "evaluation/WinManaging2.h"

#include <QTableWidget>

#include <vector>

namespace korvanel {

class ResultGrid : public QTableWidget
{
    Q_OBJECT

public:
    explicit ResultGrid(const char* name);
    void Show(const ResultTable& results);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void AddHeading(int row, const QString& text);
    void AddCells(int row, const ResultRow& result);
    void AddSpanned(int row, const ResultRow& result);
    /// Every column is wide enough for its texts; what room is left the centred ones share.
    void FitColumns();

    std::vector<int> textWidths;
};

} // namespace korvanel
