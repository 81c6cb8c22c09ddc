#include "demo/Comparison.h"

#include <QFile>
#include <QTextStream>

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string>
#include <utility>

namespace korvanel {

namespace {

/// A value text as a person reads it: a number and, in some families, the prefix of its unit.
double ReadText(const QString& text)
{
    const std::string plain = text.toStdString();
    char* rest = nullptr;
    const double number = std::strtod(plain.c_str(), &rest);
    while (*rest == ' ')
        ++rest;
    constexpr double kMilli = 1e-3;
    constexpr double kKilo = 1e3;
    constexpr double kMega = 1e6;
    return number * (*rest == 'm' ? kMilli : *rest == 'k' ? kKilo : *rest == 'M' ? kMega : 1);
}

using Sample = std::vector<double>;

/// Adds what an exchange tells next of a sample: the one value that was asked for, or all of a block.
void AddSent(const LoggedExchange& exchange, const std::vector<DemoValue>& values, Sample& sample)
{
    while (sample.size() < values.size() && values[sample.size()].code == exchange.code) {
        const DemoValue& value = values[sample.size()];
        const QString text = value.code < 0 ? exchange.Value(QLatin1String(value.name)) : exchange.text;
        sample.push_back(ReadText(text) * value.factor);
    }
}

std::vector<Sample> SentSamples(const std::vector<DemoValue>& values, const std::vector<LoggedExchange>& log,
                                std::size_t first)
{
    std::vector<Sample> samples;
    Sample sample;
    for (std::size_t i = first; i < log.size(); ++i) {
        if (log[i].kind == QLatin1String("query"))
            AddSent(log[i], values, sample);
        if (sample.size() == values.size())
            samples.push_back(std::exchange(sample, {}));
    }
    return samples;
}

std::vector<Sample> StoredSamples(const std::vector<DemoValue>& values, const QString& projectFile)
{
    SQLite::Database db(projectFile.toStdString());
    std::string columns;
    for (const DemoValue& value : values)
        columns += std::string(columns.empty() ? "" : ", ") + '[' + value.column + ']';
    SQLite::Statement query(db, "SELECT " + columns + " FROM SampledValues ORDER BY [Set]");
    std::vector<Sample> samples;
    while (query.executeStep()) {
        Sample sample;
        for (std::size_t i = 0; i < values.size(); ++i)
            sample.push_back(query.getColumn(static_cast<int>(i)).getDouble());
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

Comparison CompareRecording(const DemoInstrument& instrument, const QString& projectFile,
                            const std::vector<LoggedExchange>& log, std::size_t firstExchange)
{
    const std::vector<DemoValue>& values = instrument.values;
    const std::vector<Sample> sent = SentSamples(values, log, firstExchange);
    const std::vector<Sample> stored = StoredSamples(values, projectFile);
    Comparison result;
    result.sent = static_cast<int>(sent.size());
    result.stored = static_cast<int>(stored.size());
    if (sent.size() != stored.size())
        result.differences
            << QStringLiteral("%1 samples were sent and %2 sets are stored").arg(sent.size()).arg(stored.size());
    if (const int missing = SetsWithoutEstimate(projectFile); missing > 0)
        result.differences << QStringLiteral("%1 sets carry no estimate of the machine").arg(missing);
    for (std::size_t set = 0; set < std::min(sent.size(), stored.size()); ++set)
        for (std::size_t i = 0; i < values.size(); ++i) {
            ++result.values;
            if (std::abs(sent[set][i] - stored[set][i]) > instrument.tolerance * std::max(1.0, std::abs(sent[set][i])))
                result.differences << QStringLiteral("set %1, %2: sent %3, stored %4")
                                          .arg(set + 1)
                                          .arg(QLatin1String(values[i].column))
                                          .arg(sent[set][i])
                                          .arg(stored[set][i]);
        }
    return result;
}

namespace {

struct ExportedColumn
{
    int field; ///< of an exported line
    const char* column;
};
constexpr ExportedColumn kExported[] = {{1, "SampledValues.[U sum]"},
                                        {2, "SampledValues.[I sum]"},
                                        {3, "SampledValues.[f sum]"},
                                        {4, "SampledValues.[P sum]"},
                                        {9, "n"},
                                        {10, "M"}};

/// Lines of the sets: those whose first field is a number, up to the first empty line.
std::vector<QStringList> ExportedSets(const QString& exportFile)
{
    QFile file(exportFile);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return {};
    QTextStream text(&file);
    std::vector<QStringList> sets;
    text.readLine(); // the heads
    for (QString line = text.readLine(); !line.isEmpty(); line = text.readLine())
        sets.push_back(line.split(u'\t'));
    return sets;
}

} // namespace

void CompareExport(const QString& projectFile, const QString& exportFile, Comparison& result)
{
    const std::vector<QStringList> lines = ExportedSets(exportFile);
    result.exported = static_cast<int>(lines.size());
    std::string columns = "SampledValues.[Set]";
    for (const ExportedColumn& column : kExported)
        columns += std::string(", ") + column.column;
    SQLite::Database db(projectFile.toStdString());
    SQLite::Statement query(db,
                            "SELECT " + columns + " FROM SampledValues JOIN ComputedValues USING ([Set]) ORDER BY 1");
    std::size_t set = 0;
    for (; query.executeStep(); ++set) {
        for (std::size_t i = 0; set < lines.size() && i < std::size(kExported); ++i) {
            const QString written = lines[set].value(kExported[i].field);
            const double stored = query.getColumn(static_cast<int>(i) + 1).getDouble();
            bool isNumber = false;
            ++result.values;
            if (QString(written).replace(u',', u'.').toDouble(&isNumber) != stored || !isNumber)
                result.differences << QStringLiteral("set %1, %2: stored %3, exported %4")
                                          .arg(set + 1)
                                          .arg(QLatin1String(kExported[i].column))
                                          .arg(stored, 0, 'g', 17)
                                          .arg(written);
        }
    }
    if (set != lines.size())
        result.differences << QStringLiteral("%1 sets are stored and %2 were exported").arg(set).arg(lines.size());
}

} // namespace korvanel
