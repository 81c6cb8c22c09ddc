// Keys and clicks as a person presses them, sent to one control.
#pragma once

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
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

/// A click that waits until events are processed.
inline void PostClick(QWidget& control)
{
    const QPointF middle = QRectF(control.rect()).center();
    const QPointF onScreen = control.mapToGlobal(middle);
    QCoreApplication::postEvent(&control, new QMouseEvent(QEvent::MouseButtonPress, middle, onScreen, Qt::LeftButton,
                                                          Qt::LeftButton, Qt::NoModifier));
    QCoreApplication::postEvent(&control, new QMouseEvent(QEvent::MouseButtonRelease, middle, onScreen, Qt::LeftButton,
                                                          Qt::NoButton, Qt::NoModifier));
}

} // namespace korvanel::test
