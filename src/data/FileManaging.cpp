#include "data/FileManaging.h"

#include "core/Clock.h"
#include "core/Common.h"
#include "core/LocalFormats.h"
#include "core/Messages.h"
#include "core/ProjectDb.h"
#include "core/texts/DefaultTexts.h"
#include "data/ComputedQuantities.h"
#include "data/MeasuredRowStore.h"
#include "data/RowWriter.h"
#include "data/SetReader.h"

namespace korvanel {

namespace {

/// Runs a row operation; its failure is told once and counted.
template <typename Routine>
bool RowOperation(const QString& complaint, Routine&& routine)
{
    try {
        routine();
        return true;
    } catch (const std::exception& error) {
        ++App().iFileErrors;
        ShowError(complaint + u'\n' + QString::fromUtf8(error.what()) + u'.');
        return false;
    }
}

/// The recordset in a slot, prepared on first use since the opening.
template <typename Kind, typename... Arguments>
Kind& Prepared(RecordsetSlot slot, Arguments... arguments)
{
    std::unique_ptr<Recordset>& recordset = CurrentRecordset(slot);
    if (auto* present = dynamic_cast<Kind*>(recordset.get()))
        return *present;
    recordset = std::make_unique<Kind>(ProjectDb(), arguments...);
    return static_cast<Kind&>(*recordset);
}

SetReader& PreparedReader(SetSource source)
{
    const RecordsetSlot slot = source == SetSource::Measured  ? RecordsetSlot::ReadRow
                               : source == SetSource::Scratch ? RecordsetSlot::ReadTemp
                                                              : RecordsetSlot::ReadSimulated;
    return Prepared<SetReader>(slot, App().iNetConfIndex, SetRange::One, source);
}

void VisitSource(SetSource source, qint32 first, qint32 last, const std::function<bool(const ShownSet&)>& visit)
{
    SetReader reader(ProjectDb(), App().iNetConfIndex, SetRange::Between, source);
    reader.Seek(first, last);
    while (reader.Next())
        if (!visit({reader.Set(), reader.Row(), DateTimeTextOfStored(reader.StoredTime())}))
            return;
}

} // namespace

void OpenJoinedRecordset()
{
    CurrentRecordset(RecordsetSlot::Write) = std::make_unique<MeasuredRowStore>(ProjectDb(), App().iNetConfIndex);
}

void OpenSimulatedRecordset()
{
    CurrentRecordset(RecordsetSlot::Write) = std::make_unique<SimulatedRowWriter>(ProjectDb());
}

bool AppendMeasuredRow(const std::function<void()>& beside)
{
    EstimateRow(App().MeasuredRow); // a fault in arithmetic ends the run, not only this row
    return RowOperation(texts::cannotWriteFile, [&beside] {
        ApplicationBlock& app = App();
        RecordingChanged();
        tMeasuredRow& row = app.MeasuredRow;
        if (HasRegisters(app.iNetConfIndex))
            FormRelativeEnergies();
        else if (IntegratesEnergy(app.iNetConfIndex))
            StepEnergyOnline();
        const quint8 mark = row.sValidMask == kGoodSample ? 0 : kCorrected;
        Prepared<MeasuredRowStore>(RecordsetSlot::Write, app.iNetConfIndex)
            .Put({.row = static_cast<const tValueRow&>(row),
                  .stamp = {.set = row.lSet,
                            .time = StoredDateText(PresentMoment()),
                            .mark = mark,
                            .isEstimated = IsEstimating()},
                  .beside = beside});
    });
}

qint32 KeptRows()
{
    const auto* store = dynamic_cast<MeasuredRowStore*>(CurrentRecordset(RecordsetSlot::Write).get());
    return store == nullptr ? 0 : store->Kept();
}

bool StoreKeptRows()
{
    return KeptRows() == 0 || RowOperation(texts::cannotWriteFile, [] {
               static_cast<MeasuredRowStore&>(*CurrentRecordset(RecordsetSlot::Write)).StoreKept();
           });
}

bool AppendRow(qint32 set)
{
    return RowOperation(texts::cannotWriteFile, [set] {
        RecordingChanged();
        tValueRow row = App().CurrentRow;
        row.dWp = row.dWpPlus = row.dWpMinus = row.dWq = 0;
        Prepared<RowWriter>(RecordsetSlot::Append, App().iNetConfIndex, RowOrigin::ByHand)
            .Append(row, {.set = set, .time = {}, .mark = kCorrected});
    });
}

bool UpdateRow(qint32 set)
{
    return RowOperation(texts::cannotWriteFile, [set] {
        RecordingChanged();
        Prepared<RowUpdater>(RecordsetSlot::Update, App().iNetConfIndex).Update(App().CurrentRow, set);
    });
}

bool ReadRow(qint32 set, bool fromTemp)
{
    return RowOperation(texts::cannotReadFile, [set, fromTemp] {
        SetReader& reader = PreparedReader(fromTemp ? SetSource::Scratch : SetSource::Measured);
        reader.Seek(set);
        if (reader.Step()) {
            App().lLastReadSet = set;
            reader.FillInto(App().CurrentRow);
            App().sTimeText = DateTimeTextOfStored(reader.StoredTime());
        }
        reader.Release();
    });
}

bool VisitSets(qint32 first, qint32 last, const std::function<bool(const ShownSet&)>& visit)
{
    return RowOperation(texts::cannotReadFile, [&] { VisitSource(SetSource::Measured, first, last, visit); });
}

bool VisitSimulatedSets(qint32 first, qint32 last, const std::function<bool(const ShownSet& simulated)>& visit)
{
    return RowOperation(texts::cannotReadFile, [&] {
        if (ProjectDb().TableExists(QLatin1String(TableName(ValueTable::Simulated))))
            VisitSource(SetSource::Simulated, first, last, visit);
    });
}

bool AppendSimulatedRow(qint32 set)
{
    return RowOperation(texts::cannotWriteFile,
                        [set] { Prepared<SimulatedRowWriter>(RecordsetSlot::Write).Put(set, App().SimulatedRow); });
}

bool ReadSimulatedRow(qint32 set)
{
    return RowOperation(texts::cannotReadFile, [set] {
        SetReader& reader = PreparedReader(SetSource::Simulated);
        reader.Seek(set);
        if (reader.Step())
            reader.FillInto(App().SimulatedRow);
        reader.Release();
    });
}

} // namespace korvanel
