#include "core/window/PageTable.h"

#include "core/NetConfigurations.h"
#include "core/texts/MainTexts.h"

#include <algorithm>

namespace korvanel {

namespace {

constexpr PageEntry kPages[] = {
    {.number = kPageGeneralData,
     .name = "FormF1",
     .title = &texts::titlePage1,
     .back = kNoPage,
     .forward = kPageNetConfiguration},
    {.number = kPageNetConfiguration,
     .name = "FormF2",
     .title = &texts::titlePage2,
     .back = kPageGeneralData,
     .forward = kPageDevice,
     .usesMachinePage = true},
    {.number = kPageDevice,
     .name = "FormF3",
     .title = &texts::titlePage3,
     .back = kPageNetConfiguration,
     .forward = kPageMeasure,
     .usesMachinePage = true},
    {.number = kPageMeasure,
     .name = "FormF4",
     .title = &texts::titlePage4,
     .back = kPageDevice,
     .forward = kPageEditor,
     .needsMachine = true},
    {.number = kPageEditor,
     .name = "FormF5",
     .title = &texts::titlePage5,
     .back = kPageMeasure,
     .forward = kPageResultTable,
     .needsMachine = true,
     .showsDeviceId = true},
    {.number = kPageResultTable,
     .name = "FormF6",
     .title = &texts::titlePage6,
     .back = kPageEditor,
     .forward = kPageResultGraph,
     .needsMachine = true,
     .showsDeviceId = true},
    {.number = kPageResultGraph,
     .name = "FormF8",
     .title = &texts::titlePage8,
     .back = kPageResultTable,
     .forward = kPagePrint,
     .needsMachine = true,
     .showsDeviceId = true},
    {.number = kPagePrint,
     .name = "FormF9",
     .title = &texts::titlePage9,
     .back = kPageResultGraph,
     .forward = kNoPageOnShow,
     .needsMachine = true,
     .showsDeviceId = true},
    {.number = kPageMachine,
     .name = "FormF10",
     .title = &texts::titlePage10,
     .back = kPageNetConfiguration,
     .forward = kPageDevice},
};

} // namespace

std::span<const PageEntry> Pages()
{
    return kPages;
}

const PageEntry* FindPage(int number)
{
    const auto* page =
        std::find_if(std::begin(kPages), std::end(kPages), [number](const PageEntry& p) { return p.number == number; });
    return page == std::end(kPages) ? nullptr : page;
}

int PageBehind(const PageEntry& page, int netConf)
{
    const bool leadsOverMachine = page.usesMachinePage && page.forward == kPageDevice && HasMachine(netConf);
    return leadsOverMachine ? kPageMachine : page.forward;
}

int PageBefore(const PageEntry& page, int netConf)
{
    const bool leadsOverMachine = page.usesMachinePage && page.back == kPageNetConfiguration && HasMachine(netConf);
    return leadsOverMachine ? kPageMachine : page.back;
}

bool MayShowWithoutMachine(const PageEntry& page, int netConf, bool isModelValid)
{
    return !page.needsMachine || !HasMachine(netConf) || isModelValid;
}

} // namespace korvanel
