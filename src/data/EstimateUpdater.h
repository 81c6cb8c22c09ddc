// The way through all sets for a new estimation: what it needs is read, and what follows is written back, block by
// block, so that no read is open beside a write and memory stays constant. Only columns that change are touched.
#pragma once

#include "core/Machine.h"
#include "core/TableDb.h"

#include <memory>
#include <span>
#include <vector>

struct sqlite3_stmt;

namespace korvanel {

struct SampledSet
{
    qint64 set = 0;
    LoadSample sample;
};

class EstimateUpdater
{
public:
    /// Prepares the walk. `isEstimating` takes the columns of the estimation too, which the net configuration has to
    /// have. Throws DbError, as all that follows.
    EstimateUpdater(TableDb& database, bool isEstimating);

    /// Reads the next sets in order; false behind the last one. Nulls and texts read as 0.
    bool NextBlock();
    std::span<const SampledSet> Block() const { return block; }
    /// Stores the estimate of a set. A set without computed values is an error.
    void Store(const SampledSet& set, const LoadEstimate& estimate, const QString& letter);
    /// Sets the mark of correction of the sets of the block.
    void MarkBlock(int mark);

private:
    struct Finalizer
    {
        void operator()(sqlite3_stmt* statement) const;
    };
    using Statement = std::unique_ptr<sqlite3_stmt, Finalizer>;
    Statement Prepare(const char* sql);
    void Run(const Statement& statement);

    sqlite3* handle;
    bool hasEstimates;
    qint64 lastSet;
    std::vector<SampledSet> block;
    Statement reading;
    Statement storing;
    Statement marking;
};

} // namespace korvanel
