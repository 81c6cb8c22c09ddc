// A round lamp that shows a state by its colour.
#pragma once

#include <QWidget>

namespace korvanel {

/// Its colour number can be read as the property "colour".
class StatusLamp : public QWidget
{
    Q_OBJECT

public:
    explicit StatusLamp(const QString& name);
    QSize sizeHint() const override;
    /// `colour` has red in its low byte. `description` is for who can't see it. On the screen at once, for what follows
    /// may block the program.
    void Show(int colour, const QString& description);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int colourNumber = 0;
};

} // namespace korvanel
