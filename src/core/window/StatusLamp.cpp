#include "core/window/StatusLamp.h"

#include "core/Colour.h"
#include "core/window/PlainToolTip.h"

#include <QPainter>

namespace korvanel {

namespace {

constexpr int kLampSize = 18;

} // namespace

StatusLamp::StatusLamp(const QString& name) : colourNumber(ColourNumber(palette().color(QPalette::Button)))
{
    setObjectName(name);
    setFixedSize(kLampSize, kLampSize);
    setProperty("colour", colourNumber);
}

QSize StatusLamp::sizeHint() const
{
    return {kLampSize, kLampSize};
}

void StatusLamp::Show(int colour, const QString& description)
{
    colourNumber = colour;
    setProperty("colour", colour);
    setAccessibleDescription(description);
    setToolTip(PlainToolTip(description));
    repaint();
}

void StatusLamp::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(palette().color(QPalette::Active, QPalette::Dark));
    painter.setBrush(ColourOf(colourNumber));
    painter.drawEllipse(rect().adjusted(1, 1, -2, -2));
}

} // namespace korvanel
