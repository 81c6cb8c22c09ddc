// "Reihenfolge ändern": the order of the grid columns, changed by buttons or by dragging.
#pragma once

#include <QDialog>

class QListWidget;
class QVBoxLayout;

namespace korvanel {

class FormH3 : public QDialog
{
    Q_OBJECT

public:
    explicit FormH3(QWidget* parent);
    /// Asks the user; true if the order was written back to the block's column layout.
    static bool ChangeOrder(QWidget* parent);

private:
    void AddMoveButton(QVBoxLayout& column, int index, const QString& text);
    /// 0 to the top, 1 up, 2 down, 3 to the bottom.
    void Move(int index);
    void WriteBack();

    QListWidget* list;
};

} // namespace korvanel
