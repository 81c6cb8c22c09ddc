#include "data/RowOperations.h"

#include "core/Common.h"
#include "core/Messages.h"
#include "core/NumberText.h"
#include "core/ProjectDb.h"
#include "core/texts/DefaultTexts.h"
#include "data/ComputedQuantities.h"
#include "data/PassOverSets.h"
#include "data/RowWriter.h"
#include "data/SetReader.h"
#include "data/SetRewriter.h"
#include "data/ValueTables.h"

#include <SQLiteCpp/Statement.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <functional>
#include <string>

namespace korvanel {

namespace {

constexpr std::array kEditedTables{ValueTable::Sampled, ValueTable::Computed};
constexpr qint32 kSetsBetweenNews = 1000; // of the progress

/// Does the work as a whole or not at all. The buffers of the block may hold anything after a failure.
bool AsAWhole(const std::function<void()>& work)
{
    bool isDone = true;
    try {
        PassOverSets([&] {
            DropRecordsets(); // they may be prepared for rows that will stand elsewhere
            DbTransaction transaction(ProjectDb());
            WithDbErrors(work);
            transaction.Commit();
        });
    } catch (const DbError& error) {
        isDone = false;
        ++App().iFileErrors;
        ShowError(texts::cannotWriteFile + u'\n' + QString::fromUtf8(error.what()) + u'.');
    }
    RecordingChanged();
    RefreshSetCount();
    return isDone;
}

void Tell(qint32 done)
{
    if (done % kSetsBetweenNews == 0)
        AdvanceOverSets(done);
}

bool AreThere(qint32 first, qint32 count)
{
    SQLite::Statement query(ProjectDb().Handle(), std::string("SELECT COUNT(*) FROM ") + kMeasuredJoin +
                                                      " WHERE SampledValues.[Set] BETWEEN ? AND ?");
    query.bind(1, first);
    query.bind(2, static_cast<std::int64_t>(first) + count - 1);
    query.executeStep();
    return query.getColumn(0).getInt() == count;
}

/// Gives the sets `first` to `last` other numbers. The end toward which they move goes first, so that no number is
/// there twice.
void MoveSets(qint32 first, qint32 last, qint32 by)
{
    for (const ValueTable table : kEditedTables) {
        SQLite::Statement update(ProjectDb().Handle(),
                                 std::string("UPDATE [") + TableName(table) + "] SET [Set]=? WHERE [Set]=?");
        for (qint32 done = 0; done <= last - first; ++done) {
            const qint32 set = by > 0 ? last - done : first + done;
            update.bind(1, set + by);
            update.bind(2, set);
            update.exec();
            update.reset();
            Tell(done);
        }
    }
}

/// All columns of a table but its key and the time stamp, in brackets.
std::string CopiedColumns(ValueTable table)
{
    std::string columns;
    SQLite::Statement info(ProjectDb().Handle(), std::string("PRAGMA table_info(") + TableName(table) + ")");
    while (info.executeStep()) {
        const std::string name = info.getColumn(1).getString();
        if (name != "Set" && name != "Time")
            columns += ", [" + name + ']';
    }
    return columns;
}

/// Puts copies of sets, whose numbers are `by` higher, in front of them.
void CopySets(qint32 first, qint32 count, qint32 by)
{
    for (const ValueTable table : kEditedTables) {
        const std::string name = TableName(table);
        const std::string columns = CopiedColumns(table); // the time stamp, which isn't among them, becomes null
        std::string sql = "INSERT INTO [";
        sql.append(name).append("] ([Set]").append(columns).append(") SELECT [Set]-?").append(columns);
        sql.append(" FROM [").append(name).append("] WHERE [Set] BETWEEN ? AND ?");
        SQLite::Statement copy(ProjectDb().Handle(), sql);
        copy.bind(1, by);
        copy.bind(2, first + by);
        copy.bind(3, first + by + count - 1);
        copy.exec();
    }
}

void DeleteRows(qint32 first, qint32 count)
{
    for (const ValueTable table : kEditedTables) {
        SQLite::Statement remove(ProjectDb().Handle(),
                                 std::string("DELETE FROM [") + TableName(table) + "] WHERE [Set] BETWEEN ? AND ?");
        remove.bind(1, first);
        remove.bind(2, first + count - 1);
        remove.exec();
    }
}

void RenumberAll()
{
    static constexpr int kTime[] = {kColumnTime};
    static constexpr int kNumberAlone[] = {kU};
    ChosenColumns target(ProjectDb(), App().iNetConfIndex, kTime);
    RewriteSets(
        ProjectDb(), App().iNetConfIndex, {.source = SetSource::Sampled, .quantities = kNumberAlone}, target,
        [](qint64 set, tValueRow& row) { row.dt = static_cast<double>(set - 1) * App().dInterval; }, AdvanceOverSets);
}

/// The quantities that are entered, and laid between others.
constexpr std::array<double& (*)(tValueRow&), 4> kEntered{Element<&tValueRow::dU, kSum>, Element<&tValueRow::dI, kSum>,
                                                          Single<&tValueRow::df>, Element<&tValueRow::dP, kSum>};

/// Reads one set into a row; false if there is none.
bool ReadInto(SetReader& reader, qint64 set, tValueRow& row)
{
    reader.Seek(set);
    const bool isThere = reader.Step();
    if (isThere)
        reader.FillInto(row);
    reader.Release();
    return isThere;
}

} // namespace

bool InsertSets(qint32 first)
{
    const qint32 count = App().lMarkedSets;
    return AsAWhole([first, count] {
        if (count < 1 || !AreThere(first, count))
            return;
        MoveSets(first, CountSets(), count);
        CopySets(first, count, count);
        RenumberAll();
    });
}

bool DeleteSets(qint32 first)
{
    const qint32 count = App().lMarkedSets;
    return AsAWhole([first, count] {
        if (count < 1 || !AreThere(first, count))
            return;
        const qint32 all = CountSets();
        DeleteRows(first, count);
        MoveSets(first + count, all, -count);
        RenumberAll();
    });
}

bool InterpolateSets()
{
    const qint32 first = App().iCurrentSet;
    const qint32 count = App().lMarkedSets;
    if (count < 1 || first < 2 || first + count - 1 >= App().iSetCount)
        return true;
    return AsAWhole([first, count] {
        SetReader reader(ProjectDb(), App().iNetConfIndex, SetRange::One);
        RowUpdater updater(ProjectDb(), App().iNetConfIndex);
        tValueRow before;
        tValueRow behind;
        if (!ReadInto(reader, first - 1, before) || !ReadInto(reader, first + count, behind))
            return;
        std::array<double, kEntered.size()> steps{};
        for (std::size_t i = 0; i < kEntered.size(); ++i)
            steps.at(i) = (kEntered.at(i)(behind) - kEntered.at(i)(before)) / (count + 1);
        tValueRow& row = App().CurrentRow;
        for (qint32 set = first; set < first + count; ++set) {
            if (!ReadInto(reader, set, row))
                return;
            for (std::size_t i = 0; i < kEntered.size(); ++i)
                kEntered.at(i)(row) = kEntered.at(i)(before) += steps.at(i);
            ComputeRow(true);
            updater.Update(row, set);
            Tell(set - first);
        }
    });
}

bool RenumberTime()
{
    return AsAWhole(RenumberAll);
}

namespace {

/// A copy of all sets in a table of its own, for as long as the sets are made anew from it.
class ScratchTable
{
public:
    ScratchTable()
    {
        ProjectDb().DropTable(QStringLiteral("Temp")); // one that somebody has left
        std::string columns =
            "SampledValues.[Set] AS [SampledValues_Set], ComputedValues.[Set] AS [ComputedValues_Set], "
            "SampledValues.[Time] AS [Time]";
        for (const ValueTable table : kEditedTables)
            columns += CopiedColumns(table);
        ProjectDb().Handle().exec("CREATE TABLE [Temp] AS SELECT " + columns + " FROM " + kMeasuredJoin);
        ProjectDb().Handle().exec("CREATE UNIQUE INDEX [TempSets] ON [Temp] ([SampledValues_Set])");
    }
    void Drop() { ProjectDb().DropTable(QStringLiteral("Temp")); }
};

double RoundedTime(double seconds)
{
    constexpr double kHundredths = 100;
    return RoundTo(seconds, kHundredths);
}

/// Makes the sets anew from the scratch table.
void ResampleAll(double interval)
{
    SetReader reader(ProjectDb(), App().iNetConfIndex, SetRange::All, SetSource::Scratch);
    RowWriter writer(ProjectDb(), App().iNetConfIndex, RowOrigin::ByHand);
    tValueRow& row = App().CurrentRow;
    const auto append = [&](qint32 set) {
        row.dWp = row.dWpPlus = row.dWpMinus = row.dWq = 0;
        writer.Append(row, {.set = set, .time = {}, .mark = kCorrected});
        Tell(set);
    };
    if (!reader.Next())
        return;
    tValueRow before = reader.Row();
    tValueRow behind = before;
    row = before;
    append(1);
    double time = before.dt;
    for (qint32 set = 2;; ++set) {
        time += interval;
        while (behind.dt < time) {
            before = behind;
            if (!reader.Next())
                return; // what has been made so far stays
            behind = reader.Row();
        }
        const double fraction = behind.dt > before.dt ? (time - before.dt) / (behind.dt - before.dt) : 0;
        for (const auto field : {kEntered[0], kEntered[1], kEntered[2], kEntered[3], Element<&tValueRow::dPhi, kSum>})
            field(row) = field(before) + fraction * (field(behind) - field(before));
        row.dt = RoundedTime(time);
        ComputeRow(true);
        append(set);
    }
}

} // namespace

bool ResampleInterval(double interval)
{
    const double former = App().dInterval;
    App().dInterval = interval;
    bool isDone = false;
    try {
        isDone = AsAWhole([interval] {
            ScratchTable scratch;
            for (const ValueTable table : kEditedTables)
                ProjectDb().Handle().exec(std::string("DELETE FROM ") + TableName(table));
            ResampleAll(interval);
            DropRecordsets();
            scratch.Drop();
        });
    } catch (...) {
        App().dInterval = former;
        throw;
    }
    if (!isDone)
        App().dInterval = former;
    UpdateMeasurementTerm();
    return isDone;
}

bool ApplyEdit()
{
    ComputeRow(true);
    return AsAWhole([] { RowUpdater(ProjectDb(), App().iNetConfIndex).Update(App().CurrentRow, App().iCurrentSet); });
}

bool MakeFirstSet()
{
    tValueRow& row = App().CurrentRow;
    row = {};
    row.dU[kSum] = 380;
    row.dI[kSum] = 1;
    row.df = 50;
    row.dP[kSum] = 100;
    row.dPhi[kSum] = 74.74;
    ComputeRow(true);
    return AsAWhole([&row] {
        RowWriter(ProjectDb(), App().iNetConfIndex, RowOrigin::ByHand)
            .Append(row, {.set = 1, .time = {}, .mark = kCorrected});
    });
}

} // namespace korvanel
