#include "remote/RemoteCommands.h"

#include "remote/RemoteReading.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QFileDialog>
#include <QJsonArray>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPixmap>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTableWidget>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>

namespace korvanel::remote {

namespace {

QJsonObject Failure(const QString& reason)
{
    return {{"ok", false}, {"error", reason}};
}
QJsonObject Success()
{
    return {{"ok", true}};
}

/// The control of a name: one that is on show before one that is not.
QWidget* FindControl(const QString& name)
{
    QWidget* hidden = nullptr;
    for (QWidget* widget : QApplication::allWidgets()) {
        if (widget->objectName() != name)
            continue;
        if (widget->isVisible())
            return widget;
        hidden = widget;
    }
    return hidden;
}

QAction* FindAction(const QString& name)
{
    for (QWidget* window : QApplication::topLevelWidgets())
        if (auto* action = window->findChild<QAction*>(name))
            return action;
    return nullptr;
}

/// A modal box opened by the control must not hold the answer back, so the press itself comes after it.
void Later(QObject* context, const std::function<void()>& press)
{
    QTimer::singleShot(0, context, press);
}

/// What a person can't reach can't be pressed: hidden, disabled, or behind a modal window.
QString Obstacle(QWidget* widget)
{
    if (!widget->isVisible())
        return QStringLiteral("not visible");
    if (!widget->isEnabled())
        return QStringLiteral("disabled");
    QWidget* modal = QApplication::activeModalWidget();
    return modal && modal != widget->window() ? QStringLiteral("behind a modal window") : QString();
}

bool IsReachable(QAction* action)
{
    if (!action->isEnabled() || !action->isVisible())
        return false;
    for (QObject* owner : action->associatedObjects())
        if (auto* menu = qobject_cast<QMenu*>(owner); menu && menu->menuAction() != action)
            return IsReachable(menu->menuAction());
    return true;
}

QJsonObject Trigger(const QString& name)
{
    if (QAction* action = FindAction(name)) {
        if (!IsReachable(action) || QApplication::activeModalWidget())
            return Failure(QStringLiteral("menu entry can't be reached: ") + name);
        Later(action, [action] { action->trigger(); });
        return Success();
    }
    auto* button = qobject_cast<QAbstractButton*>(FindControl(name));
    if (!button)
        return Failure(QStringLiteral("no such button or menu entry: ") + name);
    if (const QString obstacle = Obstacle(button); !obstacle.isEmpty())
        return Failure(name + QStringLiteral(": ") + obstacle);
    Later(button, [button] { button->click(); });
    return Success();
}

void PressKeys(QWidget* widget, const QString& text)
{
    for (const QChar c : text) {
        const int key = c == u'\n' ? Qt::Key_Return : 0;
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, QString(c));
        QApplication::sendEvent(widget, &press);
        QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier, QString(c));
        QApplication::sendEvent(widget, &release);
    }
}

QJsonObject Type(const QString& name, const QString& text)
{
    QWidget* widget = FindControl(name);
    if (!widget)
        return Failure(QStringLiteral("no such control: ") + name);
    if (const QString obstacle = Obstacle(widget); !obstacle.isEmpty())
        return Failure(name + QStringLiteral(": ") + obstacle);
    widget->setFocus();
    if (auto* combo = qobject_cast<QComboBox*>(widget); combo && combo->lineEdit())
        widget = combo->lineEdit();
    if (auto* line = qobject_cast<QLineEdit*>(widget))
        line->selectAll();
    else if (auto* box = qobject_cast<QPlainTextEdit*>(widget))
        box->selectAll();
    else
        return Failure(QStringLiteral("not a text box: ") + name);
    if (text.isEmpty()) {
        QKeyEvent press(QEvent::KeyPress, Qt::Key_Delete, Qt::NoModifier);
        QApplication::sendEvent(widget, &press);
    }
    PressKeys(widget, text);
    return Success();
}

/// What a mouse or a key does is delivered as by the window system: to the control under the pointer or with the focus.
Qt::MouseButton ButtonOf(const QString& name)
{
    return name == u"right" ? Qt::RightButton : name == u"middle" ? Qt::MiddleButton : Qt::LeftButton;
}

Qt::KeyboardModifiers ModifiersOf(const QString& names)
{
    Qt::KeyboardModifiers modifiers;
    if (names.contains(QStringLiteral("shift")))
        modifiers |= Qt::ShiftModifier;
    if (names.contains(QStringLiteral("ctrl")))
        modifiers |= Qt::ControlModifier;
    return modifiers;
}

