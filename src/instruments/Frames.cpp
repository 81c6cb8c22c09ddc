#include "instruments/Frames.h"

#include "core/NumberText.h"

namespace korvanel {

namespace {

quint16 Crc16(const QByteArray& bytes)
{
    constexpr unsigned kPolynomial = 0xA001;
    unsigned crc = 0xFFFF;
    for (const char byte : bytes) {
        crc ^= static_cast<quint8>(byte);
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc & 1U) != 0 ? (crc >> 1U) ^ kPolynomial : crc >> 1U;
    }
    return static_cast<quint16>(crc);
}

} // namespace

QByteArray Crc16Append(const QByteArray& frame)
{
    const quint16 crc = Crc16(frame);
    QByteArray whole = frame;
    whole.append(static_cast<char>(crc & 0xFFU));
    whole.append(static_cast<char>(crc >> 8U));
    return whole;
}

bool HasValidCrc(const QByteArray& reply)
{
    constexpr qsizetype kCrcBytes = 2;
    return reply.size() > kCrcBytes && Crc16Append(reply.chopped(kCrcBytes)) == reply;
}

bool IsAnswerTo(const QByteArray& request, const QByteArray& reply, qsizetype leastLength)
{
    constexpr qsizetype kHead = 2;
    return reply.size() >= leastLength && reply.left(kHead) == request.left(kHead);
}

QByteArray Line(const char* command)
{
    return QByteArray(command) + "\r\n";
}

double NumberAt(const QByteArray& reply, qsizetype position, qsizetype length)
{
    return LeadingNumber(QString::fromLatin1(reply.mid(position - 1, length)));
}

double UnitPrefixFactor(const QString& text)
{
    struct Prefix
    {
        char16_t letter;
        double factor;
    };
    constexpr qsizetype kFirstPlace = 2;
    for (const Prefix& prefix : {Prefix{u'm', 0.001}, Prefix{u'k', 1e3}, Prefix{u'M', 1e6}})
        if (text.indexOf(prefix.letter, kFirstPlace) >= 0)
            return prefix.factor;
    return 1;
}

} // namespace korvanel
