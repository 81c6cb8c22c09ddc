#include "data/SampleGrid.h"

#include "core/Colour.h"
#include "core/texts/FormF4Texts.h"

#include <QTableWidget>

namespace korvanel {

SampleGrid::SampleGrid(int shown) : HeadedSetGrid("flxvalues", shown, App().MeasureGrid, texts::presentValue) {}

void SampleGrid::ShowPresent(const tValueRow& row, const std::function<bool(int)>& isGood)
{
    ShowInHead(row, {}); // not stored, so without a time stamp
    for (int i = 0; i < Head().columnCount(); ++i) {
        const int column = App().ColumnLayout[static_cast<std::size_t>(i)];
        const bool isBad = column >= 0 && !isGood(column);
        Head().item(0, i)->setBackground(isBad ? QBrush(ColourOf(kBadCellColour)) : QBrush());
        Head().item(0, i)->setForeground(isBad ? QBrush(Qt::black) : QBrush());
    }
}

void SampleGrid::ClearPresent()
{
    ClearHead();
    for (int i = 0; i < Head().columnCount(); ++i)
        Head().item(0, i)->setBackground({});
}

} // namespace korvanel
