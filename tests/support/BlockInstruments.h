// Replies of the instruments that send all their values in one block, put together by hand.
#pragma once

#include <QByteArray>

namespace korvanel::test {

/// A good block of the NANOVIP PLUS: 230 V, 5.05 A, 930 W, power factor 0.8, 697 var, 1160 VA, 50 Hz, status 0.
inline QByteArray NanovipBlock()
{
    QByteArray block = ":010392" + QByteArray(292, '0') + "00\r\n";
    const struct
    {
        int position;
        const char* field;
    } values[] = {{8, "300200"},  {14, "0505FE"}, {20, "300900"}, {26, "0800FF"},
                  {32, "970600"}, {38, "160101"}, {44, "0005FF"}};
    for (const auto& [position, field] : values)
        block.replace(position - 1, 6, field);
    return block;
}

/// A field of a block, flush right.
inline void PutField(QByteArray& block, int position, int length, const QByteArray& text)
{
    block.replace(position - 1, length, text.rightJustified(length, ' '));
}

/// A block of blanks with its line end.
inline QByteArray EmptyBlock(int length)
{
    return QByteArray(length - 2, ' ') + "\r\n";
}

} // namespace korvanel::test
