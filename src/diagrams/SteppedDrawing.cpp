#include "diagrams/SteppedDrawing.h"

#include "core/Common.h"
#include "core/Messages.h"
#include "core/Shell.h"
#include "core/texts/DefaultTexts.h"
#include "diagrams/DiagramBox.h"
#include "diagrams/DiagramPanel.h"

#include <QPainter>
#include <QScopedValueRollback>

#include <utility>

namespace korvanel {

namespace {

constexpr int kStepMs = 5; // with what is painted between the steps the window answers every 20 ms

} // namespace

SteppedDrawing::SteppedDrawing(DiagramPanel& on, QString titleOfMessages) : panel(on), title(std::move(titleOfMessages))
{
    steps.setInterval(0);
    connect(&steps, &QTimer::timeout, this, [this] { RunGuarded(title, [this] { GoOn(); }); });
}

SteppedDrawing::~SteppedDrawing() = default;

/// Painting in the elements of the picture box, whose middles are whole numbers.
void SteppedDrawing::UseElements(QPainter& painter) const
{
    const int elementSize = panel.Picture().ElementSize();
    if (elementSize == 1)
        return;
    painter.scale(elementSize, elementSize);
    painter.translate(0.5, 0.5);
}

void SteppedDrawing::Begin(const std::vector<DiagramCurve>& curves, std::vector<DiagramCurve> simulated,
                           const DiagramView& view, qint32 count)
{
    steps.stop();
    const QSize size = panel.Picture().Elements();
    drawing = std::make_unique<DiagramDrawing>(values, curves, view, count, size,
                                               DiagramOverlay{&simulatedValues, std::move(simulated)});
    picture = QImage(size * panel.Picture().ElementSize(), QImage::Format_RGB32);
    picture.fill(Qt::white);
    {
        QPainter painter(&picture);
        UseElements(painter);
        drawing->DrawGrid(painter);
    }
    isGoingOn = true;
    emit Placed();
    GoOn(); // mostly that is all
    if (!isGoingOn)
        return;
    if (!isLocked) {
        isLocked = true;
        emit Locked(true);
        App().TheShell->ShowProgress(Progress::Begin, 0);
    }
    steps.start();
}

void SteppedDrawing::GoOn()
{
    if (!isGoingOn || isInStep)
        return;
    const QScopedValueRollback step(isInStep, true);
    bool isComplete = true;
    QString failure;
    bool isInUse = false;
    try {
        QPainter painter(&picture);
        UseElements(painter);
        isComplete = !drawing->Continue(painter, kStepMs);
    } catch (const DbLocked&) {
        isInUse = true;
    } catch (const DbError& error) {
        failure = QString::fromUtf8(error.what());
    }
    panel.Picture().Show(picture, drawing->Mapping());
    panel.ShowNames(drawing->Ends());
    if (isLocked && !isComplete)
        App().TheShell->ShowProgress(Progress::Advance, drawing->Share());
    if (isComplete)
        End();
    if (isInUse)
        ShowFileInUse(App().sProjectPath);
    else if (!failure.isEmpty())
        ShowError(texts::cannotReadFile + u'\n' + failure);
}

void SteppedDrawing::End()
{
    steps.stop();
    if (!isGoingOn)
        return;
    if (isLocked)
        App().TheShell->ShowProgress(Progress::End, 1); // asks for a refresh, which is none yet
    isGoingOn = false;
    if (isLocked) {
        isLocked = false;
        emit Locked(false);
    }
}

} // namespace korvanel
