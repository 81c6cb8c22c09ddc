#include "evaluation/SuitabilityBar.h"

#include "core/Evaluation.h"

#include <QPainter>

#include <algorithm>

namespace korvanel {

namespace {

constexpr int kStripWidth = 220;
constexpr int kStripHeight = 14;
constexpr int kGap = 3;

QColor ColourOf(int rating)
{
    const qint32 colour = kRatingColours.at(static_cast<std::size_t>(rating));
    return {colour & 0xFF, colour >> 8 & 0xFF, colour >> 16 & 0xFF};
}

} // namespace

SuitabilityBar::SuitabilityBar(const char* name)
{
    setObjectName(QLatin1String(name));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void SuitabilityBar::Show(std::vector<SuitabilityShare> classShares)
{
    shares = std::move(classShares);
    update();
}

QSize SuitabilityBar::sizeHint() const
{
    return {kStripWidth + 1, kStripHeight + 1 + kGap + fontMetrics().height()};
}

void SuitabilityBar::paintEvent(QPaintEvent*)
{
    if (shares.empty())
        return;
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(0, 0, kStripWidth, kStripHeight);
    const QFontMetrics metrics = fontMetrics();
    int free = 0; // a label beside a narrow rectangle moves out of the way of the one before
    for (const SuitabilityShare& share : shares) {
        const QRectF rectangle(share.from * kStripWidth, 0, share.width * kStripWidth, kStripHeight);
        painter.fillRect(rectangle, ColourOf(share.rating));
        const QString label = SuitabilityText(share.width);
        const int width = metrics.horizontalAdvance(label);
        const int centred = static_cast<int>(rectangle.center().x()) - width / 2;
        const int left = std::max(free, std::min(centred, kStripWidth - width));
        painter.setPen(ColourOf(share.rating));
        painter.drawText(left, kStripHeight + kGap + metrics.ascent(), label);
        free = left + width + 2 * kGap;
    }
}

} // namespace korvanel
