#include "language/OldRecords.h"

#include "data/ElectricalFormulas.h"

#include <QtEndian>

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>

namespace korvanel {

namespace {

constexpr qint64 kRecordsOfBlock = 1024;
constexpr std::size_t kNumbersWithPhi = 6;

float SingleAt(const char* bytes)
{
    return std::bit_cast<float>(qFromLittleEndian<quint32>(bytes));
}

OldRecord RecordOf(const char* bytes, bool hasPhi)
{
    constexpr std::size_t kWidth = sizeof(float);
    std::array<float, kNumbersWithPhi> numbers{};
    const std::size_t count = kNumbersWithPhi - (hasPhi ? 0 : 1);
    for (std::size_t i = 0; i < count; ++i)
        numbers[i] = SingleAt(bytes + i * kWidth);
    OldRecord record{.U = numbers[0], .I = numbers[1], .f = numbers[2], .P = numbers[3], .phi = {}, .t = 0, .mark = {}};
    record.t = numbers[count - 1];
    if (hasPhi)
        record.phi = numbers[4];
    return record;
}

/// Whether all times lie on a grid, each no further off than single precision makes it.
bool LieOnGrid(ByteSource& source, const OldProject& project, double first, double step)
{
    constexpr double kRounding = 2.0 * std::numeric_limits<float>::epsilon();
    OldRecordReader reader(source, project);
    double number = 0;
    for (auto records = reader.NextBlock(); !records.empty(); records = reader.NextBlock())
        for (const OldRecord& record : records) {
            const double expected = first + number++ * step;
            if (!(std::abs(record.t - expected) <= kRounding * std::abs(expected)))
                return false;
        }
    return true;
}

double TimeOfRecord(ByteSource& source, const OldRecordRange& records, qint64 number)
{
    constexpr qint64 kWidth = sizeof(float);
    const qint64 size = kWidth * static_cast<qint64>(kNumbersWithPhi - (records.hasPhi ? 0 : 1));
    std::array<char, kWidth> bytes{};
    if (!source.Read(records.offset + (number + 1) * size - kWidth, bytes))
        throw OldFileChanged();
    return SingleAt(bytes.data());
}

} // namespace

OldRecordReader::OldRecordReader(ByteSource& ofSource, const OldProject& ofProject)
    : source(ofSource), project(ofProject)
{}

std::span<const OldRecord> OldRecordReader::NextBlock()
{
    const OldRecordRange records = project.records.value_or(OldRecordRange());
    const auto count = static_cast<std::size_t>(std::min(kRecordsOfBlock, records.count - done));
    const std::size_t size = sizeof(float) * (kNumbersWithPhi - (records.hasPhi ? 0 : 1));
    bytes.resize(count * size);
    block.resize(count);
    if (count == 0)
        return {};
    if (!source.Read(records.offset + done * static_cast<qint64>(size), bytes))
        throw OldFileChanged();
    for (std::size_t i = 0; i < count; ++i)
        block[i] = RecordOf(bytes.data() + i * size, records.hasPhi);
    ReadMarks();
    done += static_cast<qint64>(count);
    return block;
}

void OldRecordReader::ReadMarks()
{
    for (const OldMarkRange& marks : project.marks) {
        const qint64 count = std::min(static_cast<qint64>(block.size()), marks.count - done);
        if (count <= 0)
            return; // those behind it are shorter still
        bytes.resize(static_cast<std::size_t>(count));
        if (!source.Read(marks.offset + done, bytes))
            throw OldFileChanged();
        for (std::size_t i = 0; i < bytes.size(); ++i)
            block[i].mark = static_cast<quint8>(bytes[i]);
    }
}

std::optional<double> EvenStep(ByteSource& source, const OldProject& project)
{
    constexpr double kRoundSteps = 1000; // a second
    const OldRecordRange records = project.records.value_or(OldRecordRange());
    if (records.count < 2)
        return std::nullopt;
    const double first = TimeOfRecord(source, records, 0);
    const double last = TimeOfRecord(source, records, records.count - 1);
    const double step = (last - first) / static_cast<double>(records.count - 1);
    if (!std::isfinite(step))
        return std::nullopt;
    for (const double candidate : {std::round(step * kRoundSteps) / kRoundSteps, step})
        if (candidate >= 1 && LieOnGrid(source, project, first, candidate))
            return candidate;
    return std::nullopt;
}

double PhiOfOldRecord(double U, double I, double P)
{
    return U == 0 || I == 0 ? 0 : AngleOfPowerFactor(P / ApparentPower(U, I, true));
}

} // namespace korvanel
