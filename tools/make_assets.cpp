// Draws the logo and the icon, and prints each manual as a PDF file into the folder of the languages.
//   make_assets OUTPUT-DIRECTORY [MANUAL.md FILE.pdf]...
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QPdfWriter>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextStream>
#include <QUrl>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <numbers>

namespace {

const QColor kNight(0x1b, 0x2a, 0x41);
const QColor kCopper(0xd9, 0x7b, 0x29);
const QColor kSteel(0x5b, 0x8d, 0xb8);

/// A machine seen from its shaft: the ring of the stator with its slots, and the three phases as sine curves.
void DrawMark(QPainter& painter, const QRectF& box)
{
    constexpr int kSlots = 24;
    constexpr int kPhases = 3;
    constexpr int kSteps = 60;
    painter.save();
    painter.translate(box.center());
    painter.scale(box.width() / 100, box.height() / 100);
    painter.setPen(Qt::NoPen);
    painter.setBrush(kNight);
    painter.drawEllipse(QPointF(0, 0), 48, 48);
    painter.setBrush(Qt::white);
    for (int i = 0; i < kSlots; ++i) {
        painter.save();
        painter.rotate(360.0 / kSlots * i);
        painter.drawRoundedRect(QRectF(-1.6, -44, 3.2, 9), 1.2, 1.2);
        painter.restore();
    }
    painter.drawEllipse(QPointF(0, 0), 32, 32);
    const QColor colours[kPhases] = {kCopper, kSteel, kNight};
    for (int phase = 0; phase < kPhases; ++phase) {
        QPainterPath curve;
        for (int i = 0; i <= kSteps; ++i) {
            const double x = -27.0 + 54.0 * i / kSteps;
            const double angle = 2 * std::numbers::pi * (static_cast<double>(i) / kSteps + phase / 3.0);
            const QPointF point(x, -14 * std::sin(angle));
            if (i == 0)
                curve.moveTo(point);
            else
                curve.lineTo(point);
        }
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(colours[phase], 3.2, Qt::SolidLine, Qt::RoundCap));
        painter.drawPath(curve);
    }
    painter.restore();
}

bool DrawLogo(const QString& path)
{
    QImage logo(360, 140, QImage::Format_RGB32);
    logo.fill(Qt::white);
    QPainter painter(&logo);
    painter.setRenderHint(QPainter::Antialiasing);
    DrawMark(painter, {110, 0, 140, 140});
    painter.end();
    return logo.save(path, "BMP");
}

bool DrawIcon(const QString& path)
{
    QImage icon(128, 128, QImage::Format_ARGB32);
    icon.fill(Qt::transparent);
    QPainter painter(&icon);
    painter.setRenderHint(QPainter::Antialiasing);
    DrawMark(painter, {0, 0, 128, 128});
    painter.end();
    return icon.save(path, "PNG");
}

/// Gives the manual its pictures, which stand beside it; those of pages are wider than the paper and shrink to it.
void AddPictures(QTextDocument& manual, const QDir& folder)
{
    constexpr double kWidth = 460; // of the text, in the pixels of a screen
    for (QTextBlock block = manual.begin(); block.isValid(); block = block.next())
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QString name = it.fragment().charFormat().toImageFormat().name();
            QImage picture(folder.filePath(name));
            if (name.isEmpty() || picture.isNull())
                continue;
            picture.setDevicePixelRatio(std::max(1.0, picture.width() / kWidth));
            manual.addResource(QTextDocument::ImageResource, QUrl(name), picture);
        }
}

bool PrintManual(const QString& source, const QString& path)
{
    constexpr int kMarginMm = 22;
    QFile text(source);
    if (!text.open(QIODevice::ReadOnly))
        return false;
    QTextDocument manual;
    manual.setDefaultFont(QFont(QStringLiteral("DejaVu Sans"), 10));
    manual.setMarkdown(QString::fromUtf8(text.readAll()));
    AddPictures(manual, QFileInfo(source).dir());
    QPdfWriter writer(path);
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setPageMargins(QMarginsF(kMarginMm, kMarginMm, kMarginMm, kMarginMm), QPageLayout::Millimeter);
    writer.setTitle(QStringLiteral("KORVANEL"));
    manual.print(&writer);
    return QFile(path).size() > 0;
}

} // namespace

int main(int argc, char* argv[])
{
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    if (arguments.size() < 2 || arguments.size() % 2 != 0) {
        QTextStream(stderr) << "usage: make_assets OUTPUT-DIRECTORY [MANUAL.md FILE.pdf]...\n";
        return EXIT_FAILURE;
    }
    const QDir output(arguments[1]);
    bool isDone = output.mkpath(QStringLiteral("LANGUAGES")) && DrawLogo(output.filePath(QStringLiteral("LOGO.BMP"))) &&
                  DrawIcon(output.filePath(QStringLiteral("KORVANEL.png")));
    const QDir languages(output.filePath(QStringLiteral("LANGUAGES")));
    for (qsizetype i = 2; isDone && i < arguments.size(); i += 2)
        isDone = PrintManual(arguments[i], languages.filePath(arguments[i + 1]));
    return isDone ? EXIT_SUCCESS : EXIT_FAILURE;
}
