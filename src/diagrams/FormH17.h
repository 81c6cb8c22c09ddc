// A small window beside a diagram: one quantity, and its values around a point.
#pragma once

#include <QDialog>

class QFrame;
class QLabel;
class QTableWidget;

namespace korvanel {

class FormH17 : public QDialog
{
    Q_OBJECT

public:
    explicit FormH17(QWidget* parent);

    /// Shows the window with the values of a quantity around a set, and leaves the page in use.
    void H17ShowForm(int quantity, qint32 set);
    /// Shows another quantity or set.
    void H17ShowValue(int quantity, qint32 set);

private:
    QLabel* symbolLabel;
    QLabel* valueLabel;
    QFrame* picColour;
    QTableWidget* flxvalues;
};

} // namespace korvanel
