#include "diagrams/DiagramAxes.h"

#include "core/Common.h"
#include "core/NumberText.h"
#include "core/clsSymbols.h"
#include "data/SetReader.h"
#include "diagrams/DiagramScale.h"

#include <cmath>
#include <memory>

namespace korvanel {

namespace {

constexpr double kThreeDecimals = 1000;

/// A number with that many decimals in the local format; no minus before a zero.
QString FixedText(double value, int decimals)
{
    const double scale = std::pow(10, decimals);
    const double rounded = std::round(value * scale) / scale;
    return QString::number(rounded == 0 ? 0 : rounded, 'f', decimals).replace(u'.', App().DecimalChar);
}

int DecimalsOf(double step)
{
    int decimals = 1;
    for (double rest = step * 10; decimals < 3 && std::abs(rest - std::round(rest)) > 1e-6; rest *= 10)
        ++decimals;
    return decimals;
}

/// Reads the times of single sets; a file that can't be read has none.
class SetTimes
{
public:
    SetTimes()
    {
        try {
            db = std::make_unique<TableDb>(TableDb::Open(App().sProjectPath));
            reader = std::make_unique<SetReader>(*db, App().iNetConfIndex, SetRange::One, SetSource::Sampled,
                                                 std::span<const int>(&kTime, 1));
        } catch (const DbError&) {
            reader.reset();
        }
    }
    QString Of(qint64 set) const
    {
        try {
            if (reader) {
                reader->Seek(set);
                if (reader->Next())
                    return SecondsToTime(reader->Row().dt, false);
            }
        } catch (const DbError&) {
            // The curves are read from the same file, and their drawing tells what is wrong with it.
        }
        return {};
    }

private:
    static constexpr int kTime = kColumnTime;
    std::unique_ptr<TableDb> db;
    std::unique_ptr<SetReader> reader;
};

} // namespace

std::vector<AxisLabel> FractionLabels(const DiagramGrid& grid)
{
    std::vector<AxisLabel> labels;
    const int decimals = DecimalsOf(grid.fractionStep);
    for (const GridLine& line : grid.fractions)
        labels.push_back({.at = line.at, .text = FixedText(line.at, decimals)});
    return labels;
}

std::vector<AxisLabel> ValueLabels(const DiagramGrid& grid, int quantity, double scaleEnd)
{
    std::vector<AxisLabel> labels;
    for (const GridLine& line : grid.fractions) {
        const double fraction = std::round(line.at * kThreeDecimals) / kThreeDecimals;
        labels.push_back({.at = line.at,
                          .text = (FormatPrefixed(ShownValueAt(quantity, fraction, scaleEnd), kThreeDecimals, true) +
                                   App().Symbols->Unit(quantity))
                                      .trimmed()});
    }
    return labels;
}

std::vector<AxisLabel> SetLabels(const DiagramGrid& grid)
{
    std::vector<AxisLabel> labels;
    const SetTimes times;
    for (const double set : grid.setLabels) {
        const bool isWhole = set == std::floor(set);
        QString text = isWhole ? QString::number(set, 'f', 0) : RoundValue(set, kThreeDecimals);
        if (isWhole)
            text += u'\n' + times.Of(static_cast<qint64>(set));
        labels.push_back({.at = set, .text = text});
    }
    return labels;
}

} // namespace korvanel
