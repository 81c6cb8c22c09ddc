// Changing the interval of a recording: all sets are made anew from a copy of them.
#include "core/Common.h"
#include "core/NumberText.h"
#include "core/ProjectDb.h"
#include "core/texts/DefaultTexts.h"
#include "data/ComputedQuantities.h"
#include "data/RowWriter.h"
#include "data/SetReader.h"
#include "editor/EntryColumns.h"
#include "editor/RowChange.h"
#include "editor/RowOperations.h"
#include "editor/SetMoves.h"
#include "editor/ToldChange.h"

#include <SQLiteCpp/Statement.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>

namespace korvanel {

namespace {

void DropScratchTable()
{
    DropRecordsets();
    ProjectDb().DropTable(QStringLiteral("Temp"));
}

/// A copy of all sets in a table of its own, for as long as the sets are made anew from it.
void MakeScratchTable()
{
    DropScratchTable(); // one that somebody has left
    std::string columns = "SampledValues.[Set] AS [SampledValues_Set], ComputedValues.[Set] AS [ComputedValues_Set], "
                          "SampledValues.[Time] AS [Time]";
    for (const ValueTable table : kRowTables)
        columns += ColumnsWithoutStamp(table);
    ProjectDb().Handle().exec("CREATE TABLE [Temp] AS SELECT " + columns + " FROM " + kMeasuredJoin);
    ProjectDb().Handle().exec("CREATE UNIQUE INDEX [TempSets] ON [Temp] ([SampledValues_Set])");
}

double RoundedTime(double seconds)
{
    constexpr double kHundredths = 100;
    return RoundTo(seconds, kHundredths);
}

/// Number of sets that the recording has at an interval. Throws DbError for more than can be numbered.
qint32 CountAt(double interval)
{
    SQLite::Statement query(ProjectDb().Handle(), "SELECT [t] FROM SampledValues ORDER BY [Set] DESC LIMIT 1");
    const double lastTime = query.executeStep() ? query.getColumn(0).getDouble() : 0;
    const double count = std::floor(lastTime / interval) + 1;
    if (!(count < std::numeric_limits<qint32>::max()))
        throw DbError(texts::timeOutOfRange.toStdString());
    return std::max(1, static_cast<qint32>(count));
}

/// The same before anything is opened; none where the operation itself will tell why.
qint32 ExpectedCount(double interval)
{
    try {
        const ProjectDbScope scope;
        return WithDbErrors([interval] { return CountAt(interval); });
    } catch (const DbError&) {
        return 0;
    }
}

/// Makes so many sets anew from the scratch table. If its rows run out, those made so far are all.
void ResampleAll(double interval, qint32 count)
{
    SetReader reader(ProjectDb(), App().iNetConfIndex, SetRange::All, SetSource::Scratch);
    RowWriter writer(ProjectDb(), App().iNetConfIndex, RowOrigin::ByHand);
    tValueRow& row = App().CurrentRow;
    const auto append = [&](qint32 set) {
        row.dWp = row.dWpPlus = row.dWpMinus = row.dWq = 0;
        writer.Append(row, {.set = set, .time = {}, .mark = kCorrected});
        TellProgress(set);
    };
    if (!reader.Next())
        return;
    tValueRow before = reader.Row();
    tValueRow behind = before;
    row = before;
    append(1);
    for (qint32 set = 2; set <= count; ++set) {
        const double time = row.dt + interval;
        while (behind.dt < time) {
            before = behind;
            if (!reader.Next())
                return;
            behind = reader.Row();
        }
        const double fraction = behind.dt > before.dt ? (time - before.dt) / (behind.dt - before.dt) : 0;
        row = behind;
        const auto interpolate = [&](RowField field) {
            field(row) = field(before) + fraction * (field(behind) - field(before));
        };
        std::for_each(kInterpolated.begin(), kInterpolated.end(), interpolate);
        interpolate(Element<&tValueRow::dPhi, kSum>);
        row.dt = RoundedTime(time);
        ComputeRow(true);
        append(set);
    }
}

void Resample(double interval)
{
    App().dInterval = interval;
    const qint32 count = CountAt(interval);
    MakeScratchTable();
    for (const ValueTable table : kRowTables)
        ProjectDb().Handle().exec(std::string("DELETE FROM ") + TableName(table));
    ResampleAll(interval, count);
    DropScratchTable();
    App().iCurrentSet = App().lMarkedSets = 1;
}

} // namespace

bool ResampleInterval(double interval)
{
    return ChangeRows(
        {.sets = std::max(App().iSetCount, ExpectedCount(interval)), .work = [interval] { Resample(interval); }});
}

} // namespace korvanel
