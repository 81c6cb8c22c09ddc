#include "evaluation/WindowTail.h"

#include "core/NumberText.h"
#include "core/texts/DefaultTexts.h"
#include "data/RowQuantities.h"

namespace korvanel {

namespace {

constexpr std::array<int, kLossChannel> kChannels{kU, kI, kF, kP, kS, kQ, kCosPhi, kN, kM, kPmech, kEta, kPhi};

} // namespace

WindowValues WindowValuesOf(const tValueRow& row)
{
    WindowValues values;
    for (std::size_t channel = 0; channel < kChannels.size(); ++channel)
        values[channel] = QuantityValue(row, kChannels[channel]);
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
    if (!reader)
        reader.emplace(db, netConf, SetRange::All, source, kChannels);
    if (!reader->Next())
        throw DbError(FillPlaceholders(texts::noSuchSet, {QString::number(reader->Set())}).toStdString());
    return WindowValuesOf(reader->Row());
}

} // namespace korvanel
