// The start screen: logo, name and version. It goes by itself after a moment, or on a click or key.
#pragma once

#include <QWidget>

class QPixmap;

namespace korvanel {

class StartScreen : public QWidget
{
    Q_OBJECT

public:
    /// A null `logo` leaves its place out.
    explicit StartScreen(const QPixmap& logo);
    /// Shows the screen in front of all other windows.
    void ShowInFront();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    int timer = 0;
};

} // namespace korvanel
