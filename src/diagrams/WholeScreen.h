// A diagram over the whole screen and back in its place. A window of its own is put around it: what was a window once
// stays one for the window system.
#pragma once

#include <QObject>

#include <functional>
#include <memory>

class QWidget;

namespace korvanel {

class WholeScreen : public QObject
{
    Q_OBJECT

public:
    /// `putBack` puts the widget into its place again.
    WholeScreen(QWidget& ofWidget, std::function<void()> putBack);
    ~WholeScreen() override;

    bool IsShown() const { return window != nullptr; }
    void Toggle(const QString& title);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget& widget;
    std::function<void()> putWidgetBack;
    std::unique_ptr<QWidget> window;
};

} // namespace korvanel
