// A diagram with its axes: the picture box in the middle, fractions of full scale at its left, numbers and times of the
// sets below, the names of the curves and the values of one of them at its right.
#pragma once

#include "diagrams/DiagramAxes.h"
#include "diagrams/DiagramPicture.h"

#include <QWidget>

#include <vector>

class QLabel;

namespace korvanel {

class DiagramBox;

class DiagramPanel : public QWidget
{
    Q_OBJECT

public:
    DiagramPanel();

    DiagramBox& Picture() const { return *box; }
    /// Puts the axes of a drawing beside the picture.
    void ShowAxes(const DiagramDrawing& drawing);
    /// The values at the right are those of a quantity.
    void ShowValues(const DiagramGrid& grid, const DiagramMapping& mapping, const DiagramCurve& curve);
    void ShowNames(const std::vector<CurveEnd>& ends);

signals:
    /// The picture box has another size.
    void Resized();
    void MenuWanted(QPoint global);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    /// Labels of one axis: as many as there are, the others hidden.
    void Fill(std::vector<QLabel*>& labels, const char* name, const std::vector<AxisLabel>& texts);
    void PlaceBox();

    DiagramBox* box;
    std::vector<QLabel*> fractionLabels;
    std::vector<QLabel*> valueLabels;
    std::vector<QLabel*> setLabels;
    QLabel* quantityLabel;
    std::vector<CurveEnd> ends;
    int elements = 1; ///< rows of the picture to which the ends belong
};

} // namespace korvanel
