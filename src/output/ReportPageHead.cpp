#include "output/ReportPageHead.h"

#include "core/Common.h"
#include "core/LocalFormats.h"
#include "core/NumberText.h"
#include "core/Paths.h"
#include "core/texts/PrintExportTexts.h"
#include "output/ExportText.h"
#include "output/ReportFlow.h"

namespace korvanel {

void PrintPageHead(ReportSurface& surface)
{
    constexpr QRectF kBox(20, 15, 170, 23);
    constexpr double kTitleRight = 135;
    constexpr double kProgramLeft = 155;
    constexpr double kTextLeft = 22;
    constexpr double kFirstLine = 22.5;
    const QColor fill(215, 215, 215);
    const ReportFonts& fonts = surface.Fonts();
    surface.FillBox(kBox, fill);
    const QString title = texts::reportTitle.toUpper();
    surface.PutText(kTitleRight - fonts.title.Width(title), kBox.top(), title, fonts.title);
    surface.PutText(kProgramLeft, kBox.top(), texts::reportProgram, fonts.title);
    const QString lines[] = {
        FillPlaceholders(texts::reportHeadProject, {FieldText(App().sProjectName)}),
        FillPlaceholders(texts::reportHeadEditor, {FieldText(App().sEditor), FieldText(App().sCompany)}),
        FillPlaceholders(texts::reportHeadPrinted, {DateTimeText(App().dtPrinted), FileNameOf(App().sProjectPath),
                                                    QString::number(App().iSetCount)}),
    };
    double y = kFirstLine;
    for (const QString& line : lines) {
        surface.PutText(kTextLeft, y, CutText(line, kBox.right() - 1 - kTextLeft, fonts.text), fonts.text);
        y += fonts.text.LineHeight() + 0.8;
    }
}

void PrintPageFoot(ReportSurface& surface, int page, int pageCount)
{
    constexpr double kTop = 283;
    const ReportFonts& fonts = surface.Fonts();
    surface.DrawLine(kBodyLeft, kTop - 1, kBodyRight, kTop - 1, 0.1);
    surface.FitText(kBodyLeft, kBodyRight, kTop,
                    FillPlaceholders(texts::reportFoot, {QString::number(page), QString::number(pageCount)}),
                    fonts.small, Qt::AlignRight);
}

} // namespace korvanel
