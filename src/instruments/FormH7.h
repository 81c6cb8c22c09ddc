// "Schaltung": how the instrument in use is to be wired.
#pragma once

#include <QDialog>

namespace korvanel {

class FormH7 : public QDialog
{
    Q_OBJECT

public:
    explicit FormH7(QWidget* parent);
};

} // namespace korvanel
