// "Simulation - Drucken": the report of both machines, with the sets as its tables will show them.
#pragma once

#include <QDialog>

#include <array>
#include <functional>

class QPushButton;

namespace korvanel {

class PrintedList;
class PrinterChoice;
class SetRangeBar;

class FormH16 : public QDialog
{
    Q_OBJECT

public:
    explicit FormH16(QWidget* parent);
    bool eventFilter(QObject* watched, QEvent* event) override;
    void done(int result) override;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    QWidget* BuildChoice(std::size_t index);
    QWidget* BuildList(std::size_t index);
    QWidget* BuildFoot();
    void Guarded(const std::function<void()>& routine);
    void Switch(std::size_t index, bool isOn);
    void SwitchColumn(int quantity);
    void ShowSets();
    void Print();

    PrinterChoice* printers;
    SetRangeBar* range;
    QPushButton* printButton = nullptr;
    std::array<PrintedList*, 2> lists{}; ///< of the measured machine and the other one
};

} // namespace korvanel
