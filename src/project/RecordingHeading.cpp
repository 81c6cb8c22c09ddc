#include "project/RecordingHeading.h"

#include "core/Common.h"
#include "core/LocalFormats.h"
#include "core/ProjectDb.h"
#include "data/ValueTables.h"
#include "project/ProjectTransfer.h"

#include <cmath>
#include <string>

namespace korvanel {

namespace {

/// The begin of a recording and the time stamp of its first set lie no further apart than a poll takes.
constexpr double kLongestPoll = 60; // s

/// Time stamp of a set: of the first one with "ORDER BY [Set]", of the last one with "DESC" behind it. Not valid if it
/// has none.
QDateTime StampOf(const char* order)
{
    return WithDbErrors([order] {
        SQLite::Statement query(ProjectDb().Handle(),
                                std::string("SELECT [Time] FROM SampledValues ORDER BY [Set] ") + order + " LIMIT 1");
        return query.executeStep() && query.getColumn(0).isText()
                   ? DateFromStoredText(QString::fromStdString(query.getColumn(0).getString()))
                   : QDateTime();
    });
}

bool BelongsTo(const QDateTime& begin, const QDateTime& firstSet)
{
    return begin != ZeroDate() &&
           std::abs(static_cast<double>(begin.secsTo(firstSet))) <= kLongestPoll + App().dInterval;
}

struct Heading
{
    QDateTime begin;
    QDateTime end;
    QString term;
};

Heading HeadingOfBlock()
{
    return {App().dtMeasurementBegin, App().dtMeasurementEnd, App().sMeasurementTerm};
}

void PutIntoBlock(const Heading& heading)
{
    App().dtMeasurementBegin = heading.begin;
    App().dtMeasurementEnd = heading.end;
    App().sMeasurementTerm = heading.term;
}

} // namespace

void ClearRecordingHeading()
{
    PutIntoBlock({ZeroDate(), ZeroDate(), {}});
}

void ClearRecording()
{
    const ProjectDbScope scope;
    const Heading former = HeadingOfBlock();
    const bool wereOutdated = App().bEnergiesOutdated;
    try {
        DbTransaction transaction(ProjectDb());
        ClearValues();
        ClearRecordingHeading();
        TransferMeasurementHeader(Direction::Write);
        transaction.Commit();
    } catch (...) {
        PutIntoBlock(former);
        App().bEnergiesOutdated = wereOutdated;
        throw;
    }
}

void MendRecordingHeading()
{
    if (App().iSetCount < 1)
        return;
    const QDateTime firstSet = StampOf("");
    const QDateTime lastSet = StampOf("DESC");
    if (!firstSet.isValid() || !lastSet.isValid())
        return;
    const bool isOwn = BelongsTo(App().dtMeasurementBegin, firstSet);
    if (isOwn && App().dtMeasurementEnd != ZeroDate())
        return;
    App().dtMeasurementEnd = lastSet;
    if (isOwn)
        return;
    App().dtMeasurementBegin = firstSet;
    App().sMeasurementTerm.clear();
}

} // namespace korvanel
