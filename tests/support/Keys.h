// Keys as a person presses them, sent to one control.
#pragma once

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

namespace korvanel::test {

inline void PressKey(QWidget& control, int key, const QString& text = {})
{
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(&control, &press);
    QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier, text);
    QApplication::sendEvent(&control, &release);
}

inline void TypeKeys(QWidget& control, const QString& text)
{
    for (const QChar c : text)
        PressKey(control, 0, c);
}

} // namespace korvanel::test
