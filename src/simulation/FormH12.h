// "Simulation - ASM Auswahl": picks the second machine from the motor database and runs it over the recording.
#pragma once

#include "simulation/MachineSubstitution.h"

#include <QDialog>

#include <array>

class QGridLayout;
class QLineEdit;
class QPushButton;

namespace korvanel {

class MachineGrid;

class FormH12 : public QDialog
{
    Q_OBJECT

public:
    explicit FormH12(QWidget* parent);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* BuildSearch();
    QLineEdit* AddField(QGridLayout& places, int place, const QString& name, const QString& text,
                        const QString& relation);

    /// Shows the list with its present machine, or a row of it.
    void ShowList(int row);
    /// Takes the number of a field, nothing from an empty one. A text that is no number is told and has the focus:
    /// false then.
    bool TakeNumber(int index, std::optional<double>& number);
    void Search();
    void TakeOver();

    bool isForGenerator; ///< the power of the measured machine, and so that of the other one, is negative
    SubstituteList machines;
    MachineGrid* grid;
    std::array<QLineEdit*, 4> fields{};
    QLineEdit* commentField = nullptr;
    QPushButton* searchButton = nullptr;
    QPushButton* okButton = nullptr;
};

} // namespace korvanel
