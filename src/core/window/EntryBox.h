// A combo box for a value that is chosen or typed. It hands the text over once it stands: on choosing from the list,
// on Enter and on leaving the box, by whatever way.
#pragma once

#include <QComboBox>

namespace korvanel {

class EntryBox : public QComboBox
{
    Q_OBJECT

public:
    explicit EntryBox(const QString& name);

    /// A list whose entries are the values themselves.
    void SetChoices(const QStringList& values);
    /// An entry that shows more than its value.
    void AddChoice(const QString& shown, const QString& value) { addItem(shown, value); }
    /// Shows the value in force.
    void ShowText(const QString& value);
    /// Whether something stands in the box that isn't in force, since it was not yet handed over or was refused.
    bool HasPendingText() const { return currentText() != shownText; }
    /// Hands over what is pending. Does nothing while a box that asks something stands in front.
    void Commit();

signals:
    void Committed(const QString& text);

protected:
    void focusOutEvent(QFocusEvent* event) override;

private:
    QString shownText;
    bool isCommitting = false;
};

} // namespace korvanel
