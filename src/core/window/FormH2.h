// The About box.
#pragma once

#include <QDialog>

namespace korvanel {

class FormH2 : public QDialog
{
    Q_OBJECT

public:
    explicit FormH2(QWidget* parent);
};

} // namespace korvanel
