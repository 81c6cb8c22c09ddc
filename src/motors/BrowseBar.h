// The bar that leads through the list of machines: first, previous, next, last, and where the current one stands.
#pragma once

#include <QWidget>

#include <array>

class QLabel;
class QPushButton;

namespace korvanel {

class BrowseBar : public QWidget
{
    Q_OBJECT

public:
    BrowseBar();
    /// Row from 0, -1 for a machine that the list doesn't have, and the number of rows.
    void ShowPlace(int row, int count);
    void EnableButtons(bool areEnabled);

signals:
    void RowWanted(int row);

private:
    void AddButton(std::size_t index);

    QLabel* caption;
    std::array<QPushButton*, 4> buttons{};
    int shownRow = -1;
    int rowCount = 0;
};

} // namespace korvanel