void SendMouse(QWidget* widget, QEvent::Type type, QPointF at, Qt::MouseButton button, Qt::MouseButtons held,
               Qt::KeyboardModifiers modifiers)
{
    QMouseEvent event(type, at, widget->mapToGlobal(at), button, held, modifiers);
    QApplication::sendEvent(widget, &event);
    if (type == QEvent::MouseButtonPress && button == Qt::RightButton) {
        QContextMenuEvent menu(QContextMenuEvent::Mouse, at.toPoint(), widget->mapToGlobal(at.toPoint()), modifiers);
        QApplication::sendEvent(widget, &menu);
    }
}

/// One thing that the mouse does over a control: press, move, release, click, double, wheel (`notches` of it).
QJsonObject Mouse(const QString& name, const QString& what, const QJsonObject& command)
{
    QWidget* widget = FindControl(name);
    if (!widget)
        return Failure(QStringLiteral("no such control: ") + name);
    if (const QString obstacle = Obstacle(widget); !obstacle.isEmpty())
        return Failure(name + QStringLiteral(": ") + obstacle);
    QPointF at(command["x"].toDouble(), command["y"].toDouble());
    if (auto* table = qobject_cast<QTableWidget*>(widget)) {
        if (command.contains("row")) // a cell of it
            at = table->visualRect(table->model()->index(command["row"].toInt(), command["column"].toInt())).center();
        widget = table->viewport();
    }
    const Qt::MouseButton button = ButtonOf(command["button"].toString());
    const Qt::KeyboardModifiers modifiers = ModifiersOf(command["modifiers"].toString());
    Later(widget, [=] {
        constexpr int kNotch = 120;
        if (what == u"press" || what == u"click" || what == u"double")
            SendMouse(widget, QEvent::MouseButtonPress, at, button, button, modifiers);
        if (what == u"move")
            SendMouse(widget, QEvent::MouseMove, at, Qt::NoButton, button, modifiers);
        if (what == u"release" || what == u"click" || what == u"double")
            SendMouse(widget, QEvent::MouseButtonRelease, at, button, Qt::NoButton, modifiers);
        if (what == u"double") {
            SendMouse(widget, QEvent::MouseButtonDblClick, at, button, button, modifiers);
            SendMouse(widget, QEvent::MouseButtonRelease, at, button, Qt::NoButton, modifiers);
        }
        if (what == u"wheel") {
            QWheelEvent event(at, widget->mapToGlobal(at), {}, {0, kNotch * command["notches"].toInt()}, Qt::NoButton,
                              modifiers, Qt::NoScrollPhase, false);
            QApplication::sendEvent(widget, &event);
        }
    });
    return Success();
}

/// A key with its modifiers, as "Ctrl+Z"; to the control with the focus if no name is given.
QJsonObject Key(const QString& name, const QString& sequence)
{
    QWidget* widget = name.isEmpty() ? QApplication::focusWidget() : FindControl(name);
    if (!widget)
        return Failure(QStringLiteral("no such control: ") + name);
    if (const QString obstacle = Obstacle(widget); !obstacle.isEmpty())
        return Failure(name + QStringLiteral(": ") + obstacle);
    const QKeyCombination keys = QKeySequence::fromString(sequence)[0];
    Later(widget, [widget, keys] {
        QApplication::setActiveWindow(widget->window()); // without a window manager nobody else does
        widget->setFocus();
        QTest::keyClick(widget, keys.key(), keys.keyboardModifiers()); // shortcuts come first, as with a real key
    });
    return Success();
}

QJsonObject Choose(const QString& name, const QString& text)
{
    QWidget* widget = FindControl(name);
    if (auto* combo = qobject_cast<QComboBox*>(widget)) {
        if (const QString obstacle = Obstacle(combo); !obstacle.isEmpty())
            return Failure(name + QStringLiteral(": ") + obstacle);
        const int index = combo->findText(text);
        if (index < 0)
            return Failure(QStringLiteral("no such entry: ") + text);
        combo->setCurrentIndex(index);
        emit combo->activated(index);
        return Success();
    }
    if (auto* list = qobject_cast<QListWidget*>(widget)) {
        const QList<QListWidgetItem*> items = list->findItems(text, Qt::MatchExactly);
        if (items.isEmpty())
            return Failure(QStringLiteral("no such entry: ") + text);
        list->setCurrentItem(items.front());
        return Success();
    }
    if (auto* tabs = qobject_cast<QTabWidget*>(widget))
        for (int i = 0; i < tabs->count(); ++i)
            if (tabs->tabText(i) == text) {
                tabs->setCurrentIndex(i);
                return Success();
            }
    return Failure(QStringLiteral("nothing to choose from: ") + name);
}

