#include "motors/NumberBox.h"

#include "core/Messages.h"
#include "core/window/ActionName.h"
#include "motors/MachineEntry.h"

#include <QApplication>
#include <QFocusEvent>
#include <QScopedValueRollback>

namespace korvanel {

NumberBox::NumberBox(std::size_t ofMachine, std::function<bool()> mode) : field(ofMachine), isGenerator(std::move(mode))
{
    constexpr int kMostCharacters = 40;
    constexpr int kWidth = 100;
    setObjectName(QLatin1String(MachineFieldOf(field).control));
    setMaxLength(kMostCharacters);
    setMinimumWidth(kWidth);
    connect(this, &QLineEdit::returnPressed, this, &NumberBox::Commit);
}

void NumberBox::ShowNumber(const QString& text)
{
    shownText = text;
    setText(text);
    setCursorPosition(0);
}

void NumberBox::FollowMode()
{
    const bool isPending = text() != shownText;
    const QString signedText = TextForMode(field, text(), isGenerator());
    if (isPending)
        setText(signedText); // is still tested when it is left
    else
        ShowNumber(signedText);
}

bool NumberBox::Commit()
{
    return text() == shownText || Check();
}

bool NumberBox::Check()
{
    const QWidget* asking = QApplication::activeModalWidget();
    if (isChecking || isReadOnly() || !isEnabled() || (asking && asking != window()))
        return true;
    const QScopedValueRollback guard(isChecking, true);
    bool isAccepted = false;
    RunGuarded(ActionName(this), [&] {
        const EnteredNumber entered = EnterMachineNumber(field, text(), isGenerator());
        isAccepted = entered.isAccepted;
        if (isAccepted)
            ShowNumber(entered.text);
        else
            setText(entered.text);
    });
    if (isAccepted)
        return true;
    emit Refused();
    setFocus();
    selectAll();
    return false;
}

void NumberBox::focusOutEvent(QFocusEvent* event)
{
    QLineEdit::focusOutEvent(event);
    if (event->reason() == Qt::ActiveWindowFocusReason || event->reason() == Qt::PopupFocusReason)
        return;
    if (isVisible())
        Commit();
    else // its tab is being left, which has to be over before it can be shown again
        QMetaObject::invokeMethod(this, &NumberBox::Commit, Qt::QueuedConnection);
}

} // namespace korvanel
