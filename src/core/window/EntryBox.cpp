#include "core/window/EntryBox.h"

#include "core/Messages.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QFocusEvent>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QSignalBlocker>

namespace korvanel {

namespace {

constexpr int kLongestValue = 40;
constexpr int kVisibleCharacters = 7;

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
    lineEdit()->installEventFilter(this);
    connect(lineEdit(), &QLineEdit::editingFinished, this, &EntryBox::Commit);
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
    RunGuarded(objectName(), [this] { emit Committed(currentText()); });
}

bool EntryBox::eventFilter(QObject* watched, QEvent* event)
{
    // Leaving for a menu doesn't end the editing for the line itself.
    if (watched == lineEdit() && event->type() == QEvent::FocusOut && !view()->isVisible() &&
        static_cast<QFocusEvent*>(event)->reason() == Qt::PopupFocusReason)
        Commit();
    return QComboBox::eventFilter(watched, event);
}

} // namespace korvanel
