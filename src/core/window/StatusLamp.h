// A round lamp that shows a state by its colour. The colour can also be read from outside, as the property "colour".
#pragma once

#include <QWidget>

namespace korvanel {

class StatusLamp : public QWidget
{
    Q_OBJECT

public:
    explicit StatusLamp(const QString& name);
    /// Blue, green, red from the high to the low byte. `meaning` is read out to who can't see it.
    void SetColour(quint32 colour, const QString& meaning = {});
    /// Off: the colour of button faces.
    void SwitchOff();
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace korvanel
