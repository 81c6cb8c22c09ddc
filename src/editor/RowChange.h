// What every operation on the rows of the project has in common: it is one transaction with its progress, happens as a
// whole or not at all, takes the header of the project along, can be taken back where a history is kept, and leaves the
// results that hang on the rows to be formed again.
#pragma once

#include <QtGlobal>

#include <functional>

namespace korvanel {

/// What an operation means for the energies that the sets hold.
enum class EnergiesAfter
{
    Outdated, ///< they belong to the sets as they were
    Formed,
    AsBefore
};

struct RowChange
{
    qint64 sets = 0; ///< most of them that it touches
    EnergiesAfter energies = EnergiesAfter::Outdated;
    bool hasOwnPass = false; ///< the work shows its progress itself
    /// Whether the rows are such that there is something to do; if empty, they are. Throws DbError.
    std::function<bool()> isDue = {};
    /// Changes rows of the current database, and what the block says of them. Throws DbError, or whatever it likes.
    std::function<void()> work;
};

/// Runs the operation. A failure of the file is told and counted in `iFileErrors`: false then, and so if the user
/// doesn't want an operation that can't be taken back. What the work throws beside that comes through. In each of these
/// cases all rows and the header are as before.
bool ChangeRows(const RowChange& change);

} // namespace korvanel
