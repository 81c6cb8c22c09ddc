// "Satz suchen": asks for the number of a set and makes it the current one.
#pragma once

#include <QDialog>

class QLineEdit;

namespace korvanel {

class FormH15 : public QDialog
{
    Q_OBJECT

public:
    explicit FormH15(QWidget* parent);
    /// Asks the user; true if `iCurrentSet` has been set.
    static bool ChooseSet(QWidget* parent);

private:
    /// Takes the number that stands in the box. One behind the last set counts as that; for anything that is no whole
    /// number from 1 on the dialog stays.
    void TakeOver();

    QLineEdit* box;
};

} // namespace korvanel
