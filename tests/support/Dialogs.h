// Modal dialogs that a test answers as soon as they are on show.
#pragma once

#include <QApplication>
#include <QTimer>
#include <QWidget>

#include <functional>

namespace korvanel::test {

/// Does something with the next modal dialog of a kind. It has to end the dialog.
template <typename Dialog>
void WithNextDialog(std::function<void(Dialog&)> action)
{
    QTimer::singleShot(0, [action = std::move(action)] {
        if (auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget()))
            action(*dialog);
        else
            WithNextDialog<Dialog>(action);
    });
}

/// A control of a dialog by its name.
template <typename Control>
Control& ControlOf(const QWidget& dialog, const char* name)
{
    auto* control = dialog.findChild<Control*>(QLatin1String(name));
    if (!control)
        throw std::runtime_error(std::string("no control ") + name);
    return *control;
}

} // namespace korvanel::test
