// The row below the grid of the editor that tells of the recording as a whole: its interval, the method of estimation,
// the way to the second machine, and whether the energies are those of the rows.
#pragma once

#include <QWidget>

class QBoxLayout;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace korvanel {

class RecordingBar : public QWidget
{
    Q_OBJECT

public:
    RecordingBar();

    void ShowInterval(double seconds);
    QString IntervalText() const;
    /// Whether another text than the one shown stands in the box.
    bool HasPendingInterval() const;
    void LookAtInterval();
    void SetIntervalEditable(bool isEditable);

    void ShowMethod(int method);
    int Method() const;
    void ShowEnergiesOutdated(bool areOutdated);

    QLineEdit& IntervalBox() { return *intervalBox; }
    QComboBox& MethodBox() { return *engineBox; }
    QPushButton& SimulationButton() { return *simulationButton; }

private:
    void BuildInterval(QBoxLayout& row);
    void BuildMethod(QBoxLayout& row);

    QLineEdit* intervalBox;
    QComboBox* engineBox;
    QPushButton* simulationButton;
    QLabel* energiesLabel;
    QString shownInterval;
};

} // namespace korvanel
