#include "language/OldProjectFile.h"

#include "core/NetConfigurations.h"
#include "core/TableDb.h"
#include "language/OldProjectValues.h"

#include <QFileDevice>
#include <QtEndian>

#include <algorithm>
#include <limits>
#include <string_view>

namespace korvanel {

namespace {

constexpr std::string_view kFormMark = "FORM";
constexpr std::string_view kKindMark = "KVLS";
constexpr std::string_view kRecordsTag = "BODY";
constexpr std::string_view kMarksTag = "BODX";
constexpr qint64 kTagSize = 4;
constexpr qint64 kChunkHeadSize = 8;
constexpr qint64 kRecordSize = 20;
constexpr qint64 kRecordSizeWithPhi = 24;

/// Texts are padded to an even length, and whatever isn't known to a multiple of four.
constexpr qint64 kFieldPadding = 2;
constexpr qint64 kUnknownPadding = 4;

qint64 PaddingOf(qint64 length, qint64 to)
{
    return (to - length % to) % to;
}

/// The older form of the file has other numbers for its fields than the newer one.
enum class FieldForm
{
    Older,
    Newer,
    Both
};

struct OldField
{
    FieldForm form;
    std::string_view tag; ///< its first characters, if it is shorter than a tag
    void (*take)(OldProject& project, QByteArrayView value);
    qint64 onlyLength = -1; ///< of the value; -1: any
};

void AddToRemark(OldProject& project, QByteArrayView value)
{
    const QString text = OldText(value);
    QString& remark = project.machine.Hersteller;
    remark += remark.isEmpty() || text.isEmpty() ? text : u' ' + text;
    remark.truncate(kLongestTypedText);
}

void TakeVersion(OldProject& project, QByteArrayView value)
{
    project.isNewForm = OldText(value).trimmed() == QStringLiteral("FV-2");
}

void TakeFlags(OldProject& project, QByteArrayView value)
{
    project.flags = qFromLittleEndian<quint32>(value.data());
}

void TakePolePairs(OldProject& project, QByteArrayView value)
{
    const qint32 pairs = OldWholeNumber(value).value_or(0);
    const bool isHeld = pairs >= 1 && pairs <= std::numeric_limits<qint16>::max();
    project.machine.Polpaarzahl = static_cast<qint16>(isHeld ? pairs : 0);
}

void TakeConnection(OldProject& project, QByteArrayView value)
{
    const std::optional<double> number = OldNumber(value);
    if (number == 1)
        project.machine.Schaltungsart = QStringLiteral("Y");
    else if (number == -1)
        project.machine.Schaltungsart = QStringLiteral("D");
}

/// Takes nothing: the date of saving becomes that of the conversion.
void TakeNothing(OldProject& /*project*/, QByteArrayView /*value*/) {}

constexpr qint64 kFlagsLength = 4;

#define KORVANEL_TAKE(member, Kind) [](OldProject& project, QByteArrayView value) { project.member = Kind(value); }

constexpr OldField kOldFields[] = {
    {FieldForm::Both, "$VER", TakeVersion},
    {FieldForm::Older, "F101", KORVANEL_TAKE(name, OldText)},
    {FieldForm::Older, "F102", TakeNothing},
    {FieldForm::Older, "F103", KORVANEL_TAKE(created, OldDate)},
    {FieldForm::Older, "F104", KORVANEL_TAKE(company, OldText)},
    {FieldForm::Older, "F105", KORVANEL_TAKE(editor, OldText)},
    {FieldForm::Older, "F106", KORVANEL_TAKE(description, OldText)},
    {FieldForm::Older, "F107", AddToRemark},
    {FieldForm::Older, "F108", AddToRemark},
    {FieldForm::Older, "F109", KORVANEL_TAKE(machine.Masse, OldNumber)},
    {FieldForm::Older, "F110", KORVANEL_TAKE(descriptionNumbers[0], OldNumber)},
    {FieldForm::Older, "F111", KORVANEL_TAKE(descriptionNumbers[1], OldNumber)},
    {FieldForm::Older, "F112", KORVANEL_TAKE(descriptionNumbers[2], OldNumber)},
    {FieldForm::Newer, "F100", KORVANEL_TAKE(name, OldText)},
    {FieldForm::Newer, "F101", TakeNothing},
    {FieldForm::Newer, "F102", KORVANEL_TAKE(created, OldDate)},
    {FieldForm::Newer, "F103", KORVANEL_TAKE(company, OldText)},
    {FieldForm::Newer, "F104", KORVANEL_TAKE(editor, OldText)},
    {FieldForm::Newer, "F105", KORVANEL_TAKE(description, OldText)},
    {FieldForm::Newer, "F200", TakeFlags, kFlagsLength},
    {FieldForm::Newer, "F201", KORVANEL_TAKE(isOfMachine, OldFlag)},
    {FieldForm::Older, "F2", TakeFlags, kFlagsLength}, // whatever its number
    {FieldForm::Older, "R103", KORVANEL_TAKE(firstMachineNumber, OldNumber)},
    {FieldForm::Older, "R104", TakePolePairs},
    {FieldForm::Older, "R107", TakeNothing}, // which quantity of the machine it is, nobody knows any more
    {FieldForm::Older, "R116", KORVANEL_TAKE(begin, OldDate)},
    {FieldForm::Newer, "R100", KORVANEL_TAKE(begin, OldDate)},
    {FieldForm::Newer, "R101", KORVANEL_TAKE(term, OldText)},
    {FieldForm::Both, "RZ13", KORVANEL_TAKE(machine.Rs, OldNumber)},
    {FieldForm::Both, "RZ14", TakeConnection},
    {FieldForm::Both, "RZ15", KORVANEL_TAKE(machine.Mreib, OldFlag)},
};

#undef KORVANEL_TAKE

/// A tag that names a group of fields is followed by their number, which counts from 1.
bool MatchesTag(const OldField& field, std::string_view tag)
{
    if (!tag.starts_with(field.tag))
        return false;
    const std::string_view number = tag.substr(field.tag.size());
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    return number.empty() || (std::all_of(number.begin(), number.end(), isDigit) && number != "00");
}

/// Nothing for a field that isn't known.
const OldField* FindOldField(bool isNewForm, std::string_view tag, qint64 length)
{
    const FieldForm other = isNewForm ? FieldForm::Older : FieldForm::Newer;
    for (const OldField& field : kOldFields)
        if (field.form != other && MatchesTag(field, tag) && (field.onlyLength < 0 || field.onlyLength == length))
            return &field;
    return nullptr;
}

/// A half goes to the even number.
qint64 RecordsIn(qint64 length)
{
    const qint64 whole = length / kRecordSize;
    const qint64 rest = length % kRecordSize;
    const bool isUp = 2 * rest > kRecordSize || (2 * rest == kRecordSize && whole % 2 != 0);
    return isUp ? whole + 1 : whole;
}

/// The walk from chunk to chunk.
class OldFileWalk
{
public:
    explicit OldFileWalk(ByteSource& ofSource) : source(ofSource), size(ofSource.Size()) {}

