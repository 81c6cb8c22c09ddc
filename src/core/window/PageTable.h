// The pages of the program: their numbers, titles, menu entries and the path through them. Whoever adds a page adds a
// line here and a builder in the composition root.
#pragma once

#include "core/Texts.h"

#include <span>

namespace korvanel {

enum PageNumber
{
    kNoPageOnShow = 0,
    kPageGeneralData = 1,
    kPageNetConfiguration = 2,
    kPageDevice = 3,
    kPageMeasure = 4,
    kPageEditor = 5,
    kPageResultTable = 6,
    kNoPage = 7, ///< asking for it shows none
    kPageResultGraph = 8,
    kPagePrint = 9,
    kPageMachine = 10,
};

struct PageEntry
{
    int number;
    const char* name; ///< object name of the page
    TextRef title;
    int back;                     ///< page that cmdBack leads to
    int forward;                  ///< page that cmdForw leads to; kNoPageOnShow: the button is disabled
    bool needsMachine = false;    ///< in the configurations with a machine, only with a valid one
    bool showsDeviceId = false;   ///< carries the identity of the instrument at its bottom
    bool usesMachinePage = false; ///< a step between this page and a neighbour leads over the machine page
};

/// The page of a number, or nothing.
const PageEntry* FindPage(int number);

std::span<const PageEntry> Pages();

/// Where a page's buttons lead in a net configuration.
int PageBehind(const PageEntry& page, int netConf);
int PageBefore(const PageEntry& page, int netConf);

/// False if the page needs a valid machine and there is none.
bool MayShowWithoutMachine(const PageEntry& page, int netConf, bool isModelValid);

} // namespace korvanel