QJsonObject Read(const QString& name)
{
    if (QAction* action = FindAction(name))
        return {{"ok", true},
                {"text", action->text()},
                {"enabled", action->isEnabled()},
                {"visible", action->isVisible()},
                {"checked", action->isChecked()}};
    QWidget* widget = FindControl(name);
    if (!widget)
        return Failure(QStringLiteral("no such control: ") + name);
    const auto* button = qobject_cast<QAbstractButton*>(widget);
    return {{"ok", true},
            {"text", TextOfControl(widget)},
            {"title", widget->windowTitle()},
            {"toolTip", widget->toolTip()},
            {"enabled", widget->isEnabled()},
            {"visible", widget->isVisible()},
            {"checked", button && button->isChecked()},
            {"focused", widget->hasFocus()},
            {"items", Items(widget)},
            {"colour", QJsonValue::fromVariant(widget->property("colour"))},
            {"cells", Cells(widget)},
            {"rows", RowHeads(widget)},
            {"headings", Headings(widget)}};
}

QJsonObject Windows()
{
    QJsonArray windows;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (!window->isVisible() || !window->isWindow() || qobject_cast<QMenu*>(window))
            continue;
        QJsonObject entry{{"name", window->objectName()}, {"title", window->windowTitle()}};
        if (auto* box = qobject_cast<QMessageBox*>(window)) {
            QJsonArray buttons;
            for (const QAbstractButton* button : box->buttons())
                buttons.append(button->text());
            entry["name"] = QStringLiteral("message");
            entry["text"] = box->text();
            entry["icon"] = static_cast<int>(box->icon());
            entry["buttons"] = buttons;
            entry["preset"] = box->defaultButton() ? box->defaultButton()->text() : QString();
        }
        windows.append(entry);
    }
    return {{"ok", true}, {"windows", windows}};
}

QJsonObject PressAnswer(const QString& text)
{
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (!box)
        return Failure(QStringLiteral("no message box on show"));
    for (QAbstractButton* button : box->buttons())
        if (button->text().remove(u'&') == text) {
            Later(button, [button] { button->click(); });
            return Success();
        }
    return Failure(QStringLiteral("no such answer: ") + text);
}

QJsonObject GivePath(const QString& path)
{
    auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    if (!dialog)
        return Failure(QStringLiteral("no file dialog on show"));
    if (path.isEmpty()) {
        Later(dialog, [dialog] { dialog->reject(); });
        return Success();
    }
    dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(path);
    Later(dialog, [dialog] { QMetaObject::invokeMethod(dialog, "accept"); });
    return Success();
}

QJsonObject Grab(const QString& name, const QString& file)
{
    QWidget* widget = name.isEmpty() ? QApplication::activeWindow() : FindControl(name);
    if (!widget)
        return Failure(QStringLiteral("no such window: ") + name);
    return widget->grab().save(file) ? Success() : Failure(QStringLiteral("can't write ") + file);
}

QJsonObject CloseMainWindow()
{
    for (QWidget* window : QApplication::topLevelWidgets())
        if (auto* main = qobject_cast<QMainWindow*>(window)) {
            Later(main, [main] { main->close(); });
            return Success();
        }
    return Failure(QStringLiteral("no main window"));
}

} // namespace

QJsonObject Execute(const QJsonObject& command)
{
    const QString what = command["do"].toString();
    const QString name = command["name"].toString();
    const QString text = command["text"].toString();
    if (what == u"windows")
        return Windows();
    if (what == u"texts")
        return AllTexts();
    if (what == u"trigger")
        return Trigger(name);
    if (what == u"type")
        return Type(name, text);
    if (what == u"choose")
        return Choose(name, text);
    if (what == u"mouse")
        return Mouse(name, text, command);
    if (what == u"key")
        return Key(name, text);
    if (what == u"read")
        return Read(name);
    if (what == u"answer")
        return PressAnswer(text);
    if (what == u"path")
        return GivePath(text);
    if (what == u"grab")
        return Grab(name, text);
    if (what == u"close")
        return CloseMainWindow();
    return Failure(QStringLiteral("unknown command: ") + what);
}

} // namespace korvanel::remote
