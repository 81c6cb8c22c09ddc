// A small picture of the whole recording: voltages, current and power over the sets, the marked sets on a coloured
// ground. It is drawn in steps between the events. What is read is given back after each step, so that the file is free
// for whoever wants to write it.
#pragma once

#include "diagrams/DiagramDrawing.h"

#include <QImage>
#include <QTimer>
#include <QWidget>

#include <map>
#include <memory>
#include <optional>
#include <utility>

namespace korvanel {

class OverviewDiagram : public QWidget
{
    Q_OBJECT

public:
    OverviewDiagram();
    ~OverviewDiagram() override;

    /// Draws the sets of the project anew.
    void ShowRecording();
    /// Stops reading, so that the file is free; what is drawn stays.
    void Stop();
    bool IsGoingOn() const { return steps.isActive(); }
    void ShowMarks(qint32 first, qint32 count);
    /// Shows what lies around the marks instead of the whole.
    void SetCloseUp(bool isSo);

signals:
    /// The user has marked sets in the picture.
    void SetsChosen(qint32 first, qint32 count);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    void GoOn();
    /// Goes on with the least and greatest values.
    void FindExtremes();
    void BeginDrawing();
    DiagramView ViewWanted() const;
    double ScaleEndOf(int quantity) const;
    QRect PictureRect() const;
    qint32 SetAt(QPointF position) const;
    void PaintMarks(QPainter& painter) const;
    void PaintLabels(QPainter& painter) const;

    SetValues values;
    std::vector<int> quantities;
    std::map<int, std::pair<double, double>> extremes; ///< by quantity
    qint32 seenTo = 0;                                 ///< last set whose values are among them
    qint32 count = 0;                                  ///< of sets
    std::unique_ptr<DiagramDrawing> drawing;           ///< that is going on
    std::optional<DiagramMapping> mapping;             ///< of the picture
    QImage picture;
    QTimer steps;
    qint32 firstMarked = 1;
    qint32 markedCount = 0;
    bool isCloseUp = false;
    qint32 pressedSet = 0;
};

} // namespace korvanel
