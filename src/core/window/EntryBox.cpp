#include "core/window/EntryBox.h"

#include "core/Messages.h"
#include "core/window/ActionName.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QFocusEvent>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QSignalBlocker>

namespace korvanel {

namespace {

constexpr int kLongestValue = 40;
constexpr int kVisibleCharacters = 6;

} // namespace

EntryBox::EntryBox(const QString& name)
{
    setObjectName(name);
    setEditable(true);
    setInsertPolicy(QComboBox::NoInsert);
    setCompleter(nullptr); // a value that begins like one of the list is not that one
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(kVisibleCharacters);
    lineEdit()->setMaxLength(kLongestValue);
    connect(lineEdit(), &QLineEdit::returnPressed, this, &EntryBox::Commit);
    connect(this, &QComboBox::activated, this, [this](int index) {
        setEditText(itemData(index).toString());
        Commit();
    });
}

void EntryBox::SetChoices(const QStringList& values)
{
    const QSignalBlocker quiet(this);
    clear();
    for (const QString& value : values)
        AddChoice(value, value);
    setEditText(shownText);
}

void EntryBox::ShowText(const QString& value)
{
    const QSignalBlocker quiet(this);
    shownText = value;
    setCurrentIndex(findData(value));
    if (currentText() != value)
        setEditText(value);
}

void EntryBox::Commit()
{
    const QWidget* asking = QApplication::activeModalWidget();
    if (isCommitting || !HasPendingText() || (asking && asking != window()))
        return;
    const QScopedValueRollback guard(isCommitting, true);
    RunGuarded(ActionName(this), [this] { emit Committed(currentText()); });
}

/// The line's own notice of the end of editing leaves out menus, and a text that was refused before.
void EntryBox::focusOutEvent(QFocusEvent* event)
{
    QComboBox::focusOutEvent(event);
    if (event->reason() != Qt::ActiveWindowFocusReason && !view()->isVisible())
        Commit();
}

} // namespace korvanel
