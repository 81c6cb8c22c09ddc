// A grid of the sets with a row of its own above them, which stays in view: the present sample of a run, the set that
// is edited.
#pragma once

#include "data/SetGrid.h"

namespace korvanel {

class HeadedSetGrid : public SetGrid
{
    Q_OBJECT

protected:
    /// `rows` sets are shown at once; `caption` stands before the row above them.
    HeadedSetGrid(const char* tableName, int rows, SetGridPlace& placeInBlock, QString caption);

    QTableWidget& Head() const { return *head; }
    void SetCaption(const QString& text);
    void FillHead() override;
    void SetWidths() override;
    void FillRow(int row, const QString& number, const ShownSet& shown) override;
    void ClearRow(int row) override;
    /// Shows a set in the row above.
    void ShowInHead(const tValueRow& row, const QString& timeText);
    void ClearHead();

private:
    QTableWidget* head;
    QString caption;
};

} // namespace korvanel
