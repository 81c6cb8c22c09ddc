// The pages of a report on the screen as they will be printed, one under another. Only those in view are drawn, one at
// a time, so that a report of many thousand pages is there at once.
#pragma once

#include "output/Report.h"

#include <QAbstractScrollArea>
#include <QCache>
#include <QPixmap>
#include <QTimer>

#include <memory>

namespace korvanel {

class ReportPreview : public QAbstractScrollArea
{
    Q_OBJECT

public:
    ReportPreview();

    /// Shows a report, from the page on that was in view.
    void Show(const Report& ofReport, const QString& ifEmpty);
    /// The page in the middle of the view, from 1 on; 0 without pages.
    int PageInView() const;
    int PageCount() const { return report ? report->PageCount() : 0; }
    void ShowPage(int page);
    /// Whether all pages in view are drawn.
    bool IsDrawn() const;
    /// Larger by a step, or smaller where it is negative; the smallest size fits the width.
    void Zoom(int steps);

signals:
    void Moved();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QSize PageSize() const;
    int PageStep() const; ///< pixels from one page to the next
    QRect PlaceOf(int page) const;
    std::pair<int, int> PagesInView() const;
    void Arrange();
    void DrawNext();
    QPixmap Drawn(int page) const;

    std::unique_ptr<Report> report;
    QString emptyText;
    QString complaint; ///< why pages can't be drawn
    QCache<int, QPixmap> drawn;
    QTimer drawing;
    double zoom = 1;
};

} // namespace korvanel
