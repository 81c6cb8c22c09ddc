#include "core/window/PageTable.h"

#include "core/Quantities.h"

#include <algorithm>

namespace korvanel {

namespace {

using T = TextTable;

constexpr PageEntry kPages[] = {
    {.number = kPageGeneralData,
     .name = "FormF1",
     .title = &T::titlePage1,
     .back = kNoPage,
     .forward = kPageNetConfiguration},
    {.number = kPageNetConfiguration,
     .name = "FormF2",
     .title = &T::titlePage2,
     .back = kPageGeneralData,
     .forward = kPageDevice,
     .usesMachinePage = true},
    {.number = kPageDevice,
     .name = "FormF3",
     .title = &T::titlePage3,
     .back = kPageNetConfiguration,
     .forward = kPageMeasure,
     .usesMachinePage = true},
    {.number = kPageMeasure,
     .name = "FormF4",
     .title = &T::titlePage4,
     .back = kPageDevice,
     .forward = kPageEditor,
     .needsMachine = true},
    {.number = kPageEditor,
     .name = "FormF5",
     .title = &T::titlePage5,
     .back = kPageMeasure,
     .forward = kPageResultTable,
     .needsMachine = true,
     .showsDeviceId = true},
    {.number = kPageResultTable,
     .name = "FormF6",
     .title = &T::titlePage6,
     .back = kPageEditor,
     .forward = kPageResultGraph,
     .needsMachine = true,
     .showsDeviceId = true},
    {.number = kPageResultGraph,
     .name = "FormF8",
     .title = &T::titlePage8,
     .back = kPageResultTable,
     .forward = kPagePrint,
     .needsMachine = true,
     .showsDeviceId = true},
    {.number = kPagePrint,
     .name = "FormF9",
     .title = &T::titlePage9,
     .back = kPageResultGraph,
     .forward = kNoPageOnShow,
     .needsMachine = true,
     .showsDeviceId = true},
    {.number = kPageMachine,
     .name = "FormF10",
     .title = &T::titlePage10,
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
