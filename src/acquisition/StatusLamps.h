// The three lamps that tell the state of the instrument: red, yellow and green, of which at most one is lit, with the
// state in words beside them.
#pragma once

#include <QWidget>

#include <array>

class QLabel;

namespace korvanel {

enum class LampState
{
    NotConnected = 0,
    Connected = 1,
    AtWork = 2,
    Off = 3
};

/// One lamp. Its colour number (low byte red) can be read as the property "colour".
class StatusLamp : public QWidget
{
    Q_OBJECT

public:
    explicit StatusLamp(const QString& name);
    void Show(int colour, const QString& description);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int colourNumber = 0;
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
