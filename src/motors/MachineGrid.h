// The list of the motor database: one line a machine, one column a value, under the heads of the groups.
#pragma once

#include "motors/MotorDatabase.h"

#include <QTableWidget>

#include <functional>
#include <vector>

namespace korvanel {

class MachineGrid : public QTableWidget
{
    Q_OBJECT

public:
    /// Gives the machines of some rows, from the first of them.
    using Source = std::function<std::vector<MachineRecord>(int first, int count)>;

    explicit MachineGrid(Source machinesOfRows);
    /// Shows a list of so many machines. Only those in view are read, whatever the length of the list.
    void Fill(int count);
    /// Marks a row and brings it into view; -1 marks none.
    void ShowRow(int row);

signals:
    void RowChosen(int row);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void FillView();
    void FillRows(int first, int count);

    Source source;
    int filledFrom = 0; ///< the rows that have their cells
    int filledCount = 0;
};

} // namespace korvanel
