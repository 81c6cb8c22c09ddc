// The list of the motor database: one line a machine, one column a value, under the heads of the groups.
#pragma once

#include "motors/MotorDatabase.h"

#include <QTableWidget>

#include <vector>

namespace korvanel {

class MachineGrid : public QTableWidget
{
    Q_OBJECT

public:
    MachineGrid();
    void Fill(const std::vector<MachineLine>& lines);
    /// Marks a row and brings it into view; -1 marks none.
    void ShowRow(int row);

signals:
    void RowChosen(int row);
};

} // namespace korvanel
