#include "output/ExportText.h"

#include "core/Common.h"
#include "core/LocalFormats.h"
#include "core/NumberText.h"
#include "core/texts/DefaultTexts.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <charconv>
#include <stdexcept>

namespace korvanel {

namespace {

constexpr std::size_t kBlock = 262'144;
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

ExportText::ExportText(const QString& path)
    : file(path), block(kBlock), at(block.data()), decimalPoint(QString(App().DecimalChar).toStdString())
{
    const QFileInfo target(path);
    if (target.exists() && !target.isFile()) // a pipe would hold the program up
        throw std::runtime_error((path + u'\n' + texts::noOrdinaryFile).toStdString());
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered))
        Fail();
    Append(kByteOrderMark);
}

ExportText::~ExportText()
{
    if (file.isOpen())
        file.write(block.data(), at - block.data());
}

char* ExportText::Room(std::size_t characters)
{
    if (block.size() - static_cast<std::size_t>(at - block.data()) < characters)
        WriteBlock();
    return at;
}

void ExportText::EndField(char* last)
{
    *last = kFieldEnd;
    at = last + 1;
}

void ExportText::Append(std::string_view utf8)
{
    while (!utf8.empty()) {
        char* const first = Room(1);
        const std::size_t size = std::min(utf8.size(), static_cast<std::size_t>(block.data() + block.size() - first));
        at = std::copy_n(utf8.data(), size, first);
        utf8.remove_prefix(size);
    }
}

void ExportText::AddNumber(double value)
{
    char* const first = Room(kLongestNumber + 1);
    char* const last = WriteExactNumber(first, value);
    char* const point = std::find(first, last, '.');
    if (point == last)
        return EndField(last);
    if (decimalPoint.size() == 1) {
        *point = decimalPoint.front();
        return EndField(last);
    }
    const std::string fraction(point + 1, last);
    at = point;
    Append(decimalPoint);
    AddFitting(fraction);
}

void ExportText::AddWhole(qint64 value)
{
    char* const first = Room(kLongestNumber + 1);
    EndField(std::to_chars(first, first + kLongestNumber, value).ptr);
}

void ExportText::AddTime(double seconds)
{
    EndField(WriteTime(Room(kLongestNumber + 1), seconds));
}

void ExportText::AddStoredDate(std::string_view stored)
{
    date.clear();
    if (stored.empty() || AppendDateTimeTextOfStored(date, stored))
        AddFitting(date);
    else
        AddText(TypedFieldText(QString::fromUtf8(stored.data(), static_cast<qsizetype>(stored.size()))));
}

void ExportText::AddText(const QString& text)
{
    AddFitting(FieldText(text).toStdString());
}

void ExportText::AddFitting(std::string_view utf8)
{
    Append(utf8);
    EndField(Room(1));
}

void ExportText::EndLine(const QString& rest)
{
    Append(FieldText(rest).toStdString());
    Append(kLineEnd);
}

void ExportText::WriteBlock()
{
    const qint64 size = at - block.data();
    at = block.data(); // also after a failure: what did not go in now must not follow later
    if (file.write(block.data(), size) != size)
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
