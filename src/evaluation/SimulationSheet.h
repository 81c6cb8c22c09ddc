// What the page of the results has of the second machine: which one it is, the dialogs that show it beside the measured
// one, and its sets.
#pragma once

#include <QWidget>

#include <functional>
#include <vector>

class QBoxLayout;
class QLabel;
class QPushButton;

namespace korvanel {

class SimulatedList;

class SimulationSheet : public QWidget
{
    Q_OBJECT

public:
    /// `guarded` runs what a button does.
    explicit SimulationSheet(std::function<void(const std::function<void()>&)> guarded);
    /// Takes everything from the block.
    void Refresh();

signals:
    /// Another machine was chosen, and has gone through the sets.
    void MachineChosen();

private:
    QPushButton* AddButton(QBoxLayout& row, const char* name, const QString& text, int dialog);

    std::function<void(const std::function<void()>&)> guard;
    QLabel* machine;
    std::vector<QPushButton*> forMachine; ///< that want a second machine
    SimulatedList* list;
};

} // namespace korvanel
