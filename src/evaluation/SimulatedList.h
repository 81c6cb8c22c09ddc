// The list of the sets of the second machine, judged by its rating plate.
#pragma once

#include "data/SetList.h"

namespace korvanel {

class SimulatedList : public SetList
{
    Q_OBJECT

public:
    SimulatedList();

protected:
    std::span<const qint16> Columns() const override;
    QString TimeHeading() const override;
    QString TimeOf(const tValueRow& row) const override;
    bool Visit(qint32 first, qint32 last, const std::function<bool(const ShownSet&)>& visit) override;
};

} // namespace korvanel
