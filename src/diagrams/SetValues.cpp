#include "diagrams/SetValues.h"

#include "core/Common.h"
#include "core/NetConfigurations.h"
#include "core/QuantityTable.h"

#include <QElapsedTimer>
#include <QFileInfo>

#include <algorithm>
#include <limits>
#include <numeric>

namespace korvanel {

namespace {

constexpr qint32 kMostOfABlock = 4096;
constexpr qint32 kSetsBetweenLooks = 64; // at the clock
constexpr double kMissing = std::numeric_limits<double>::quiet_NaN();

} // namespace

void SetValues::Drop()
{
    for (std::vector<double>& column : columns)
        column = {};
    hasHoles = false;
}

qsizetype SetValues::Kept() const
{
    return std::accumulate(columns.begin(), columns.end(), qsizetype(0),
                           [](qsizetype sum, const auto& column) { return sum + std::ssize(column); });
}

SetValues::Origin SetValues::Present()
{
    const QFileInfo file(App().sProjectPath);
    return {.path = App().sProjectPath,
            .changed = file.lastModified(),
            .size = file.size(),
            .sets = App().iSetCount,
            .netConf = App().iNetConfIndex,
            .recording = App().lRecordingState};
}

void SetValues::Prepare(std::span<const int> quantities)
{
    Origin present = Present();
    if (present != origin)
        Drop();
    origin = std::move(present);
    const auto isWanted = [&](std::size_t quantity) {
        return std::ranges::find(quantities, static_cast<int>(quantity)) != quantities.end();
    };
    const qsizetype wanted = origin.sets * std::ssize(quantities);
    for (std::size_t quantity = 0; quantity < columns.size(); ++quantity)
        if (!isWanted(quantity) && Kept() + wanted > mostKept)
            columns.at(quantity) = {};
    const qsizetype others = std::accumulate(quantities.begin(), quantities.end(), Kept(), [&](qsizetype sum, int q) {
        return sum - std::ssize(columns.at(static_cast<std::size_t>(q)));
    });
    mostOfEach =
        quantities.empty() ? 0 : std::min<qsizetype>(origin.sets, (mostKept - others) / std::ssize(quantities));
    for (const int quantity : quantities) {
        std::vector<double>& column = columns.at(static_cast<std::size_t>(quantity));
        if (std::ssize(column) > mostOfEach)
            column = {}; // it had more room when fewer were drawn
        column.reserve(static_cast<std::size_t>(mostOfEach));
    }
}

SetValues::Walk::Walk(SetValues& ofValues, std::span<const int> ofQuantities, qint32 first, qint32 lastSet)
    : values(ofValues), quantities(ofQuantities.begin(), ofQuantities.end()), next(first), last(lastSet),
      buffers(ofQuantities.size())
{
    values.Prepare(quantities);
}

void SetValues::Walk::BeginStretch()
{
    read.clear();
    std::vector<int> wanted;
    stretchEnd = last;
    for (std::size_t place = 0; place < quantities.size(); ++place) {
        const auto kept = static_cast<qint32>(Column(place).size());
        if (kept >= next) {
            stretchEnd = std::min(stretchEnd, kept);
        } else {
            read.push_back(place);
            wanted.push_back(quantities[place]);
        }
    }
    reader.reset();
    if (read.empty())
        return;
    if (!db)
        db = std::make_unique<TableDb>(TableDb::Open(values.origin.path));
    reader = std::make_unique<SetReader>(*db, values.origin.netConf, SetRange::Between, values.source, wanted);
    reader->Seek(next, stretchEnd);
    waiting.reset();
}

bool SetValues::Walk::Next(ValueBlock& block, int milliseconds)
{
    if (next > last) {
        reader.reset();
        db.reset();
        return false;
    }
    if (next > stretchEnd)
        BeginStretch();
    block.firstSet = next;
    block.hasHoles = values.hasHoles;
    block.count = std::min(kMostOfABlock, stretchEnd - next + 1);
    if (!read.empty())
        Read(block, milliseconds);
    block.values.assign(quantities.size(), nullptr);
    for (const std::size_t place : read)
        block.values[place] = buffers[place].data();
    for (std::size_t place = 0; place < quantities.size(); ++place)
        if (!block.values[place])
            block.values[place] = Column(place).data() + next - 1;
    next += block.count;
    return true;
}

void SetValues::Walk::Keep(std::size_t place)
{
    std::vector<double>& column = Column(place);
    const std::vector<double>& buffer = buffers[place];
    const qsizetype overlap = std::ssize(column) - (next - 1);
    const qsizetype room = values.mostOfEach - std::ssize(column);
    if (overlap < 0 || overlap > std::ssize(buffer))
        return; // there are sets between what is kept and these
    const qsizetype kept = std::min(std::ssize(buffer) - overlap, room);
    column.insert(column.end(), buffer.begin() + overlap, buffer.begin() + overlap + kept);
}

void SetValues::Walk::Read(ValueBlock& block, int milliseconds)
{
    QElapsedTimer timer;
    timer.start();
    for (const std::size_t place : read)
        buffers[place].clear();
    qint32 done = 0;
    for (; done < block.count; ++done) {
        if (done % kSetsBetweenLooks == 0 && done > 0 && timer.elapsed() >= milliseconds)
            break;
        const qint32 set = next + done;
        if (!waiting) {
            if (reader->Step()) {
                waiting = reader->Set();
                reader->FillInto(row);
            } else {
                waiting = std::numeric_limits<qint32>::max();
            }
        }
        const bool isThere = *waiting == set;
        for (const std::size_t place : read)
            buffers[place].push_back(isThere ? QuantityOf(quantities[place]).field(row) : kMissing);
        if (isThere)
            waiting.reset();
        else
            block.hasHoles = true;
    }
    block.count = done;
    for (const std::size_t place : read)
        Keep(place);
    values.hasHoles = values.hasHoles || block.hasHoles;
}

} // namespace korvanel
