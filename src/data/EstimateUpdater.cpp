#include "data/EstimateUpdater.h"

#include "core/NumberText.h"
#include "core/texts/Default.h"

#include <sqlite3.h>

#include <limits>

namespace korvanel {

namespace {

constexpr int kBlockSize = 256;

constexpr const char* kReadSamples = "SELECT [Set], [U sum], [I sum], [f sum], [P sum], [phi sum] FROM SampledValues "
                                     "WHERE [Set]>? ORDER BY [Set] LIMIT ?";
constexpr const char* kReadSets = "SELECT [Set] FROM SampledValues WHERE [Set]>? ORDER BY [Set] LIMIT ?";
constexpr const char* kStore = "UPDATE ComputedValues SET [n]=?, [M]=?, [Pmech]=?, [eta]=?, [Method]=? WHERE [Set]=?";
constexpr const char* kMark = "UPDATE SampledValues SET [Edit]=? WHERE [Set] BETWEEN ? AND ?";

} // namespace

void EstimateUpdater::Finalizer::operator()(sqlite3_stmt* statement) const
{
    sqlite3_finalize(statement);
}

EstimateUpdater::EstimateUpdater(TableDb& database, bool isEstimating)
    : handle(database.Handle().getHandle()), hasEstimates(isEstimating), lastSet(std::numeric_limits<qint64>::min()),
      reading(Prepare(isEstimating ? kReadSamples : kReadSets)), storing(isEstimating ? Prepare(kStore) : nullptr),
      marking(Prepare(kMark))
{
    block.reserve(kBlockSize);
}

EstimateUpdater::Statement EstimateUpdater::Prepare(const char* sql)
{
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v3(handle, sql, -1, SQLITE_PREPARE_PERSISTENT, &statement, nullptr) != SQLITE_OK)
        throw DbError(sqlite3_errmsg(handle));
    return Statement(statement);
}

bool EstimateUpdater::NextBlock()
{
    sqlite3_stmt* const statement = reading.get();
    block.clear();
    sqlite3_bind_int64(statement, 1, lastSet);
    sqlite3_bind_int(statement, 2, kBlockSize);
    int result = SQLITE_ROW;
    while ((result = sqlite3_step(statement)) == SQLITE_ROW) {
        SampledSet& set = block.emplace_back();
        set.set = sqlite3_column_int64(statement, 0);
        if (hasEstimates)
            set.sample = {sqlite3_column_double(statement, 1), sqlite3_column_double(statement, 2),
                          sqlite3_column_double(statement, 3), sqlite3_column_double(statement, 4),
                          sqlite3_column_double(statement, 5)};
    }
    sqlite3_reset(statement);
    if (result != SQLITE_DONE)
        throw DbError(sqlite3_errmsg(handle));
    if (block.empty())
        return false;
    lastSet = block.back().set;
    return true;
}

void EstimateUpdater::Store(const SampledSet& set, const LoadEstimate& estimate, const QString& letter)
{
    sqlite3_stmt* const statement = storing.get();
    const double results[] = {estimate.n, estimate.M, estimate.Pmech, estimate.eta};
    int position = 0;
    for (const double result : results)
        sqlite3_bind_double(statement, ++position, result);
    sqlite3_bind_text16(statement, ++position, letter.utf16(), 2 * static_cast<int>(letter.size()), SQLITE_TRANSIENT);
    sqlite3_bind_int64(statement, ++position, set.set);
    Run(storing);
    if (sqlite3_changes(handle) != 1)
        throw DbError(FillPlaceholders(texts::noSuchSet, {QString::number(set.set)}).toStdString());
}

void EstimateUpdater::MarkBlock(int mark)
{
    sqlite3_stmt* const statement = marking.get();
    sqlite3_bind_int(statement, 1, mark);
    sqlite3_bind_int64(statement, 2, block.front().set);
    sqlite3_bind_int64(statement, 3, block.back().set);
    Run(marking);
}

void EstimateUpdater::Run(const Statement& statement)
{
    const int result = sqlite3_step(statement.get());
    sqlite3_reset(statement.get());
    if (result != SQLITE_DONE)
        throw DbError(sqlite3_errmsg(handle));
}

} // namespace korvanel
