// "Simulation - Maschinenvergleich": rating plates and suitability of both machines, and what they did set by set.
#pragma once

#include <QDialog>

namespace korvanel {

struct MachineInUse;

class FormH13 : public QDialog
{
    Q_OBJECT

public:
    explicit FormH13(QWidget* parent);

private:
    /// `index` is 0 for the measured machine and 1 for the other one.
    QWidget* BuildMachine(int index, const QString& title, const MachineInUse& machine);
    QWidget* BuildSets();
};

} // namespace korvanel
