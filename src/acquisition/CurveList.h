// The legend of the online graph: each curve with its colour and the end of its scale. A check box switches the curve,
// as a setting of the project.
#pragma once

#include "acquisition/OnlineCurves.h"

#include <QListWidget>

namespace korvanel {

class CurveList : public QListWidget
{
    Q_OBJECT

public:
    CurveList();
    void Fill(const std::vector<OnlineCurve>& curves);

private:
    static void Switch(const QListWidgetItem& item);
};

} // namespace korvanel
