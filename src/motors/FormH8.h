// "Motor/Generator Info": what follows from the data of a machine, as a list.
#pragma once

#include <QDialog>

namespace korvanel {

/// What the list shows.
enum class MachineInfo
{
    MachineII = 6, ///< that of the simulation
    MachineI = 10, ///< the measured machine
};

class FormH8 : public QDialog
{
    Q_OBJECT

public:
    FormH8(QWidget* parent, MachineInfo info);
};

} // namespace korvanel
