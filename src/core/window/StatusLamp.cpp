#include "core/window/StatusLamp.h"

#include <QPainter>

namespace korvanel {

namespace {

constexpr const char* kColour = "colour";

} // namespace

StatusLamp::StatusLamp(const QString& name)
{
    setObjectName(name);
    setFixedSize(StatusLamp::sizeHint());
    SwitchOff();
}

QSize StatusLamp::sizeHint() const
{
    constexpr int kSide = 18;
    return {kSide, kSide};
}

void StatusLamp::SetColour(quint32 colour, const QString& meaning)
{
    setProperty(kColour, colour);
    setAccessibleDescription(meaning);
    setToolTip(meaning);
    update();
}

void StatusLamp::SwitchOff()
{
    const QColor face = palette().color(QPalette::Button);
    SetColour(static_cast<quint32>(face.blue() << 16 | face.green() << 8 | face.red()));
}

void StatusLamp::paintEvent(QPaintEvent* /*event*/)
{
    const quint32 colour = property(kColour).toUInt();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(palette().color(QPalette::Dark));
    painter.setBrush(QColor(static_cast<int>(colour & 0xFF), static_cast<int>(colour >> 8 & 0xFF),
                            static_cast<int>(colour >> 16 & 0xFF)));
    painter.drawEllipse(rect().adjusted(2, 2, -2, -2));
}

} // namespace korvanel
