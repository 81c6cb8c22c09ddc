#include "core/window/PendingInput.h"

#include <QApplication>
#include <QEvent>

namespace korvanel {

namespace {

class InputFilter : public QObject
{
public:
    bool eventFilter(QObject*, QEvent* event) override
    {
        switch (event->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::Wheel:
        case QEvent::TouchBegin:
        case QEvent::TouchUpdate:
        case QEvent::TouchEnd:
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::ShortcutOverride:
        case QEvent::Shortcut:
        case QEvent::Close:
            event->ignore();
            return true;
        default:
            return false;
        }
    }
};

} // namespace

void DropPendingInput()
{
    InputFilter filter;
    QCoreApplication::instance()->installEventFilter(&filter);
    QCoreApplication::processEvents();
}

} // namespace korvanel
