#include "output/Report.h"

#include "output/ReportPageHead.h"

#include <stdexcept>

namespace korvanel {

Report::Report()
    : fonts(std::make_shared<ReportFonts>()), sources{std::make_shared<SetValues>(),
                                                      std::make_shared<SetValues>(SetSource::Simulated)}
{}

void Report::Add(ReportRun run)
{
    if (run.pages < 1)
        return;
    pageCount += run.pages;
    runs.push_back(std::move(run));
}

int Report::PagesOf(int section) const
{
    int pages = 0;
    for (const ReportRun& run : runs)
        if (run.section == section)
            pages += run.pages;
    return pages;
}

std::pair<const ReportRun*, int> Report::Find(int page) const
{
    int before = 0;
    for (const ReportRun& run : runs) {
        if (page >= 1 && page - before <= run.pages)
            return {&run, page - before - 1};
        before += run.pages;
    }
    throw std::out_of_range("a page that the report doesn't have");
}

bool Report::Prepare(int page, int milliseconds) const
{
    const ReportRun& run = *Find(page).first;
    return !run.prepare || run.prepare(milliseconds);
}

void Report::DrawPage(ReportPaper& paper, int page) const
{
    const auto [run, pageOfRun] = Find(page);
    ReportSurface surface(paper, *fonts);
    PrintPageHead(surface);
    run->draw(surface, pageOfRun);
    PrintPageFoot(surface, page, pageCount);
}

} // namespace korvanel
