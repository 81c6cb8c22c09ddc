// The drawing that is in view on a panel. It goes on in steps between the events, so that the window stays alive.
#pragma once

#include "diagrams/DiagramDrawing.h"

#include <QImage>
#include <QObject>
#include <QTimer>

#include <memory>

class QPainter;

namespace korvanel {

class DiagramPanel;

class SteppedDrawing : public QObject
{
    Q_OBJECT

public:
    /// `title` heads the message if a step fails.
    SteppedDrawing(DiagramPanel& on, QString title);
    ~SteppedDrawing() override;

    /// Draws a view of the sets 1 to `count` in place of what is in view. What is not complete within one step goes on
    /// by itself: then `Locked` is emitted, and again when it ends. `simulated` are curves of the second machine.
    void Begin(const std::vector<DiagramCurve>& curves, std::vector<DiagramCurve> simulated, const DiagramView& view,
               qint32 count);
    /// Stops where it is; what is drawn stays in view.
    void End();
    bool IsGoingOn() const { return isGoingOn; }
    /// The drawing in view, complete or not; null before the first.
    const DiagramDrawing* InView() const { return drawing.get(); }
    SetValues& Values() { return values; }
    SetValues& SimulatedValues() { return simulatedValues; }

signals:
    /// The drawing has its view, before the first step.
    void Placed();
    void Locked(bool isLocked);

private:
    void GoOn();
    void UseElements(QPainter& painter) const;

    DiagramPanel& panel;
    QString title;
    SetValues values;
    SetValues simulatedValues{SetSource::Simulated};
    std::unique_ptr<DiagramDrawing> drawing;
    QImage picture;
    QTimer steps;
    bool isGoingOn = false;
    bool isInStep = false; ///< events that are handled within a step begin no other
    bool isLocked = false;
};

} // namespace korvanel
