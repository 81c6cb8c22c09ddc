#include "demo/Comparison.h"

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>

#include <array>
#include <cmath>
#include <cstdlib>
#include <string>

namespace korvanel {

namespace {

struct Value
{
    int code; ///< of the query
    const char* column;
    double factor; ///< from what was sent to what is stored
};

/// In the order in which a sample asks for them.
constexpr std::array<Value, 4> kValues{{
    {40, "U sum", 1},
    {12, "I sum", 1.0 / 3}, // the instrument sends the sum of the phases, the set holds their mean
    {28, "f sum", 1},
    {32, "phi sum", 1},
}};
constexpr int kPhaseAngle = 32;

/// A value text as a person reads it: a number and, but for an angle, the prefix of its unit.
double ReadText(const QString& text, int code)
{
    const std::string plain = text.toStdString();
    char* rest = nullptr;
    const double number = std::strtod(plain.c_str(), &rest);
    while (*rest == ' ')
        ++rest;
    if (code == kPhaseAngle)
        return number;
    constexpr double kMilli = 1e-3;
    constexpr double kKilo = 1e3;
    constexpr double kMega = 1e6;
    return number * (*rest == 'm' ? kMilli : *rest == 'k' ? kKilo : *rest == 'M' ? kMega : 1);
}

using Sample = std::array<double, kValues.size()>;

std::vector<Sample> SentSamples(const std::vector<LoggedExchange>& log, std::size_t first)
{
    std::vector<Sample> samples;
    Sample sample{};
    std::size_t next = 0;
    for (std::size_t i = first; i < log.size(); ++i) {
        if (log[i].kind != QLatin1String("query") || log[i].code != kValues[next].code)
            continue;
        sample[next] = ReadText(log[i].text, log[i].code) * kValues[next].factor;
        if (++next == kValues.size()) {
            samples.push_back(sample);
            next = 0;
        }
    }
    return samples;
}

std::vector<Sample> StoredSamples(const QString& projectFile)
{
    SQLite::Database db(projectFile.toStdString());
    std::string columns;
    for (const Value& value : kValues)
        columns += std::string(columns.empty() ? "" : ", ") + '[' + value.column + ']';
    SQLite::Statement query(db, "SELECT " + columns + " FROM SampledValues ORDER BY [Set]");
    std::vector<Sample> samples;
    while (query.executeStep()) {
        Sample sample{};
        for (std::size_t i = 0; i < sample.size(); ++i)
            sample[i] = query.getColumn(static_cast<int>(i)).getDouble();
        samples.push_back(sample);
    }
    return samples;
}

/// Sets whose speed, torque, shaft power or efficiency was not estimated.
int SetsWithoutEstimate(const QString& projectFile)
{
    SQLite::Database db(projectFile.toStdString());
    SQLite::Statement query(db, "SELECT count(*) FROM ComputedValues WHERE n IS NULL OR M IS NULL OR Pmech IS NULL OR "
                                "eta IS NULL OR Method IS NULL");
    return query.executeStep() ? query.getColumn(0).getInt() : 0;
}

} // namespace

Comparison CompareRecording(const QString& projectFile, const std::vector<LoggedExchange>& log,
                            std::size_t firstExchange)
{
    constexpr double kRounding = 1e-9;
    const std::vector<Sample> sent = SentSamples(log, firstExchange);
    const std::vector<Sample> stored = StoredSamples(projectFile);
    Comparison result{static_cast<int>(sent.size()), static_cast<int>(stored.size()), 0, {}};
    if (sent.size() != stored.size())
        result.differences
            << QStringLiteral("%1 samples were sent and %2 sets are stored").arg(sent.size()).arg(stored.size());
    if (const int missing = SetsWithoutEstimate(projectFile); missing > 0)
        result.differences << QStringLiteral("%1 sets carry no estimate of the machine").arg(missing);
    for (std::size_t set = 0; set < std::min(sent.size(), stored.size()); ++set)
        for (std::size_t i = 0; i < kValues.size(); ++i) {
            ++result.values;
            if (std::abs(sent[set][i] - stored[set][i]) > kRounding * std::max(1.0, std::abs(sent[set][i])))
                result.differences << QStringLiteral("set %1, %2: sent %3, stored %4")
                                          .arg(set + 1)
                                          .arg(QLatin1String(kValues[i].column))
                                          .arg(sent[set][i])
                                          .arg(stored[set][i]);
        }
    return result;
}

} // namespace korvanel
