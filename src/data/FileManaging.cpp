#include "data/FileManaging.h"

#include "core/Clock.h"
#include "core/Common.h"
#include "core/LocalFormats.h"
#include "core/Messages.h"
#include "core/ProjectDb.h"
#include "core/texts/Default.h"
#include "data/ComputedQuantities.h"
#include "data/RowWriter.h"
#include "data/SetCursor.h"

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

SetQuery& PreparedQuery(SetSource source)
{
    const RecordsetSlot slot = source == SetSource::Measured  ? RecordsetSlot::ReadRow
                               : source == SetSource::Scratch ? RecordsetSlot::ReadTemp
                                                              : RecordsetSlot::ReadSimulated;
    return Prepared<SetQuery>(slot, App().iNetConfIndex, source, SetRange::One);
}

} // namespace

void OpenJoinedRecordset()
{
    CurrentRecordset(RecordsetSlot::Write) =
        std::make_unique<RowWriter>(ProjectDb(), App().iNetConfIndex, RowOrigin::Measured);
}

void OpenSimulatedRecordset()
{
    CurrentRecordset(RecordsetSlot::Write) = std::make_unique<SimulatedRowWriter>(ProjectDb());
}

bool AppendMeasuredRow()
{
    EstimateRow(App().MeasuredRow); // a fault in arithmetic ends the run, not only this row
    return RowOperation(texts::cannotWriteFile, [] {
        ApplicationBlock& app = App();
        app.bEvaluated = 0;
        tMeasuredRow& row = app.MeasuredRow;
        if (HasRegisters(app.iNetConfIndex))
            FormRelativeEnergies();
        else if (IntegratesEnergy(app.iNetConfIndex))
            StepEnergyOnline();
        const quint8 mark = row.sValidMask == QLatin1String("NNNN") ? 0 : kCorrected;
        Prepared<RowWriter>(RecordsetSlot::Write, app.iNetConfIndex, RowOrigin::Measured)
            .Append(row, {.set = row.lSet,
                          .time = StoredDateText(PresentMoment()),
                          .mark = mark,
                          .isEstimated = IsEstimating()});
    });
}

bool AppendRow(qint32 set)
{
    return RowOperation(texts::cannotWriteFile, [set] {
        App().bEvaluated = 0;
        tValueRow row = App().CurrentRow;
        row.dWp = row.dWpPlus = row.dWpMinus = row.dWq = 0;
        Prepared<RowWriter>(RecordsetSlot::Append, App().iNetConfIndex, RowOrigin::ByHand)
            .Append(row, {.set = set, .time = {}, .mark = kCorrected});
    });
}

bool UpdateRow(qint32 set)
{
    return RowOperation(texts::cannotWriteFile, [set] {
        App().bEvaluated = 0;
        Prepared<RowUpdater>(RecordsetSlot::Update, App().iNetConfIndex).Update(App().CurrentRow, set);
    });
}

bool ReadRow(qint32 set, bool fromTemp)
{
    return RowOperation(texts::cannotReadFile, [set, fromTemp] {
        SetQuery& query = PreparedQuery(fromTemp ? SetSource::Scratch : SetSource::Measured);
        query.Seek(set);
        if (query.Step()) {
            App().lLastReadSet = set;
            query.Fill(App().CurrentRow);
            App().sTimeText = DateTimeTextOfStored(query.StoredTime());
        }
        query.Release();
    });
}

bool AppendSimulatedRow(qint32 set)
{
    return RowOperation(texts::cannotWriteFile,
                        [set] { Prepared<SimulatedRowWriter>(RecordsetSlot::Write).Append(App().SimulatedRow, set); });
}

bool ReadSimulatedRow(qint32 set)
{
    return RowOperation(texts::cannotReadFile, [set] {
        SetQuery& query = PreparedQuery(SetSource::Simulated);
        query.Seek(set);
        if (query.Step())
            query.Fill(App().SimulatedRow);
        query.Release();
    });
}

} // namespace korvanel
