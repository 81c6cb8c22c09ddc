#include "demo/OldProject.h"

#include <QDataStream>
#include <QIODevice>

#include <cmath>
#include <functional>

namespace korvanel {

namespace {

QByteArray Numbers(const std::function<void(QDataStream& stream)>& write)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setByteOrder(QDataStream::LittleEndian);
    stream.setFloatingPointPrecision(QDataStream::SinglePrecision);
    write(stream);
    return bytes;
}

QByteArray Whole(qsizetype value)
{
    return Numbers([value](QDataStream& stream) { stream << static_cast<qint32>(value); });
}

/// A tag, the length of the data, and the data, padded to an even length.
QByteArray Chunk(const QByteArray& tag, const QByteArray& data)
{
    return tag + Whole(data.size()) + data + QByteArray(data.size() % 2, '\0');
}

QByteArray Sets()
{
    return Numbers([](QDataStream& stream) {
        for (int set = 0; set < kOldSets; ++set) {
            const double load = 0.6 + 0.3 * std::sin(set / 8.0);
            stream << 400.0F << static_cast<float>(5 + 9 * load) << 50.0F << static_cast<float>(7500 * load)
                   << static_cast<float>(set);
        }
    });
}

} // namespace

QByteArray OldProjectFile()
{
    QByteArray text = Chunk("$VER", "FV-2");
    text += Chunk("F100", "Kreiselpumpe Nr. 3");
    text += Chunk("F103", "Wasserwerk Ost");
    const QByteArray chunks = text + Chunk("BODY", Sets());
    return "FORMKVLS" + Whole(chunks.size()) + chunks;
}

} // namespace korvanel
