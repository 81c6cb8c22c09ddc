// The one way through all sets that changes them: sets are read block by block, each row is transformed, and a target
// writes what it is for: chosen columns of the same set, or a set of another table. No read is open beside a write, and
// memory stays constant however long the recording. Recomputation, energies, renumbering, resampling, simulation and
// conversion are transformations on it.
#pragma once

#include "data/SetReader.h"
#include "data/ValueColumns.h"

#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace korvanel {

/// Where transformed sets go.
class SetTarget
{
public:
    virtual ~SetTarget() = default;
    /// Writes one set. Throws DbError.
    virtual void Put(qint64 set, tValueRow& row) = 0;
    /// The sets of a block, from the first to the last, have been put. Throws DbError.
    virtual void EndBlock(qint64 /*first*/, qint64 /*last*/) {}
};

/// Chosen columns of the sets that were read, in whichever of the two tables has them.
class ChosenColumns : public SetTarget
{
public:
    /// The columns of some quantities, among them `kColumnTime` and `kColumnMethod`; `mark` sets the mark of correction
    /// of every set. Throws DbError for a column that the net configuration doesn't have.
    ChosenColumns(TableDb& db, int netConf, std::span<const int> quantities, std::optional<quint8> mark = std::nullopt);
    ~ChosenColumns() override;
    /// A set without a row in one of the tables is an error.
    void Put(qint64 set, tValueRow& row) override;
    void EndBlock(qint64 first, qint64 last) override;

private:
    struct Change;
    TableDb& database;
    std::vector<Change> changes; ///< one for each table with a chosen column
    std::unique_ptr<Change> marking;
    std::optional<quint8> markOfAll;
};

/// What a rewriting reads.
struct RewriteSource
{
    SetSource source = SetSource::Measured;
    std::span<const int> quantities; ///< with `kColumnTime` and `kColumnMethod`; none: all that is stored
};

/// Changes the row of a set before it goes to the target. What is not among the quantities that are read holds what an
/// earlier set has left there.
using SetTransform = std::function<void(qint64 set, tValueRow& row)>;

/// Walks the sets in order and hands each to the transformation and then to the target; `advance` hears now and then
/// how many are done. The caller brackets it with a transaction. Throws DbError, also for a file whose numbers of sets
/// don't rise, and whatever the transformation throws.
void RewriteSets(TableDb& db, int netConf, const RewriteSource& source, SetTarget& target,
                 const SetTransform& transform, const std::function<void(qint32 done)>& advance);

} // namespace korvanel
