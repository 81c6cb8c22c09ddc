// Where a value is entered: the box shows the cell under the cursor, is typed into, and hands its text over. A second
// box holds the step by which two buttons change the first.
#pragma once

#include <QWidget>

class QLineEdit;
class QPushButton;
class QToolButton;

namespace korvanel {

class PlainLabel;

class EntryBar : public QWidget
{
    Q_OBJECT

public:
    EntryBar();

    /// Shows the value of a cell; `name` tells which. A cell that can't be entered locks the bar.
    void Show(const QString& name, const QString& value, bool isEditable);
    /// Begins an entry with what has been typed, or with the value.
    void Begin(const QString& typed);
    /// Whether something stands in the box that isn't the value of the cell.
    bool HasPendingText() const;
    QString Text() const;
    /// Shows a text that was put into the form of numbers here.
    void SetText(const QString& text);
    /// Puts the value back.
    void Drop();
    /// Lets the user look at what can't be taken.
    void LookAt();

signals:
    void Accepted();
    /// The user wants to leave the box without an entry.
    void Left();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QToolButton* AddTool(const QString& name, const QString& sign, const QString& tip);
    /// Changes the value by so many steps.
    void Step(int by);
    void ChangeSign();

    PlainLabel* label;
    QLineEdit* valueBox;
    QLineEdit* stepBox;
    QPushButton* enterButton;
    QToolButton* upButton;
    QToolButton* downButton;
    QToolButton* signButton;
    QString shown; ///< value of the cell
};

} // namespace korvanel
