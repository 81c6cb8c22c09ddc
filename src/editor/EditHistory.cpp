#include "editor/EditHistory.h"

#include "core/Common.h"
#include "core/Shell.h"
#include "core/texts/DefaultTexts.h"
#include "core/texts/FormF5Texts.h"
#include "editor/SetMoves.h"
#include "editor/ToldChange.h"

#include <SQLiteCpp/Statement.h>
#include <sqlite3.h>

#include <QTemporaryFile>

#include <algorithm>
#include <array>
#include <string>

namespace korvanel {

namespace {

/// What an operation may change: the rows, and in the header and the settings what is said of them.
constexpr std::array kNotedTables{"SampledValues", "ComputedValues", "Overview", "Settings"};

void Require(int code)
{
    if (code != SQLITE_OK)
        ThrowDbError(code, sqlite3_errstr(code));
}

int Write(void* file, const void* data, int size)
{
    return static_cast<QTemporaryFile*>(file)->write(static_cast<const char*>(data), size) == size ? SQLITE_OK
                                                                                                   : SQLITE_FULL;
}

int Read(void* file, void* data, int* size)
{
    auto& changes = *static_cast<QTemporaryFile*>(file);
    const qint64 read = changes.read(static_cast<char*>(data), *size);
    if (read < 0)
        return SQLITE_IOERR;
    *size = static_cast<int>(read);
    if (changes.size() > 0)
        App().TheShell->ShowProgress(Progress::Advance,
                                     static_cast<double>(changes.pos()) / static_cast<double>(changes.size()));
    return SQLITE_OK;
}

int CountColumns(const char* table)
{
    SQLite::Statement info(ProjectDb().Handle(),
                           std::string("SELECT count(*) FROM pragma_table_info('") + table + "')");
    info.executeStep();
    return info.getColumn(0).getInt();
}

/// The engine notes the changes of a row under its primary key, and none of a table without.
bool HasKey(const char* table)
{
    SQLite::Statement info(ProjectDb().Handle(),
                           std::string("SELECT count(*) FROM pragma_table_info('") + table + "') WHERE pk>0");
    info.executeStep();
    return info.getColumn(0).getInt() > 0;
}

} // namespace

EditRecording::EditRecording()
{
    sqlite3_session* created = nullptr;
    Require(sqlite3session_create(ProjectDb().Handle().getHandle(), "main", &created));
    session.reset(created);
    for (const char* table : kNotedTables)
        Require(sqlite3session_attach(session.get(), table));
}

EditRecording::~EditRecording() = default;

void EditRecording::Deleter::operator()(sqlite3_session* ended) const
{
    sqlite3session_delete(ended);
}

std::unique_ptr<QTemporaryFile> EditRecording::Take()
{
    auto changes = std::make_unique<QTemporaryFile>();
    if (!changes->open())
        throw DbError(changes->errorString().toStdString());
    const int code = sqlite3session_changeset_strm(session.get(), Write, changes.get());
    if (code == SQLITE_FULL || (code == SQLITE_OK && !changes->flush()))
        throw DbError(changes->errorString().toStdString());
    Require(code);
    return changes;
}

qint64 EditRecording::MemoryUsed() const
{
    return sqlite3session_memory_used(session.get());
}

EditHistory::EditHistory() = default;
EditHistory::~EditHistory() = default;

namespace {

/// Bytes of all texts in the rows. A number column holds one too if a foreign program has put it there.
qint64 BytesOfTexts()
{
    qint64 bytes = 0;
    for (const ValueTable table : kRowTables) {
        std::string sum = "0";
        SQLite::Statement info(ProjectDb().Handle(), std::string("PRAGMA table_info(") + TableName(table) + ")");
        while (info.executeStep()) {
            const std::string name = '[' + info.getColumn(1).getString() + ']';
            sum.append("+total(CASE WHEN typeof(").append(name).append(") IN ('text','blob') THEN length(CAST(");
            sum.append(name).append(" AS BLOB)) END)");
        }
        SQLite::Statement query(ProjectDb().Handle(), "SELECT " + sum + " FROM " + TableName(table));
        query.executeStep();
        bytes += query.getColumn(0).getInt64();
    }
    return bytes;
}

qint64 Pragma(const char* name)
{
    SQLite::Statement query(ProjectDb().Handle(), std::string("PRAGMA ") + name);
    query.executeStep();
    return query.getColumn(0).getInt64();
}

/// What a row of both tables takes with its time stamp and letter.
qint64 BytesOfSet()
{
    constexpr qint64 kOfRow = 120;  // what the engine notes beside the values, and a time stamp or a letter
    constexpr qint64 kOfColumn = 9; // a number with its type
    qint64 bytes = 0;
    for (const ValueTable table : kRowTables)
        bytes += kOfRow + kOfColumn * CountColumns(TableName(table));
    return bytes;
}

} // namespace

qint64 EditHistory::MemoryFor(qint64 sets)
{
    return WithDbErrors([sets] {
        const qint64 numbers = BytesOfSet() * sets;
        // Longer texts than the program itself stores would make the file larger than its rows need.
        const qint64 content = (Pragma("page_count") - Pragma("freelist_count")) * Pragma("page_size");
        const qint64 texts = std::min(content, sets * kLongestStoredText);
        return numbers + texts <= kMostMemory ? numbers + texts : numbers + std::min(texts, BytesOfTexts());
    });
}

bool EditHistory::CanNote(qint64 sets)
{
    return MemoryFor(sets) <= kMostMemory && WithDbErrors([] {
               for (const char* table : kNotedTables)
                   if (!HasKey(table))
                       return false;
               return true;
           });
}

void EditHistory::Begin()
{
    if (!entries.empty() && !IsAsLeft())
        Clear();
}

bool EditHistory::IsAsLeft() const
{
    return ProjectDb().ChangeCounter() == fileChanges;
}

bool EditHistory::IsUpToDate() const
{
    try {
        const ProjectDbScope scope;
        const DbTransaction transaction(ProjectDb());
        return IsAsLeft();
    } catch (const DbError&) {
        return false;
    }
}

void EditHistory::TakeOwnSave()
{
    try {
        const ProjectDbScope scope;
        const DbTransaction transaction(ProjectDb());
        fileChanges = ProjectDb().ChangeCounter();
    } catch (const DbError&) {
        Clear(); // nobody could tell any more who has written
    }
}

void EditHistory::Add(std::unique_ptr<QTemporaryFile> changes, quint32 changesCounted, const RowsState& before,
                      const RowsState& after)
{
    fileChanges = changesCounted + 1; // the commit itself
    entries.resize(position);
    if (entries.size() == kMostKept)
        entries.erase(entries.begin());
    entries.push_back({std::move(changes), before, after});
    position = entries.size();
}

void EditHistory::Clear()
{
    entries.clear();
    position = 0;
}

void EditHistory::Beside(const std::function<void()>& writing)
{
    const bool isUpToDate = IsUpToDate();
    writing();
    if (isUpToDate)
        TakeOwnSave();
}

void EditHistory::RunSimulation()
{
    if (HasSecondMachine())
        Beside(FormWhatHangsOnRows);
}

bool EditHistory::Undo()
{
    if (!CanUndo() || !Apply(entries.at(position - 1), true))
        return false;
    entries.at(--position).before.PutBack();
    RunSimulation();
    return true;
}

bool EditHistory::Redo()
{
    if (!CanRedo() || !Apply(entries.at(position), false))
        return false;
    entries.at(position++).after.PutBack();
    RunSimulation();
    return true;
}

bool EditHistory::Apply(Entry& entry, bool isInverted)
{
    bool isElsewhere = false;
    const bool isDone = ToldChange([&] {
        DbTransaction transaction(ProjectDb());
        isElsewhere = !IsAsLeft();
        if (!isElsewhere) {
            entry.changes->seek(0);
            const auto refuse = [](void*, int, sqlite3_changeset_iter*) { return SQLITE_CHANGESET_ABORT; };
            const int code = sqlite3changeset_apply_v2_strm(ProjectDb().Handle().getHandle(), Read, entry.changes.get(),
                                                            nullptr, refuse, nullptr, nullptr, nullptr,
                                                            isInverted ? SQLITE_CHANGESETAPPLY_INVERT : 0);
            isElsewhere = code == SQLITE_ABORT;
            if (!isElsewhere)
                Require(code);
        }
        if (isElsewhere)
            throw DbError(texts::rowsChangedElsewhere.toStdString());
        const quint32 changesCounted = ProjectDb().ChangeCounter();
        transaction.Commit();
        fileChanges = changesCounted + 1;
    });
    if (isElsewhere)
        Clear();
    return isDone;
}

} // namespace korvanel
