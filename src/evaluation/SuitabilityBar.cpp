#include "evaluation/SuitabilityBar.h"

#include "core/Colour.h"
#include "evaluation/Rating.h"

#include <QPainter>

namespace korvanel {

namespace {

constexpr int kStripWidth = 220;
constexpr int kStripHeight = 14;
constexpr int kGap = 3;

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
    std::vector<int> widths;
    for (const SuitabilityShare& share : shares)
        widths.push_back(metrics.horizontalAdvance(SuitabilityText(share.width)));
    const std::vector<int> places = LabelPlaces(shares, widths, kStripWidth, 2 * kGap);
    for (std::size_t i = 0; i < shares.size(); ++i) {
        const SuitabilityShare& share = shares[i];
        const QColor colour = ColourOf(RatingColour(share.rating));
        painter.fillRect(QRectF(share.from * kStripWidth, 0, share.width * kStripWidth, kStripHeight), colour);
        painter.setPen(colour);
        painter.drawText(places[i], kStripHeight + kGap + metrics.ascent(), SuitabilityText(share.width));
    }
}

} // namespace korvanel
