// The sets that will leave the sliding window: kept in memory for a window of usual length, read a second time for a
// longer one.
#pragma once

#include "core/Evaluation.h"
#include "core/TableDb.h"
#include "core/ValueRow.h"
#include "data/SetReader.h"

#include <array>
#include <optional>
#include <vector>

namespace korvanel {

/// Values of one set that a window sums: the quantities of the channels 0 to 11.
using WindowValues = std::array<double, kLossChannel>;

WindowValues WindowValuesOf(const tValueRow& row);

/// The sets in the window, oldest first.
class WindowTail
{
public:
    virtual ~WindowTail() = default;
    /// Takes the newest set.
    virtual void Push(const WindowValues& values) = 0;
    /// Gives up the oldest set.
    virtual WindowValues Pop() = 0;
};

/// A ring of the last sets.
class KeptTail : public WindowTail
{
public:
    /// For windows of up to `most` sets.
    explicit KeptTail(std::size_t most) : capacity(most) {}
    void Push(const WindowValues& values) override;
    WindowValues Pop() override;

private:
    std::size_t capacity;
    std::size_t newest = 0; ///< where the next one goes
    std::size_t oldest = 0;
    std::vector<WindowValues> ring;
};

/// A second walk over the sets, behind the first.
class RereadTail : public WindowTail
{
public:
    RereadTail(TableDb& database, int netConfiguration, SetSource setSource)
        : db(database), netConf(netConfiguration), source(setSource)
    {}
    void Push(const WindowValues&) override {}
    /// Throws DbError if the sets have gone.
    WindowValues Pop() override;

private:
    TableDb& db;
    int netConf;
    SetSource source;
    std::optional<SetReader> reader; ///< none until the window is full
};

} // namespace korvanel
