// Files of the predecessor, built chunk by chunk, and their conversion in a folder of the test's own.
#pragma once

#include "language/OldProjectConversion.h"
#include "language/OldProjectFile.h"
#include "support/MotorDbFixture.h"

#include <QtEndian>

#include <bit>
#include <vector>

namespace korvanel::test {

/// A number of the length of its type, the low byte first.
template <typename Number>
QByteArray LittleEndian(Number number)
{
    QByteArray bytes(sizeof(Number), '\0');
    qToLittleEndian(number, bytes.data());
    return bytes;
}
inline QByteArray Single(float number)
{
    return LittleEndian(std::bit_cast<quint32>(number));
}
inline QByteArray Double(double number)
{
    return LittleEndian(std::bit_cast<quint64>(number));
}

/// One set of 20 bytes.
inline QByteArray Record(float U, float I, float f, float P, float t)
{
    return Single(U) + Single(I) + Single(f) + Single(P) + Single(t);
}
/// One set of 24 bytes.
inline QByteArray RecordWithPhi(float U, float I, float f, float P, float phi, float t)
{
    return Single(U) + Single(I) + Single(f) + Single(P) + Single(phi) + Single(t);
}

class OldFileBuilder
{
public:
    /// A chunk whose length is given by itself where it isn't that of the data.
    OldFileBuilder& Chunk(const char* tag, const QByteArray& data, int padding, std::optional<qint32> length = {})
    {
        const qint32 told = length.value_or(static_cast<qint32>(data.size()));
        chunks += QByteArray(tag, 4) + LittleEndian(told) + data;
        chunks += QByteArray((padding - data.size() % padding) % padding, '\0');
        counted += qint64(told) + 8;
        return *this;
    }
    OldFileBuilder& Newer() { return Text("$VER", "FV-2"); }
    OldFileBuilder& Text(const char* tag, const QByteArray& text) { return Chunk(tag, text, 2); }
    OldFileBuilder& Number(const char* tag, double number) { return Chunk(tag, Double(number), 1); }
    OldFileBuilder& Long(const char* tag, quint32 number) { return Chunk(tag, LittleEndian(number), 1); }
    OldFileBuilder& Short(const char* tag, qint16 number) { return Chunk(tag, LittleEndian(number), 1); }
    OldFileBuilder& Unknown(const char* tag, const QByteArray& data) { return Chunk(tag, data, 4); }
    OldFileBuilder& Body(const QByteArray& records, std::optional<qint32> length = {})
    {
        return Chunk("BODY", records, 4, length);
    }
    /// Sets of 24 bytes, with the chunk of their marks behind them.
    OldFileBuilder& LongBody(const QByteArray& records, const QByteArray& marks = {})
    {
        return Body(records, static_cast<qint32>(records.size() / 24 * 20)).Chunk("BODX", marks, 4);
    }
    QByteArray Bytes(std::optional<qint32> size = {}) const
    {
        return QByteArray("FORMKVLS") + LittleEndian(size.value_or(static_cast<qint32>(counted))) + chunks;
    }

private:
    QByteArray chunks;
    qint64 counted = 0;
};

/// Sets of a load, one a second.
inline QByteArray SomeRecords(int count)
{
    QByteArray records;
    for (int i = 0; i < count; ++i)
        records +=
            Record(400, static_cast<float>(10 + i % 7), 50, static_cast<float>(3000 + i % 100), static_cast<float>(i));
    return records;
}

inline std::optional<OldProject> ReadBytes(const QByteArray& bytes)
{
    MemoryBytes source(bytes);
    return ReadOldProject(source);
}

class ConversionTest : public MotorDbTest
{
protected:
    ConversionTest()
    {
        source = PathOf("alt.KVL");
        target = PathOf("neu.MDB");
    }
    /// Writes an old file and converts it.
    bool Convert(const QByteArray& bytes)
    {
        WriteContent("alt.KVL", bytes);
        return ConvertOldFile(source, target);
    }
    bool Convert(const OldFileBuilder& file) { return Convert(file.Bytes()); }
    QString QueryTarget(const QString& sql) const { return QueryFile(target, sql); }
    QString KeyText(const char* key) const
    {
        return QueryTarget(QStringLiteral("SELECT coalesce(Text, Time, Decimal) FROM Overview WHERE Name='%1'")
                               .arg(QLatin1String(key)));
    }
    QString Setting(const char* key) const
    {
        return QueryTarget(
            QStringLiteral("SELECT coalesce(Number, Decimal) FROM Settings WHERE Name='%1'").arg(QLatin1String(key)));
    }
    /// The files in the folder of the test, the old one and the motor database left out.
    QStringList FilesMade() const
    {
        QStringList files = QDir(folder.path()).entryList(QDir::Files);
        files.removeAll(QStringLiteral("alt.KVL"));
        files.removeAll(QStringLiteral("MOTORS.MDB"));
        return files;
    }

    QString source;
    QString target;
};

} // namespace korvanel::test
