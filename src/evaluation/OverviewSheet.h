// A sheet that says what was evaluated: the project, when and how it was recorded and, where there is one, the machine
// with the classes of the sets.
#pragma once

#include <QWidget>

#include <array>

class QFormLayout;
class QLabel;

namespace korvanel {

class SuitabilityBar;

class OverviewSheet : public QWidget
{
    Q_OBJECT

public:
    OverviewSheet();
    /// Takes everything from the block.
    void Refresh();

private:
    QLabel* AddValue(QFormLayout& form, const char* name, const QString& caption);
    void AddMachine(QFormLayout& form);
    void ShowMachine();

    QLabel* project;
    QLabel* device;
    QLabel* begin;
    QLabel* end;
    QLabel* term;
    QLabel* interval;
    QLabel* sets;
    QLabel* gaps;
    QLabel* machine = nullptr;
    std::array<QLabel*, 3> classes{}; ///< of the ratings from 1 on
    SuitabilityBar* suitability = nullptr;
};

} // namespace korvanel
