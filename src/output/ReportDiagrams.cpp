#include "core/Common.h"
#include "core/NumberText.h"
#include "core/texts/PrintExportTexts.h"
#include "diagrams/DiagramContent.h"
#include "diagrams/DiagramPicture.h"
#include "output/ReportFlow.h"
#include "output/ReportSections.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <set>

namespace korvanel {

namespace {

/// The diagrams of a report: their curves, and the reading that goes ahead of their drawing.
class ReportDiagrams
{
public:
    ReportDiagrams(DiagramSources ofSources, bool hasAllCurves, bool hasOneCurve) : sources(std::move(ofSources))
    {
        content.ComputeScaleEnds();
        if (hasAllCurves)
            sheets.push_back(SheetOf(content.CurvesOn(), texts::reportAllCurves));
        if (hasOneCurve)
            sheets.push_back(SheetOf(content.ChosenCurve(), texts::reportOneCurve));
    }

    /// Reads the values that the drawing wants and that can be kept.
    bool Read(int milliseconds)
    {
        if (state == State::ToBegin) {
            measured.emplace(*sources.measured, QuantitiesOf(&DiagramSheet::curves), 1, App().iSetCount);
            if (const std::vector<int> quantities = SimulatedQuantities(); !quantities.empty())
                simulated.emplace(*sources.simulated, quantities, 1, App().iSetCount);
            state = State::Reading;
        }
        ValueBlock block;
        if (measured && !measured->Next(block, milliseconds))
            measured.reset();
        else if (!measured && simulated && !simulated->Next(block, milliseconds))
            simulated.reset();
        if (!measured && !simulated)
            state = State::Ready;
        return state == State::Ready;
    }

    void Draw(ReportSurface& surface) const
    {
        constexpr double kHeight = 110;
        constexpr double kGap = 4;
        constexpr double kElementsPerMillimetre = 4;
        DrawSectionTitle(surface, kBodyTop, texts::reportDiagrams);
        double y = kBodyTop + kTitleHeight;
        for (const DiagramSheet& sheet : sheets) {
            surface.DrawInBox(
                QRectF(kBodyLeft, y, kBodyRight - kBodyLeft, kHeight), kElementsPerMillimetre,
                [&](QPainter& painter, QSize elements) { PaintSheet(painter, *sources.measured, sheet, elements); });
            y += kHeight + kGap;
        }
    }

private:
    enum class State
    {
        ToBegin,
        Reading,
        Ready,
    };

    DiagramSheet SheetOf(const std::vector<DiagramCurve>& curves, const QString& title) const
    {
        DiagramSheet sheet;
        sheet.view = content.WholeView();
        sheet.curves = curves;
        sheet.overlay = {sources.simulated.get(), DiagramContent::CurvesOfSecondMachine(curves)};
        if (App().DiagramPage.quantity >= 0)
            sheet.axisCurve = content.CurveOf(App().DiagramPage.quantity);
        sheet.count = App().iSetCount;
        sheet.title = sheet.overlay.curves.empty() ? title : FillPlaceholders(texts::reportDashed, {title});
        return sheet;
    }

    std::vector<int> QuantitiesOf(std::vector<DiagramCurve> DiagramSheet::*curves) const
    {
        std::set<int> quantities;
        for (const DiagramSheet& sheet : sheets)
            for (const DiagramCurve& curve : sheet.*curves)
                quantities.insert(curve.quantity);
        return {quantities.begin(), quantities.end()};
    }

    std::vector<int> SimulatedQuantities() const
    {
        std::set<int> quantities;
        for (const DiagramSheet& sheet : sheets)
            for (const DiagramCurve& curve : sheet.overlay.curves)
                quantities.insert(curve.quantity);
        return {quantities.begin(), quantities.end()};
    }

    DiagramSources sources;
    DiagramContent content;
    std::vector<DiagramSheet> sheets;
    std::optional<SetValues::Walk> measured;
    std::optional<SetValues::Walk> simulated;
    State state = State::ToBegin;
};

} // namespace

ReportRun DiagramPages(const DiagramSources& sources, bool hasAllCurves, bool hasOneCurve)
{
    constexpr qint32 kLeastSets = 2;
    if (App().iSetCount < kLeastSets || !(hasAllCurves || hasOneCurve))
        return {};
    const auto diagrams = std::make_shared<ReportDiagrams>(sources, hasAllCurves, hasOneCurve);
    return {.section = hasAllCurves ? kReportAllCurves : kReportOneCurve,
            .pages = 1,
            .draw = [diagrams](ReportSurface& surface, int) { diagrams->Draw(surface); },
            .prepare = [diagrams](int milliseconds) { return diagrams->Read(milliseconds); }};
}

} // namespace korvanel
