// What the block says of the rows, and where the cursor stands in them: an operation that fails or is taken back takes
// this along.
#pragma once

#include <QString>

namespace korvanel {

struct RowsState
{
    qint32 set = 1;    ///< under the cursor
    qint32 marked = 1; ///< sets from there on
    double interval = 1;
    QString term;
    qint16 method = 0;
    bool areEnergiesOutdated = false;

    static RowsState OfBlock();
    void PutBack() const;
};

} // namespace korvanel
