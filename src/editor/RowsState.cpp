#include "editor/RowsState.h"

#include "core/Common.h"

namespace korvanel {

RowsState RowsState::OfBlock()
{
    const ApplicationBlock& app = App();
    return {.set = app.iCurrentSet,
            .marked = app.lMarkedSets,
            .interval = app.dInterval,
            .term = app.sMeasurementTerm,
            .method = app.iCalcMethod,
            .areEnergiesOutdated = app.bEnergiesOutdated};
}

void RowsState::PutBack() const
{
    ApplicationBlock& app = App();
    app.iCurrentSet = set;
    app.lMarkedSets = marked;
    app.dInterval = interval;
    app.sMeasurementTerm = term;
    app.iCalcMethod = method;
    app.bEnergiesOutdated = areEnergiesOutdated;
}

} // namespace korvanel
