// Projects of the predecessor, VELDRIK: one binary file of chunks, read into a description of the project. Nothing of
// the file is believed before it is checked, texts are read as far as they can be stored, and the sets stay where they
// are: the description tells where they lie, and whoever wants them reads them in blocks (see OldRecords.h).
#pragma once

#include "core/Machine.h"

#include <QByteArrayView>
#include <QDateTime>
#include <QString>

#include <array>
#include <optional>
#include <span>
#include <vector>

class QFileDevice;

namespace korvanel {

/// Bytes that can be read anywhere.
class ByteSource
{
public:
    virtual ~ByteSource() = default;
    virtual qint64 Size() const = 0;
    /// Fills `to` with the bytes from an offset on. False if there are fewer, also if there were more before.
    virtual bool Read(qint64 offset, std::span<char> to) = 0;
};

class MemoryBytes : public ByteSource
{
public:
    /// The bytes have to stay.
    explicit MemoryBytes(QByteArrayView ofBytes) : bytes(ofBytes) {}
    qint64 Size() const override { return bytes.size(); }
    bool Read(qint64 offset, std::span<char> to) override;

private:
    QByteArrayView bytes;
};

/// A file that is open for reading. It isn't mapped: one that becomes shorter meanwhile would end the program.
class FileBytes : public ByteSource
{
public:
    explicit FileBytes(QFileDevice& ofFile) : file(ofFile) {}
    qint64 Size() const override;
    bool Read(qint64 offset, std::span<char> to) override;

private:
    QFileDevice& file;
};

/// Where sets lie in the file.
struct OldRecordRange
{
    qint64 offset = 0;
    qint64 count = 0;
    bool hasPhi = false; ///< 24 bytes a set, else 20
};

/// Where marks of correction lie, a byte for each set from the first on.
struct OldMarkRange
{
    qint64 offset = 0;
    qint64 count = 0;
};

/// What a file tells. What it doesn't tell is not there, and gets the default of a new project.
struct OldProject
{
    bool isNewForm = false; ///< the version of the file, which numbers its fields
    std::optional<QString> name;
    std::optional<QDateTime> created;
    std::optional<QString> company;
    std::optional<QString> editor;
    std::optional<QString> description;
    std::array<std::optional<double>, 3> descriptionNumbers; ///< belong below the description
    std::optional<QDateTime> begin;
    std::optional<QString> term;
    std::optional<quint32> flags;
    bool isOfMachine = false;                 ///< as the newer form says it
    std::optional<double> firstMachineNumber; ///< by which the older form says the same
    MachineRecord machine;                    ///< as far as it is told
    std::optional<OldRecordRange> records;    ///< of the last list of sets
    std::vector<OldMarkRange> marks;          ///< of these sets; each is shorter than the one before, and counts more
};

/// Reads a file. Nothing for what is none, or whose chunks don't fit into it.
std::optional<OldProject> ReadOldProject(ByteSource& source);

/// Net configuration that a file asks for. Whether its machine can be used is another question.
qint16 NetConfOfOldProject(const OldProject& project);

/// Whether a file is a database and no old project.
bool IsDatabaseFile(ByteSource& source);

} // namespace korvanel
