#include "output/ReportSpool.h"

#include "core/texts/PrintExportTexts.h"

#include <QDataStream>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPicture>
#include <QTemporaryFile>

namespace korvanel {

namespace {

enum class Mark : quint8
{
    Text,
    Box,
    Line,
    Picture,
};

/// Writes down what is put on a page.
class SpoolPaper : public ReportPaper
{
public:
    SpoolPaper(QDataStream& toStream, const ReportFonts& ofReport) : stream(toStream), fonts(ofReport) {}

    void PutText(QPointF place, const QString& text, const ReportFont& font, QRgb colour, double share) override
    {
        stream << Mark::Text << place << text << font.Number() << colour << share;
    }
    void FillBox(const QRectF& box, QRgb colour) override { stream << Mark::Box << box << colour; }
    void DrawLine(const QLineF& line, double width, QRgb colour) override
    {
        stream << Mark::Line << line << width << colour;
    }
    void DrawInBox(const QRectF& box, double elementsPerMillimetre, const BoxDrawing& draw) override
    {
        QPicture picture;
        QPainter painter(&picture);
        painter.setFont(fonts.text.Font());
        draw(painter, (box.size() * elementsPerMillimetre).toSize());
        painter.end();
        stream << Mark::Picture << box << elementsPerMillimetre << picture;
    }

private:
    QDataStream& stream;
    const ReportFonts& fonts;
};

/// Puts what is written down on a page again.
class SpooledPage
{
public:
    SpooledPage(const QByteArray& page, const ReportFonts& ofReport) : stream(page), fonts(ofReport) {}

    void PutOn(ReportPaper& paper)
    {
        while (!stream.atEnd() && stream.status() == QDataStream::Ok) {
            switch (Next<Mark>()) {
            case Mark::Text:
                PutText(paper);
                break;
            case Mark::Box: {
                const auto box = Next<QRectF>();
                paper.FillBox(box, Next<QRgb>());
                break;
            }
            case Mark::Line: {
                const auto line = Next<QLineF>();
                const auto width = Next<double>();
                paper.DrawLine(line, width, Next<QRgb>());
                break;
            }
            case Mark::Picture:
                PutPicture(paper);
                break;
            }
        }
    }

private:
    template <typename Value>
    Value Next()
    {
        Value value{};
        stream >> value;
        return value;
    }
    void PutText(ReportPaper& paper)
    {
        const auto place = Next<QPointF>();
        const auto text = Next<QString>();
        const auto font = Next<int>();
        const auto colour = Next<QRgb>();
        paper.PutText(place, text, fonts.ByNumber(font), colour, Next<double>());
    }
    void PutPicture(ReportPaper& paper)
    {
        const auto box = Next<QRectF>();
        const auto elementsPerMillimetre = Next<double>();
        const auto picture = Next<QPicture>();
        paper.DrawInBox(box, elementsPerMillimetre, [&picture](QPainter& painter, QSize) {
            const QPaintDevice& device = *painter.device(); // a picture is scaled by its resolution over the screen's
            painter.scale(static_cast<double>(picture.logicalDpiX()) / device.logicalDpiX(),
                          static_cast<double>(picture.logicalDpiY()) / device.logicalDpiY());
            painter.drawPicture(0, 0, picture);
        });
    }

    QDataStream stream;
    const ReportFonts& fonts;
};

} // namespace

ReportSpool::ReportSpool(const Report& ofReport, const ReportProgress& progress)
    : report(ofReport), file(std::make_unique<QTemporaryFile>())
{
    if (!file->open())
        throw ReportFailed(texts::reportSpoolFailed + u'\n' + file->errorString());
    DrawPages(report, progress, [this](int page) {
        QByteArray content;
        QDataStream stream(&content, QIODevice::WriteOnly);
        SpoolPaper paper(stream, report.Fonts());
        report.DrawPage(paper, page);
        Keep(content);
    });
    TryRoom();
}

ReportSpool::~ReportSpool() = default;

void ReportSpool::Write(const QByteArray& block)
{
    if (file->write(block) != block.size() || !file->flush())
        throw ReportFailed(texts::reportSpoolFailed + u'\n' + file->errorString());
}

void ReportSpool::Keep(const QByteArray& page)
{
    Write(page);
    lengths.push_back(page.size());
}

void ReportSpool::TryRoom()
{
    constexpr qint64 kFonts = 2'000'000; // of the document, beside its pages
    const qint64 pages = file->size();
    const QByteArray block(65'536, '\0');
    for (qint64 tried = 0; tried < pages + kFonts; tried += block.size())
        Write(block);
    file->resize(pages);
}

void ReportSpool::DrawOn(QPagedPaintDevice& device)
{
    QPainter painter;
    file->seek(0);
    for (std::size_t page = 0; page < lengths.size(); ++page) {
        const QByteArray content = file->read(lengths[page]);
        if (page == 0 ? !painter.begin(&device) : !device.newPage())
            throw ReportFailed(texts::reportSpoolFailed);
        painter.save();
        ScaleToUnits(painter, device);
        PainterPaper paper(painter, report.Fonts());
        SpooledPage(content, report.Fonts()).PutOn(paper);
        painter.restore();
    }
    painter.end();
}

} // namespace korvanel