    /// False for a file of another format.
    bool Walk();
    OldProject Take() { return std::move(project); }

private:
    bool HasMark(qint64 offset, std::string_view mark);
    bool IsHeadRight();
    bool TakeChunk();
    bool TakeRecords(qint64 data, qint64 length);
    void TakeMarks(qint64 data, qint64 length);
    bool TakeField(const OldField& field, qint64 data, qint64 length);
    void GoBehind(qint64 data, qint64 length, qint64 padding);
    bool EndsWithTheFile() const;

    ByteSource& source;
    const qint64 size;
    qint64 position = 0;
    qint64 remaining = 0; ///< that the chunks still count for; padding doesn't
    qint64 padded = 0;    ///< bytes that were padding
    qint64 uncounted = 0; ///< bytes of sets beyond the length of their chunk
    OldProject project;
};

bool OldFileWalk::Walk()
{
    if (!IsHeadRight())
        return false;
    while (remaining >= 1) {
        if (position == size)
            return EndsWithTheFile();
        if (!TakeChunk())
            return false;
    }
    return true;
}

bool OldFileWalk::HasMark(qint64 offset, std::string_view mark)
{
    std::array<char, kTagSize> bytes{};
    return size - offset >= kTagSize && source.Read(offset, bytes) &&
           std::string_view(bytes.data(), bytes.size()) == mark;
}

bool OldFileWalk::IsHeadRight()
{
    constexpr qint64 kHeadSize = 12;
    std::array<char, sizeof(qint32)> count{};
    if (!HasMark(0, kFormMark) || !HasMark(kTagSize, kKindMark) || !source.Read(2 * kTagSize, count))
        return false;
    remaining = qFromLittleEndian<qint32>(count.data());
    position = kHeadSize;
    return remaining >= 0;
}

/// Some files count in their head what a chunk's own length leaves out.
bool OldFileWalk::EndsWithTheFile() const
{
    return remaining == padded || remaining == uncounted || remaining == padded + uncounted;
}

bool OldFileWalk::TakeChunk()
{
    std::array<char, kChunkHeadSize> head{};
    if (!source.Read(position, head))
        return false;
    const std::string_view tag(head.data(), kTagSize);
    const qint64 length = qFromLittleEndian<qint32>(head.data() + kTagSize);
    const qint64 data = position + kChunkHeadSize;
    if (length < 0)
        return false;
    remaining -= length + kChunkHeadSize;
    if (tag == kRecordsTag)
        return TakeRecords(data, length);
    if (length > size - data)
        return false;
    if (const OldField* field = FindOldField(project.isNewForm, tag, length))
        return TakeField(*field, data, length);
    if (tag == kMarksTag)
        TakeMarks(data, length);
    GoBehind(data, length, kUnknownPadding);
    return true;
}

/// Sets of 24 bytes stand in a chunk whose length counts 20 bytes for each; the chunk of marks behind them tells.
bool OldFileWalk::TakeRecords(qint64 data, qint64 length)
{
    OldRecordRange records{.offset = data, .count = RecordsIn(length)};
    const qint64 longLength = records.count * kRecordSizeWithPhi;
    records.hasPhi = longLength >= length && HasMark(data + longLength, kMarksTag);
    if (records.hasPhi) {
        uncounted += longLength - length;
        position = data + longLength;
    } else {
        if (length > size - data || records.count * kRecordSize > length)
            return false;
        GoBehind(data, length, kUnknownPadding);
    }
    project.records = records; // in the place of those of a chunk before
    project.marks.clear();
    return true;
}

void OldFileWalk::TakeMarks(qint64 data, qint64 length)
{
    const qint64 count = std::min(length, project.records ? project.records->count : 0);
    if (count == 0)
        return;
    std::vector<OldMarkRange>& marks = project.marks;
    while (!marks.empty() && marks.back().count <= count)
        marks.pop_back();
    marks.push_back({.offset = data, .count = count});
}

bool OldFileWalk::TakeField(const OldField& field, qint64 data, qint64 length)
{
    QByteArray value(static_cast<qsizetype>(std::min<qint64>(length, kLongestTypedText)), '\0');
    if (!source.Read(data, std::span(value.data(), static_cast<std::size_t>(value.size()))))
        return false;
    field.take(project, value);
    GoBehind(data, length, kFieldPadding);
    return true;
}

/// Nobody misses the padding behind the last chunk.
void OldFileWalk::GoBehind(qint64 data, qint64 length, qint64 padding)
{
    const qint64 behind = data + length + PaddingOf(length, padding);
    padded += behind - data - length;
    position = std::min(behind, size);
}

} // namespace

bool MemoryBytes::Read(qint64 offset, std::span<char> to)
{
    const auto count = static_cast<qsizetype>(to.size());
    if (offset < 0 || offset > bytes.size() || count > bytes.size() - offset)
        return false;
    std::copy_n(bytes.data() + offset, count, to.data());
    return true;
}

qint64 FileBytes::Size() const
{
    return file.size();
}

bool FileBytes::Read(qint64 offset, std::span<char> to)
{
    const auto count = static_cast<qint64>(to.size());
    return (file.pos() == offset || file.seek(offset)) && file.read(to.data(), count) == count;
}

std::optional<OldProject> ReadOldProject(ByteSource& source)
{
    OldFileWalk walk(source);
    return walk.Walk() ? std::optional(walk.Take()) : std::nullopt;
}

qint16 NetConfOfOldProject(const OldProject& project)
{
    constexpr quint32 kThreePhaseFlag = 1U << 14U;
    const bool isSpaceVectorKnown = project.machine.Polpaarzahl >= 1 && project.machine.Schaltungsart;
    const bool isMachineOfOlderForm = !project.isNewForm && (project.firstMachineNumber || isSpaceVectorKnown);
    if (project.isOfMachine || isMachineOfOlderForm)
        return kNetMachine;
    return (project.flags.value_or(0) & kThreePhaseFlag) != 0 ? kNetThreePhase : kNetSinglePhase;
}

bool IsDatabaseFile(ByteSource& source)
{
    struct Mark
    {
        qint64 offset;
        std::string_view text;
    };
    constexpr Mark kMarks[] = {{0, "SQLite format 3"}, {4, "Standard Jet DB"}, {4, "Standard ACE DB"}};
    return std::any_of(std::begin(kMarks), std::end(kMarks), [&source](const Mark& mark) {
        std::string bytes(mark.text.size(), '\0');
        return source.Read(mark.offset, bytes) && bytes == mark.text;
    });
}

} // namespace korvanel
