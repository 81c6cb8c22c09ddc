// "Dimension des Zeitfensters": the length of the evaluation's window, by hand or as a multiple of the machine's
// thermal time constant. OK stores the choice; the results are formed anew at the next entry to a page that shows them.
#pragma once

#include <QDialog>

#include <array>

class QHBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace korvanel {

class FormH9 : public QDialog
{
    Q_OBJECT

public:
    explicit FormH9(QWidget* parent);

private:
    QRadioButton* AddOption(int index, const QString& text);
    QHBoxLayout* BuildTime();
    QHBoxLayout* BuildThermal();
    QHBoxLayout* BuildButtons();
    QLineEdit* AddTimeBox(QHBoxLayout& row, std::size_t index, const QString& unit);

    void EnableChosen();
    /// Shows a length in seconds, up to the longest that the boxes hold.
    void ShowTime(double seconds);
    /// Keeps what is typed within the limits of its box.
    void LimitTime(std::size_t index);
    void PadTime(std::size_t index);
    void CheckFactor();
    void TakeWholeTerm();
    void Store();

    std::array<QRadioButton*, 2> options{};
    std::array<QLineEdit*, 3> timeBoxes{}; ///< hours, minutes, seconds
    std::array<QLabel*, 3> spacers{};
    QPushButton* wholeButton = nullptr;
    QLineEdit* factorBox = nullptr;
    QLabel* factorUnit = nullptr;
};

} // namespace korvanel
