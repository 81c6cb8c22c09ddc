#include "output/ReportPreview.h"

#include "core/ProjectDb.h"
#include "core/texts/FormF9Texts.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace korvanel {

namespace {

constexpr int kMargin = 6;
constexpr int kPagesKept = 12;
constexpr double kZoomStep = 1.25;
constexpr double kMostZoom = 6;

} // namespace

ReportPreview::ReportPreview() : drawn(kPagesKept)
{
    setObjectName(QStringLiteral("Preview"));
    setAccessibleName(texts::printPreview);
    setFocusPolicy(Qt::StrongFocus);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    viewport()->setBackgroundRole(QPalette::Mid);
    viewport()->setAutoFillBackground(true);
    drawing.setSingleShot(true);
    connect(&drawing, &QTimer::timeout, this, [this] { DrawNext(); });
}

void ReportPreview::Show(const Report& ofReport, const QString& ifEmpty)
{
    const int page = PageInView();
    report = std::make_unique<Report>(ofReport);
    emptyText = ifEmpty;
    complaint.clear();
    drawn.clear();
    Arrange();
    if (page > 0 && page != PageInView())
        ShowPage(std::min(page, PageCount()));
    viewport()->update();
    emit Moved();
}

QSize ReportPreview::PageSize() const
{
    const double width = std::max(40, viewport()->width() - 2 * kMargin) * zoom;
    return {static_cast<int>(width), static_cast<int>(width * kPaper.height() / kPaper.width())};
}

int ReportPreview::PageStep() const
{
    return PageSize().height() + kMargin;
}

QRect ReportPreview::PlaceOf(int page) const
{
    const qint64 top = kMargin + static_cast<qint64>(page - 1) * PageStep() - verticalScrollBar()->value();
    return {QPoint(kMargin - horizontalScrollBar()->value(), static_cast<int>(top)), PageSize()};
}

std::pair<int, int> ReportPreview::PagesInView() const
{
    if (PageCount() == 0)
        return {1, 0};
    const int first = verticalScrollBar()->value() / PageStep() + 1;
    const int last = (verticalScrollBar()->value() + viewport()->height() - kMargin) / PageStep() + 1;
    return {std::clamp(first, 1, PageCount()), std::clamp(last, 1, PageCount())};
}

int ReportPreview::PageInView() const
{
    if (PageCount() == 0)
        return 0;
    const qint64 middle = static_cast<qint64>(verticalScrollBar()->value()) + viewport()->height() / 2;
    return std::clamp(static_cast<int>(middle / PageStep()) + 1, 1, PageCount());
}

void ReportPreview::Arrange()
{
    // A bar counts in whole numbers of 32 bits; pages beyond that are out of its reach.
    const qint64 height = kMargin + static_cast<qint64>(PageCount()) * PageStep();
    const auto reach = static_cast<int>(std::min<qint64>(height, std::numeric_limits<int>::max()));
    verticalScrollBar()->setRange(0, std::max(0, reach - viewport()->height()));
    verticalScrollBar()->setPageStep(std::min(viewport()->height(), PageStep()));
    verticalScrollBar()->setSingleStep(PageStep() / 10);
    horizontalScrollBar()->setRange(0, std::max(0, PageSize().width() + 2 * kMargin - viewport()->width()));
    horizontalScrollBar()->setPageStep(viewport()->width());
}

void ReportPreview::ShowPage(int page)
{
    verticalScrollBar()->setValue(
        static_cast<int>(std::min<qint64>(static_cast<qint64>(page - 1) * PageStep(), verticalScrollBar()->maximum())));
}

bool ReportPreview::IsDrawn() const
{
    const auto [first, last] = PagesInView();
    for (int page = first; page <= last; ++page)
        if (!drawn.contains(page))
            return false;
    return true;
}

void ReportPreview::Zoom(int steps)
{
    const int page = PageInView();
    zoom = std::clamp(zoom * std::pow(kZoomStep, steps), 1.0, kMostZoom);
    drawn.clear();
    Arrange();
    if (page > 0)
        ShowPage(page);
    viewport()->update();
}

/// One page, so that keys and mouse are answered between two. What has to be read before is read in steps.
void ReportPreview::DrawNext()
{
    constexpr int kMilliseconds = 15;
    if (!complaint.isEmpty())
        return;
    const auto [first, last] = PagesInView();
    for (int page = first; page <= last; ++page) {
        if (drawn.contains(page))
            continue;
        try {
            WithDbErrors([&] {
                if (report->Prepare(page, kMilliseconds))
                    drawn.insert(page, new QPixmap(Drawn(page)));
            });
        } catch (const DbError& error) {
            complaint = texts::printCannotRead + u'\n' + QString::fromUtf8(error.what());
        }
        viewport()->update();
        return; // painting asks for the next one
    }
}

QPixmap ReportPreview::Drawn(int page) const
{
    const double ratio = devicePixelRatioF();
    QPixmap pixmap((QSizeF(PageSize()) * ratio).toSize());
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::white);
    QPainter painter(&pixmap);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    const double scale = PageSize().width() / kPaper.width() / kUnitsPerMillimetre;
    painter.scale(scale, scale);
    PainterPaper paper(painter, report->Fonts());
    report->DrawPage(paper, page);
    return pixmap;
}

void ReportPreview::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(viewport());
    const QString told = !complaint.isEmpty() ? complaint : PageCount() == 0 ? emptyText : QString();
    if (!told.isEmpty()) {
        painter.drawText(viewport()->rect().adjusted(kMargin, kMargin, -kMargin, -kMargin),
                         Qt::AlignCenter | Qt::TextWordWrap, told);
        return;
    }
    const auto [first, last] = PagesInView();
    bool isComplete = true;
    for (int page = first; page <= last; ++page) {
        const QRect place = PlaceOf(page);
        if (const QPixmap* pixmap = drawn.object(page)) {
            painter.drawPixmap(place.topLeft(), *pixmap);
        } else {
            painter.fillRect(place, Qt::white);
            painter.setPen(Qt::darkGray);
            painter.drawText(place, Qt::AlignCenter, texts::printReading);
            isComplete = false;
        }
    }
    if (!isComplete)
        drawing.start(0);
}

void ReportPreview::resizeEvent(QResizeEvent* event)
{
    QAbstractScrollArea::resizeEvent(event);
    drawn.clear();
    Arrange();
    emit Moved();
}

void ReportPreview::scrollContentsBy(int /*dx*/, int /*dy*/)
{
    viewport()->update();
    emit Moved();
}

void ReportPreview::wheelEvent(QWheelEvent* event)
{
    if (event->modifiers() & Qt::ControlModifier)
        Zoom(event->angleDelta().y() > 0 ? 1 : -1);
    else
        QAbstractScrollArea::wheelEvent(event);
}

void ReportPreview::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_PageDown:
        ShowPage(std::min(PageInView() + 1, PageCount()));
        return;
    case Qt::Key_PageUp:
        ShowPage(std::max(PageInView() - 1, 1));
        return;
    case Qt::Key_Home:
        ShowPage(1);
        return;
    case Qt::Key_End:
        ShowPage(PageCount());
        return;
    case Qt::Key_Plus:
        Zoom(1);
        return;
    case Qt::Key_Minus:
        Zoom(-1);
        return;
    default:
        QAbstractScrollArea::keyPressEvent(event);
    }
}

} // namespace korvanel
