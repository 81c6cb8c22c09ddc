#include "output/PdfFile.h"

#include "core/texts/PrintExportTexts.h"
#include "output/ReportFailures.h"

#include <QRegularExpression>

namespace korvanel {

namespace {

constexpr qsizetype kTail = 4096;

/// A text in the encoding that readers take for any script.
QByteArray PdfText(const QString& text)
{
    QByteArray hex = "<FEFF";
    for (const QChar unit : text)
        hex += QByteArray::number(unit.unicode(), 16).rightJustified(4, '0').toUpper();
    return hex + '>';
}

} // namespace

QByteArray PdfPropertiesUpdate(const QByteArray& tail, qint64 length, const PdfProperties& properties)
{
    static const QRegularExpression end(
        QStringLiteral(
            R"(trailer\s*<<\s*/Size (\d+)\s*/Info (\d+) 0 R\s*/Root (\d+) 0 R.*>>\s*startxref\s*(\d+)\s*%%EOF\s*$)"),
        QRegularExpression::DotMatchesEverythingOption);
    const auto match = end.match(QString::fromLatin1(tail));
    if (!match.hasMatch())
        return {};
    const QByteArray size = match.captured(1).toLatin1();
    const QByteArray info = match.captured(2).toLatin1();
    const QByteArray root = match.captured(3).toLatin1();
    const QByteArray description = info + " 0 obj\n<<\n/Title " + PdfText(properties.title) + "\n/Author " +
                                   PdfText(properties.author) + "\n/Creator " + PdfText(properties.creator) +
                                   "\n>>\nendobj\n";
    const QByteArray place = QByteArray::number(length).rightJustified(10, '0');
    return description + "xref\n" + info + " 1\n" + place + " 00000 n \ntrailer\n<<\n/Size " + size + "\n/Info " +
           info + " 0 R\n/Root " + root + " 0 R\n/Prev " + match.captured(4).toLatin1() + "\n>>\nstartxref\n" +
           QByteArray::number(length + description.size()) + "\n%%EOF\n";
}

/// Hands everything on to the file, and remembers the end.
class PdfFile::Tail : public QIODevice
{
public:
    explicit Tail(QSaveFile& toFile) : file(toFile) { open(QIODevice::WriteOnly | QIODevice::Unbuffered); }

    bool isSequential() const override { return true; }
    QByteArray last;
    qint64 length = 0;
    bool hasFailed = false;

protected:
    qint64 readData(char* /*data*/, qint64 /*most*/) override { return -1; }
    qint64 writeData(const char* data, qint64 count) override
    {
        const qint64 written = file.write(data, count);
        hasFailed = hasFailed || written != count;
        if (count >= kTail)
            last.clear();
        const qint64 kept = std::min<qint64>(count, kTail);
        last.append(data + (count - kept), static_cast<qsizetype>(kept));
        if (last.size() > 2 * kTail)
            last = last.right(kTail);
        length += count;
        return count; // a failure is told at the end of the page
    }

private:
    QSaveFile& file;
};

PdfFile::PdfFile(const QString& toPath) : path(toPath), file(toPath)
{
    if (!file.open(QIODevice::WriteOnly))
        Fail(file.errorString());
    tail = std::make_unique<Tail>(file);
}

PdfFile::~PdfFile() = default;

QIODevice& PdfFile::Device()
{
    return *tail;
}

void PdfFile::Fail(const QString& reason) const
{
    throw ReportFailed(texts::reportNoFile + u'\n' + path + u'\n' + reason);
}

void PdfFile::RequireWritten()
{
    if (tail->hasFailed || !file.flush())
        Fail(file.errorString());
}

void PdfFile::Finish(const PdfProperties& properties)
{
    const QByteArray update = PdfPropertiesUpdate(tail->last.right(kTail), tail->length, properties);
    tail->write(update);
    RequireWritten();
    if (!file.commit())
        Fail(file.errorString());
}

} // namespace korvanel
