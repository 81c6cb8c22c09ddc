#include "diagrams/WholeScreen.h"

#include <QEvent>
#include <QVBoxLayout>
#include <QWidget>

#include <utility>

namespace korvanel {

WholeScreen::WholeScreen(QWidget& ofWidget, std::function<void()> putBack)
    : widget(ofWidget), putWidgetBack(std::move(putBack))
{}

WholeScreen::~WholeScreen() = default;

void WholeScreen::Toggle(const QString& title)
{
    if (window) {
        putWidgetBack();
        window->hide();
        window.release()->deleteLater(); // it may be the one whose key is being answered
        return;
    }
    window = std::make_unique<QWidget>();
    window->setObjectName(QStringLiteral("WholeScreen"));
    window->setWindowTitle(title);
    auto* all = new QVBoxLayout(window.get());
    all->setContentsMargins(0, 0, 0, 0);
    all->addWidget(&widget);
    window->installEventFilter(this);
    window->showFullScreen();
}

/// Whoever closes the window wants the page back.
bool WholeScreen::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != window.get() || event->type() != QEvent::Close)
        return QObject::eventFilter(watched, event);
    event->ignore();
    Toggle({});
    return true;
}

} // namespace korvanel
