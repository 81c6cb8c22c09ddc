// The values that curves are drawn from. The first time they come from the file, in order; what fits into a fixed
// amount of memory is kept, so that a further view of the same recording costs no reading.
#pragma once

#include "core/Quantities.h"
#include "core/TableDb.h"
#include "data/SetReader.h"

#include <QDateTime>
#include <QString>

#include <array>
#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace korvanel {

/// Values of consecutive sets, valid until the next block is asked for.
struct ValueBlock
{
    qint32 firstSet = 1;
    qint32 count = 0;
    /// For each quantity asked for the values of the sets in order, as they are stored: base units. A set that the
    /// file lacks holds no number.
    std::vector<const double*> values;
    bool hasHoles = false; ///< the file lacks one of the sets
};

class SetValues
{
public:
    /// So many values are kept at most unless somebody wants it otherwise: 64 MB of them.
    static constexpr qsizetype kMostKept = 8'000'000;

    explicit SetValues(SetSource ofSource = SetSource::Measured, qsizetype atMost = kMostKept)
        : source(ofSource), mostKept(atMost)
    {}

    /// Forgets what is kept. That happens by itself when project, net configuration, number of sets, evaluation or
    /// file are others than those that the values came from.
    void Drop();
    /// Number of values kept.
    qsizetype Kept() const;

    /// A walk over the sets `first` to `last` (within 1 to the count of sets) in order, in blocks. It reads the project
    /// through a connection of its own, so it may rest between two blocks for as long as it likes.
    class Walk
    {
    public:
        Walk(SetValues& ofValues, std::span<const int> ofQuantities, qint32 first, qint32 last);

        /// The next block; false behind the last one. A block is what is there at once, or what can be read in about
        /// `milliseconds`. Throws DbError.
        bool Next(ValueBlock& block, int milliseconds);

    private:
        /// Finds out which quantities have to be read from the next set on and up to which, and opens the reader.
        void BeginStretch();
        /// Fills the buffers from the file as far as the time allows.
        void Read(ValueBlock& block, int milliseconds);
        /// Keeps what of the buffer follows what is kept, as far as there is room.
        void Keep(std::size_t place);
        std::vector<double>& Column(std::size_t place) const
        {
            return values.columns.at(static_cast<std::size_t>(quantities[place]));
        }

        SetValues& values;
        std::vector<int> quantities;
        qint32 next;
        qint32 last;
        qint32 stretchEnd = 0; ///< last set for which the same quantities are read
        std::unique_ptr<TableDb> db;
        std::unique_ptr<SetReader> reader;
        std::optional<qint32> waiting; ///< set in the row that hasn't been taken yet
        tValueRow row;
        std::vector<std::size_t> read; ///< places of the quantities that are read
        std::vector<std::vector<double>> buffers;
    };

private:
    /// By what the kept values are told to be those of the recording.
    struct Origin
    {
        QString path;
        QDateTime changed;
        qint64 size = 0;
        qint32 sets = 0;
        int netConf = 0;
        quint64 recording = 0;

        bool operator==(const Origin&) const = default;
    };
    static Origin Present();
    /// Drops what isn't the recording's any more, and makes room for the values of some quantities.
    void Prepare(std::span<const int> quantities);

    SetSource source;
    qsizetype mostKept;
    Origin origin;
    std::array<std::vector<double>, kQuantityCount> columns; ///< of the first sets, as many as are kept
    qsizetype mostOfEach = 0;
    bool hasHoles = false;
};

} // namespace korvanel
