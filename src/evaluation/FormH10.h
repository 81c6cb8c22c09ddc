// "Optionen": prices, currency and number of cycles of the evaluation. OK stores them; they enter the results at the
// next entry to a page that shows them.
#pragma once

#include <QDialog>

#include <array>

class QGroupBox;
class QHBoxLayout;
class QLineEdit;

namespace korvanel {

class FormH10 : public QDialog
{
    Q_OBJECT

public:
    explicit FormH10(QWidget* parent);

private:
    QGroupBox* BuildCosts();
    QGroupBox* BuildOther();
    QHBoxLayout* BuildButtons();
    /// A box for a number of the copy, which takes what is typed when it is left.
    QLineEdit* AddNumberBox(const QString& name, double& number);
    void TakeNumber(QLineEdit& box, double& number);
    void TakeAll();
    void Store();

    // Copy of the options, until OK.
    std::array<double, 3> prices;
    double cycles;

    std::array<QLineEdit*, 3> priceBoxes{};
    QLineEdit* currencyBox = nullptr;
    QLineEdit* cyclesBox = nullptr;
};

} // namespace korvanel
