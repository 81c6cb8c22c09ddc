#include "editor/RowOperations.h"

#include "core/Common.h"
#include "core/ProjectDb.h"
#include "data/ComputedQuantities.h"
#include "data/FileManaging.h"
#include "data/Recomputation.h"
#include "data/RowWriter.h"
#include "data/SetReader.h"
#include "data/ValueTables.h"
#include "editor/EntryColumns.h"
#include "editor/RowChange.h"
#include "editor/SetMoves.h"
#include "editor/ToldChange.h"
#include "project/ProjectTransfer.h"

#include <algorithm>
#include <array>

namespace korvanel {

bool InsertSets(qint32 first)
{
    const qint32 count = App().lMarkedSets;
    return ChangeRows({.sets = static_cast<qint64>(App().iSetCount) + count,
                       .isDue = [first, count] { return count > 0 && AreThere(first, count); },
                       .work =
                           [first, count] {
                               MoveSets(first, CountSets(), count);
                               CopySets(first, count, count);
                               RenumberAll();
                           }});
}

bool DeleteSets(qint32 first)
{
    const qint32 count = App().lMarkedSets;
    return ChangeRows({.sets = App().iSetCount,
                       .isDue = [first, count] { return count > 0 && AreThere(first, count); },
                       .work =
                           [first, count] {
                               const qint32 all = CountSets();
                               DeleteRows(first, count);
                               MoveSets(first + count, all, -count);
                               RenumberAll();
                               App().iCurrentSet = std::clamp(first, 1, std::max(1, all - count));
                               App().lMarkedSets = 1;
                           }});
}

namespace {

/// Reads one set, which is there, into a row.
void ReadInto(SetReader& reader, qint64 set, tValueRow& row)
{
    reader.Seek(set);
    reader.Step();
    reader.FillInto(row);
    reader.Release();
}

void LayStraight(qint32 first, qint32 count)
{
    SetReader reader(ProjectDb(), App().iNetConfIndex, SetRange::One);
    RowUpdater updater(ProjectDb(), App().iNetConfIndex);
    tValueRow before;
    tValueRow behind;
    ReadInto(reader, first - 1, before);
    ReadInto(reader, first + count, behind);
    std::array<double, kInterpolated.size()> steps{};
    for (std::size_t i = 0; i < steps.size(); ++i)
        steps.at(i) = (kInterpolated.at(i)(behind) - kInterpolated.at(i)(before)) / (count + 1);
    tValueRow& row = App().CurrentRow;
    for (qint32 set = first; set < first + count; ++set) {
        ReadInto(reader, set, row);
        for (std::size_t i = 0; i < steps.size(); ++i)
            kInterpolated.at(i)(row) = kInterpolated.at(i)(before) += steps.at(i);
        ComputeRow(true);
        updater.Update(row, set);
        TellProgress(set - first);
    }
}

} // namespace

bool InterpolateSets()
{
    const qint32 first = App().iCurrentSet;
    const qint32 count = App().lMarkedSets;
    if (count < 1 || first < 2 || first + count - 1 >= App().iSetCount)
        return true;
    return ChangeRows({.sets = count,
                       .isDue = [first, count] { return AreThere(first - 1, count + 2); },
                       .work = [first, count] { LayStraight(first, count); }});
}

bool RenumberTime()
{
    return ChangeRows({.sets = App().iSetCount, .work = RenumberAll});
}

bool EnterValue(qint32 set, const EntryColumn& column, double value)
{
    App().bProjectDirty = true;
    App().iCurrentSet = set;
    const ProjectDbScope scope;
    if (!ReadRow(set))
        return false;
    Enter(App().CurrentRow, column, value);
    return ApplyEdit();
}

bool ApplyEdit()
{
    ComputeRow(true);
    return ChangeRows({.sets = 1, .work = [] {
                           RowUpdater(ProjectDb(), App().iNetConfIndex).Update(App().CurrentRow, App().iCurrentSet);
                       }});
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
    return ChangeRows({.sets = 1,
                       .energies = EnergiesAfter::Formed,
                       .isDue = [] { return CountSets() == 0; },
                       .work =
                           [&row] {
                               RowWriter(ProjectDb(), App().iNetConfIndex, RowOrigin::ByHand)
                                   .Append(row, {.set = 1, .time = {}, .mark = kCorrected});
                               App().iCurrentSet = App().lMarkedSets = 1;
                           }});
}

bool ChangeMethod(int method)
{
    return ChangeRows(
        {.sets = App().iSetCount, .energies = EnergiesAfter::AsBefore, .hasOwnPass = true, .work = [method] {
             App().iCalcMethod = static_cast<qint16>(method);
             TransferValue(Direction::Write, KeyOf(&App().iCalcMethod));
             EstimateAllRows();
         }});
}

bool FormEnergies()
{
    return ChangeRows({.sets = App().iSetCount,
                       .energies = EnergiesAfter::Formed,
                       .hasOwnPass = true,
                       .isDue = [] { return IntegratesEnergy(App().iNetConfIndex) && CountSets() > 0; },
                       .work = IntegrateAllRows});
}

} // namespace korvanel
