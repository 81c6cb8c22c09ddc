#include "output/ExportText.h"

#include "core/Common.h"
#include "core/LocalFormats.h"
#include "core/NumberText.h"

#include <QDir>

#include <algorithm>
#include <array>
#include <charconv>
#include <stdexcept>

namespace korvanel {

namespace {

constexpr std::size_t kBlock = 256 * 1024;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr char kFieldEnd = '\t';
#ifdef Q_OS_WIN
constexpr std::string_view kLineEnd = "\r\n";
#else
constexpr std::string_view kLineEnd = "\n";
#endif

bool IsControl(QChar c)
{
    return c.category() == QChar::Other_Control || c == QChar::LineSeparator || c == QChar::ParagraphSeparator;
}

} // namespace

QString FieldText(const QString& text)
{
    if (std::none_of(text.begin(), text.end(), IsControl))
        return text;
    QString field = text;
    field.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    std::replace_if(field.begin(), field.end(), IsControl, QChar(u' '));
    return field;
}

QString TypedFieldText(const QString& text)
{
    constexpr QStringView kSpecial = u"=+-@\"";
    QString field = FieldText(text);
    // An apostrophe would stay to be seen in a text file; a blank is seen by nobody and trimmed by everybody.
    if (!field.isEmpty() && kSpecial.contains(field.front()))
        field.prepend(u' ');
    return field;
}

ExportText::ExportText(const QString& path) : file(path), decimalPoint(QString(App().DecimalChar).toStdString())
{
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered))
        Fail();
    block.reserve(kBlock + kBlock / 4);
    block = kByteOrderMark;
}

ExportText::~ExportText()
{
    if (file.isOpen())
        file.write(block.data(), static_cast<qint64>(block.size()));
}

void ExportText::Append(const char* first, const char* last)
{
    block.append(first, last);
    block += kFieldEnd;
}

void ExportText::AddNumber(double value)
{
    std::array<char, kLongestNumber> text;
    char* const last = WriteExactNumber(text.data(), value);
    char* const point = std::find(text.data(), last, '.');
    if (point != last) {
        block.append(text.data(), point);
        block += decimalPoint;
        Append(point + 1, last);
    } else {
        Append(text.data(), last);
    }
}

void ExportText::AddWhole(qint64 value)
{
    std::array<char, kLongestNumber> text;
    Append(text.data(), std::to_chars(text.begin(), text.end(), value).ptr);
}

void ExportText::AddTime(double seconds)
{
    std::array<char, kLongestNumber> text;
    Append(text.data(), WriteTime(text.data(), seconds));
}

void ExportText::AddStoredDate(std::string_view stored)
{
    if (stored.empty() || AppendDateTimeTextOfStored(block, stored))
        block += kFieldEnd;
    else
        AddText(TypedFieldText(QString::fromUtf8(stored.data(), static_cast<qsizetype>(stored.size()))));
}

void ExportText::AddText(const QString& text)
{
    AddFitting(FieldText(text).toStdString());
}

void ExportText::AddFitting(std::string_view utf8)
{
    block += utf8;
    block += kFieldEnd;
}

void ExportText::EndLine(const QString& rest)
{
    if (!rest.isEmpty())
        block += FieldText(rest).toStdString();
    block += kLineEnd;
    if (block.size() >= kBlock)
        WriteBlock();
}

void ExportText::WriteBlock()
{
    const bool isWritten = file.write(block.data(), static_cast<qint64>(block.size())) == qint64(block.size());
    block.clear(); // also after a failure: what did not go in now must not follow later
    if (!isWritten)
        Fail();
}

void ExportText::Finish()
{
    WriteBlock();
    file.close();
    if (file.error() != QFileDevice::NoError)
        Fail();
}

void ExportText::Fail() const
{
    const QString message = QDir::toNativeSeparators(file.fileName()) + u'\n' + file.errorString();
    throw std::runtime_error(message.toStdString());
}

} // namespace korvanel
