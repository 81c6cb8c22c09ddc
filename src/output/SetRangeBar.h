// The sets that the tables of a report show: first and last, or all of them.
#pragma once

#include <QWidget>

#include <array>

class QLineEdit;
class QPushButton;

namespace korvanel {

class SetRangeBar : public QWidget
{
    Q_OBJECT

public:
    /// The boxes are named by the word, with _0 and _1.
    explicit SetRangeBar(const QString& boxName);

    /// Shows the sets that are chosen.
    void Refresh();
    /// Takes over what stands in the boxes; false where it is no number, which is told.
    bool Take();

signals:
    void Changed();

private:
    bool TakeBox(std::size_t index);
    void TakeAll();

    std::array<QLineEdit*, 2> boxes{};
    std::array<QString, 2> shown;
    QPushButton* allButton;
};

} // namespace korvanel
