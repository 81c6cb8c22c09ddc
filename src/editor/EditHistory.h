// The operations of the editor that can be taken back and done again. The engine of the file notes what a transaction
// changes in the rows and in the keys of the project, and inverts that by itself; here the notes of one operation each
// are kept as temporary files, so that memory doesn't grow with their number. An operation that changes more sets than
// can be noted within a fixed amount of memory is known before it begins.
#pragma once

#include "core/ProjectDb.h"
#include "editor/RowsState.h"

#include <QtGlobal>

#include <functional>
#include <memory>
#include <vector>

class QTemporaryFile;
struct sqlite3_session;

namespace korvanel {

/// What one operation changes, noted from here on until `Take`.
class EditRecording
{
public:
    /// On the current database. Throws DbError.
    EditRecording();
    EditRecording(const EditRecording&) = delete;
    EditRecording& operator=(const EditRecording&) = delete;
    ~EditRecording();

    /// The changes up to now, to be called within the transaction that made them. Throws DbError.
    std::unique_ptr<QTemporaryFile> Take();
    /// Bytes that the notes take in memory.
    qint64 MemoryUsed() const;

private:
    struct Deleter
    {
        void operator()(sqlite3_session* session) const;
    };
    std::unique_ptr<sqlite3_session, Deleter> session;
};

class EditHistory
{
public:
    /// Most memory in bytes that the notes of one operation may take while it runs.
    static constexpr qint64 kMostMemory = 64'000'000;
    /// Operations kept; the oldest goes first.
    static constexpr std::size_t kMostKept = 100;

    EditHistory();
    EditHistory(const EditHistory&) = delete;
    EditHistory& operator=(const EditHistory&) = delete;
    ~EditHistory();

    /// Whether an operation that touches so many sets of the current database can be noted. Throws DbError.
    static bool CanNote(qint64 sets);
    /// An upper bound of the memory for that, in bytes.
    static qint64 MemoryFor(qint64 sets);

    /// Makes ready for an operation, within its transaction: if somebody else has written the file since the last one,
    /// nothing before it can be taken back any more. Throws DbError.
    void Begin();
    /// Keeps an operation that is done, with the changes of the file as they were counted within its transaction. What
    /// was taken back before can't be done again.
    void Add(std::unique_ptr<QTemporaryFile> changes, quint32 changesCounted, const RowsState& before,
             const RowsState& after);
    /// Forgets everything, as after a change that was not noted.
    void Clear();

    /// Whether nobody else has written the file since the last operation; false if that can't be told now.
    bool IsUpToDate() const;
    /// What has been written since then is this program's own: a save of the header, which changes no row.
    void TakeOwnSave();

    /// Runs something that writes the file beside the rows that are noted here, and takes that for this program's own:
    /// it takes nothing away from what can be taken back.
    void Beside(const std::function<void()>& writing);
    /// Has the second machine, if there is one, run over the changed rows.
    void RunSimulation();

    bool CanUndo() const { return position > 0; }
    bool CanRedo() const { return position < entries.size(); }
    /// Takes the last operation back, or does it again: all rows as they were, in one transaction, with the header
    /// that goes with them, cursor and marks. False if nothing changed; a failure is told. If somebody else has written
    /// the file meanwhile, that is told and the history is empty.
    bool Undo();
    bool Redo();

private:
    struct Entry
    {
        std::unique_ptr<QTemporaryFile> changes;
        RowsState before;
        RowsState after;
    };
    bool Apply(Entry& entry, bool isInverted);
    /// Within a transaction: whether the file is as the last operation has left it.
    bool IsAsLeft() const;

    std::vector<Entry> entries; ///< the oldest first
    std::size_t position = 0;   ///< number of those that are done
    quint32 fileChanges = 0;    ///< as the file has counted them after the last operation
};

} // namespace korvanel
