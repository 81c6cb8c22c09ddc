// The printers of the system as a page lists and chooses them.
#include "core/Printers.h"

#include "support/Fixture.h"

namespace korvanel::test {

namespace {

class RecordedList : public ListControl
{
public:
    void AddItem(const QString& text) override { items << text; }
    void SelectItem(int index) override { selected.push_back(index); }

    QStringList items;
    std::vector<int> selected;
};

class PrintersTest : public BlockTest
{
protected:
    RecordedList list;
};

} // namespace

TEST_F(PrintersTest, HasDefaultPrinter_WhenItsNameCanBeRead)
{
    EXPECT_FALSE(HasDefaultPrinter());
    shell.defaultPrinter = "Büro";
    EXPECT_TRUE(HasDefaultPrinter());
}

TEST_F(PrintersTest, FillPrinterList_AddsEachPrinterAndSelectsTheDefault)
{
    shell.printers = {"Keller", "Büro", "PDF"};
    shell.defaultPrinter = "Büro";
    FillPrinterList(list);
    EXPECT_EQ(list.items, (QStringList{"Keller", "Büro", "PDF"}));
    EXPECT_EQ(list.selected, std::vector<int>{1});
}

TEST_F(PrintersTest, FillPrinterList_SelectsNothingIfTheDefaultIsNotListed)
{
    shell.printers = {"Keller", "Büro"};
    shell.defaultPrinter = "Dachboden";
    FillPrinterList(list);
    EXPECT_EQ(list.items.size(), 2);
    EXPECT_TRUE(list.selected.empty());
}

TEST_F(PrintersTest, FillPrinterList_WithoutPrintersStaysEmpty)
{
    FillPrinterList(list);
    EXPECT_TRUE(list.items.isEmpty());
    EXPECT_TRUE(list.selected.empty());
}

TEST_F(PrintersTest, SelectPrinter_MakesItTheCurrentOne)
{
    shell.printers = {"Keller", "Büro"};
    EXPECT_TRUE(SelectPrinter("Büro"));
    EXPECT_EQ(App().sPrinter, "Büro");
}

TEST_F(PrintersTest, SelectPrinter_OfAnUnknownNameIsFalseAndChangesNothing)
{
    shell.printers = {"Keller", "Büro"};
    ASSERT_TRUE(SelectPrinter("Keller"));
    EXPECT_FALSE(SelectPrinter("Dachboden"));
    EXPECT_FALSE(SelectPrinter(""));
    EXPECT_EQ(App().sPrinter, "Keller");
}

} // namespace korvanel::test
