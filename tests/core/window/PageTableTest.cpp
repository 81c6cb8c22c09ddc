// The pages of the program and the path through them.
#include "core/window/PageTable.h"

#include "core/Quantities.h"
#include "support/Fixture.h"

#include <map>

namespace korvanel::test {

namespace {

class PageTableTest : public BlockTest
{
protected:
    static const PageEntry& PageOf(int number)
    {
        const PageEntry* page = FindPage(number);
        EXPECT_NE(page, nullptr) << number;
        return page ? *page : Pages().front();
    }
    /// Numbers of the pages that the forward buttons lead through, beginning with page 1.
    static std::vector<int> PathForward(int netConf)
    {
        std::vector<int> path;
        for (const PageEntry* page = FindPage(1); page && path.size() < 20; page = FindPage(PageBehind(*page, netConf)))
            path.push_back(page->number);
        return path;
    }
    static std::vector<int> PathBack(int netConf)
    {
        std::vector<int> path;
        for (const PageEntry* page = FindPage(9); page && path.size() < 20; page = FindPage(PageBefore(*page, netConf)))
            path.push_back(page->number);
        return path;
    }
};

} // namespace

TEST_F(PageTableTest, Pages_HaveTheirNamesAndTitles)
{
    struct Case
    {
        int number;
        const char* name;
        const char* title;
    };
    const Case cases[] = {{1, "FormF1", "Allgemeine Daten"},
                          {2, "FormF2", "Netz - Konfiguration"},
                          {3, "FormF3", "Messgerät - Konfiguration"},
                          {4, "FormF4", "Messgerät - Messung Online"},
                          {5, "FormF5", "Messgerät - Messwerteditor (Offline)"},
                          {6, "FormF6", "Messgerät - Auswertung tabellarisch"},
                          {8, "FormF8", "Messgerät - Auswertung grafisch"},
                          {9, "FormF9", "Messgerät - Auswertung drucken"},
                          {10, "FormF10", "Motor/Generator - Datenbank"}};
    for (const Case& c : cases) {
        const PageEntry& page = PageOf(c.number);
        EXPECT_STREQ(page.name, c.name);
        EXPECT_EQ(TextOf(page.title), c.title);
    }
    EXPECT_EQ(Pages().size(), std::size(cases));
}

TEST_F(PageTableTest, FindPage_OfANumberWithoutPageIsNothing)
{
    for (const int number : {-1, 0, 7, 11, 32767})
        EXPECT_EQ(FindPage(number), nullptr) << number;
}

TEST_F(PageTableTest, Path_LeadsOverTheMachinePageOnlyWithAMachine)
{
    const std::vector<int> plain{1, 2, 3, 4, 5, 6, 8, 9};
    const std::vector<int> withMachine{1, 2, 10, 3, 4, 5, 6, 8, 9};
    const std::map<int, std::vector<int>> paths{{0, plain}, {1, plain},       {2, withMachine}, {3, plain},
                                                {4, plain}, {5, withMachine}, {6, plain}};
    for (const auto& [netConf, path] : paths) {
        EXPECT_EQ(PathForward(netConf), path) << netConf;
        EXPECT_EQ(PathBack(netConf), std::vector<int>(path.rbegin(), path.rend())) << netConf;
    }
}

TEST_F(PageTableTest, Path_BackFromTheFirstPageLeadsToNoPage)
{
    for (int netConf = 0; netConf < kNetConfCount; ++netConf)
        EXPECT_EQ(PageBefore(PageOf(1), netConf), kNoPage) << netConf;
}

TEST_F(PageTableTest, Path_EndsAtThePrintPage)
{
    for (int netConf = 0; netConf < kNetConfCount; ++netConf)
        EXPECT_EQ(PageBehind(PageOf(9), netConf), kNoPageOnShow) << netConf;
}

TEST_F(PageTableTest, MachinePage_StandsBetweenNetAndInstrumentInEveryConfiguration)
{
    for (int netConf = 0; netConf < kNetConfCount; ++netConf) {
        EXPECT_EQ(PageBefore(PageOf(10), netConf), 2) << netConf;
        EXPECT_EQ(PageBehind(PageOf(10), netConf), 3) << netConf;
    }
}

TEST_F(PageTableTest, MeasuringPages_NeedAMachineInConfigurationsTwoAndFive)
{
    for (int netConf = 0; netConf < kNetConfCount; ++netConf) {
        for (const PageEntry& page : Pages()) {
            const bool isMeasuring =
                page.number == 4 || page.number == 5 || page.number == 6 || page.number == 8 || page.number == 9;
            const bool isRefused = isMeasuring && (netConf == 2 || netConf == 5);
            EXPECT_EQ(MayShowWithoutMachine(page, netConf, false), !isRefused) << page.name << ' ' << netConf;
            EXPECT_TRUE(MayShowWithoutMachine(page, netConf, true)) << page.name << ' ' << netConf;
        }
    }
}

TEST_F(PageTableTest, DeviceLabel_StandsOnEditorTableGraphAndPrint)
{
    for (const PageEntry& page : Pages())
        EXPECT_EQ(page.showsDeviceId, page.number == 5 || page.number == 6 || page.number == 8 || page.number == 9)
            << page.name;
}

TEST_F(PageTableTest, NumberSeven_StandsForNoPage)
{
    EXPECT_EQ(FindPage(7), nullptr);
    EXPECT_EQ(PageBefore(PageOf(1), 0), 7);
}

} // namespace korvanel::test
