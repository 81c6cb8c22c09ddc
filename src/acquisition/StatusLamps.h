// The three lamps that tell the state of the instrument: red, yellow and green, of which at most one is lit, with the
// state in words beside them.
#pragma once

#include <QWidget>

#include <array>

class QLabel;

namespace korvanel {

class StatusLamp;

enum class LampState
{
    NotConnected = 0,
    Connected = 1,
    AtWork = 2,
    Off = 3
};

class StatusLamps : public QWidget
{
    Q_OBJECT

public:
    StatusLamps();
    /// On the screen at once, for what follows may block the program.
    void Show(LampState state);

private:
    std::array<StatusLamp*, 3> lamps{};
    QLabel* words;
};

} // namespace korvanel
