#include "support/PdfReader.h"

#include "support/ProgramOutput.h"

#include <QTemporaryDir>
#include <QXmlStreamReader>

#include <algorithm>

namespace korvanel::test {

namespace {

constexpr double kMillimetresPerPoint = 25.4 / 72;

double Millimetres(const QXmlStreamReader& xml, const QString& attribute)
{
    bool isNumber = false;
    const double points = xml.attributes().value(attribute).toDouble(&isNumber);
    if (!isNumber)
        throw std::runtime_error("pdftotext: no number in " + attribute.toStdString());
    return points * kMillimetresPerPoint;
}

PdfWord ReadWord(QXmlStreamReader& xml)
{
    PdfWord word;
    word.box.setLeft(Millimetres(xml, "xMin"));
    word.box.setTop(Millimetres(xml, "yMin"));
    word.box.setRight(Millimetres(xml, "xMax"));
    word.box.setBottom(Millimetres(xml, "yMax"));
    word.text = xml.readElementText();
    return word;
}

std::vector<PdfPage> ReadPages(const QString& file)
{
    QXmlStreamReader xml(OutputOf("pdftotext", {"-bbox", "-enc", "UTF-8", file, "-"}));
    std::vector<PdfPage> pages;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == QLatin1String("page"))
            pages.push_back({QSizeF(Millimetres(xml, "width"), Millimetres(xml, "height")), {}, {}});
        else if (xml.name() == QLatin1String("word"))
            pages.back().words.push_back(ReadWord(xml));
    }
    if (xml.hasError())
        throw std::runtime_error("pdftotext: " + xml.errorString().toStdString());
    return pages;
}

/// The rest of the line that begins so; empty without one.
QString Entry(const QString& lines, const QString& key)
{
    for (const QString& line : lines.split('\n'))
        if (line.startsWith(key + ':'))
            return line.mid(key.size() + 1).trimmed();
    return {};
}

} // namespace

PdfWord PdfPage::Word(const QString& wanted) const
{
    const auto found = std::find_if(words.begin(), words.end(), [&](const PdfWord& w) { return w.text == wanted; });
    return found == words.end() ? PdfWord{} : *found;
}

PdfDocument ReadPdf(const QString& file)
{
    const QString info = QString::fromUtf8(OutputOf("pdfinfo", {"-enc", "UTF-8", file}));
    PdfDocument document{Entry(info, "Title"), Entry(info, "Author"), ReadPages(file)};
    const QString text = QString::fromUtf8(OutputOf("pdftotext", {"-layout", "-enc", "UTF-8", file, "-"}));
    const QStringList texts = text.split('\f'); // one after each page
    if (Entry(info, "Pages").toULongLong() != document.pages.size() ||
        texts.size() != static_cast<qsizetype>(document.pages.size()) + 1)
        throw std::runtime_error("The tools don't agree on the number of pages of " + file.toStdString());
    for (std::size_t page = 0; page < document.pages.size(); ++page)
        document.pages[page].text = texts[static_cast<qsizetype>(page)];
    return document;
}

QImage PdfPageImage(const QString& file, int page, int dotsPerInch)
{
    const QTemporaryDir folder;
    const QString number = QString::number(page);
    OutputOf("pdftoppm", {"-png", "-singlefile", "-f", number, "-l", number, "-r", QString::number(dotsPerInch), file,
                          folder.filePath("page")});
    const QImage image(folder.filePath("page.png"));
    if (image.isNull())
        throw std::runtime_error("There is no page " + number.toStdString() + " in " + file.toStdString());
    return image;
}

} // namespace korvanel::test
