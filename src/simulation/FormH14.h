// "Simulation - Auswertung": energies and utilisation of both machines side by side.
#pragma once

#include <QDialog>

namespace korvanel {

class FormH14 : public QDialog
{
    Q_OBJECT

public:
    explicit FormH14(QWidget* parent);
};

} // namespace korvanel
