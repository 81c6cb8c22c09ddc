// The sets of the recording with what both machines did in them: what they have in common, then the values of the
// measured machine beside those of the other one, each in the colour of its rating.
#pragma once

#include "data/SetGrid.h"

#include <map>

namespace korvanel {

class ComparisonGrid : public SetGrid
{
    Q_OBJECT

public:
    ComparisonGrid();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool Visit(qint32 first, qint32 last, const std::function<bool(const ShownSet&)>& visit) override;
    void FillHead() override;
    void SetWidths() override;
    void FillRow(int row, const QString& number, const ShownSet& shown) override;
    void ClearRow(int row) override;

private:
    std::map<qint32, tValueRow> simulated; ///< of the sets in view
};

} // namespace korvanel
