// The sets of one of two machines as its table in the report shows them: the same columns for both, and those sets and
// columns greyed that the table leaves out. A click on the head of a column asks for it to be taken in or left out.
#pragma once

#include "data/SetList.h"
#include "data/SetReader.h"

#include <vector>

namespace korvanel {

/// Whether the second machine has gone through the sets as they are. Rows that are there without results are those of
/// another machine or of other sets.
bool HasRowsOfSecondMachine();

class PrintedList : public SetList
{
    Q_OBJECT

public:
    /// `index` is 0 for the measured machine and 1 for the other one.
    explicit PrintedList(int index);

signals:
    /// The head of the column of a quantity.
    void HeadClicked(int quantity);

protected:
    std::span<const qint16> Columns() const override;
    bool Visit(qint32 first, qint32 last, const std::function<bool(const ShownSet&)>& visit) override;
    void FillHead() override;
    void FillRow(int row, const QString& number, const ShownSet& shown) override;

private:
    struct Printed
    {
        bool isKnown = true; ///< the sets hold it
        bool isOn = true;
    };

    SetSource source;
    std::vector<qint16> columns;
    std::vector<Printed> states; ///< of the columns
};

} // namespace korvanel
