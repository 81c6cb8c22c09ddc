#include "evaluation/WindowTail.h"

#include "core/NumberText.h"
#include "core/Texts.h"
#include "data/RowQuantities.h"

namespace korvanel {

WindowValues WindowValuesOf(const tValueRow& row)
{
    WindowValues values;
    for (int channel = 0; channel < kLossChannel; ++channel)
        values[static_cast<std::size_t>(channel)] = QuantityValue(row, channel);
    return values;
}

void KeptTail::Push(const WindowValues& values)
{
    if (ring.size() < capacity)
        ring.push_back(values);
    else
        ring[newest] = values;
    newest = (newest + 1) % capacity;
}

WindowValues KeptTail::Pop()
{
    const WindowValues values = ring.at(oldest);
    oldest = (oldest + 1) % capacity;
    return values;
}

WindowValues RereadTail::Pop()
{
    if (!cursor)
        cursor.emplace(db, netConf, source);
    if (!cursor->Next(row))
        throw DbError(FillPlaceholders(Texts().noSuchSet, {QString::number(cursor->Set())}).toStdString());
    return WindowValuesOf(row);
}

} // namespace korvanel
