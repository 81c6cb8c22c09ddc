// The list of recent files: order, limit, its drawing into a menu, and its way through the settings store.
#include "core/window/clsMRUMenu.h"

#include "core/SettingsStore.h"
#include "support/Fixture.h"

#include <map>
#include <stdexcept>

namespace korvanel::test {

namespace {

/// A menu that holds captions instead of drawing them. Element 0, the separator, exists from the start.
class FakeMenu : public MenuArray
{
public:
    struct Element
    {
        QString caption;
        bool isVisible = false;
    };

    void SetCaption(int index, const QString& caption) override { elements.at(index).caption = caption; }
    void SetVisible(int index, bool isVisible) override { elements.at(index).isVisible = isVisible; }
    void Load(int index) override { elements.try_emplace(index); }
    void Unload(int index) override { EXPECT_EQ(elements.erase(index), 1u) << index; }
    int UpperBound() const override { return elements.rbegin()->first; }

    QStringList Captions() const
    {
        QStringList captions;
        for (const auto& [index, element] : elements)
            if (index > 0 && element.isVisible)
                captions << element.caption;
        return captions;
    }

    std::map<int, Element> elements{{0, {"?", true}}};
};

class RecordedList : public ListControl
{
public:
    void AddItem(const QString& text) override { items << text; }
    void SelectItem(int) override {}
    QStringList items;
};

class clsMRUMenuTest : public BlockTest
{
protected:
    clsMRUMenuTest() { DeleteSection(kSettingsApplication, kSection); }
    ~clsMRUMenuTest() override { DeleteSection(kSettingsApplication, kSection); }

    static QStringList Entries(const clsMRUMenu& list) { return {list.begin(), list.end()}; }
    void AddAll(const QStringList& texts)
    {
        for (const QString& text : texts)
            mru.Add(text);
    }
    void Store(const QString& key, const QString& value) const
    {
        StoreValue(kSettingsApplication, kSection, key, value);
    }

    const QString kSection = QStringLiteral("MRU");
    FakeMenu menu;
    clsMRUMenu mru;
};

} // namespace

TEST_F(clsMRUMenuTest, NewList_IsEmptyAndHoldsFour)
{
    EXPECT_EQ(mru.Count(), 0);
    EXPECT_EQ(mru.Max(), 4);
}

TEST_F(clsMRUMenuTest, Init_MakesTheFirstElementAnInvisibleSeparator)
{
    mru.Init(menu, kSettingsApplication, kSection);
    EXPECT_EQ(mru.Menu(), &menu);
    EXPECT_EQ(menu.elements.at(0).caption, "-");
    EXPECT_FALSE(menu.elements.at(0).isVisible);
    EXPECT_TRUE(menu.Captions().isEmpty());
}

TEST_F(clsMRUMenuTest, Init_WithoutApplicationReadsNothing)
{
    Store("1", "a");
    mru.Init(menu, "", kSection);
    EXPECT_EQ(mru.Count(), 0);
}

TEST_F(clsMRUMenuTest, Add_PutsTheNewestFirst)
{
    AddAll({"a", "b", "c"});
    EXPECT_EQ(Entries(mru), (QStringList{"c", "b", "a"}));
    EXPECT_EQ(mru.Item(1), "c");
    EXPECT_EQ(mru.Item(3), "a");
}

TEST_F(clsMRUMenuTest, Add_OfAFifthFilePushesOutTheOldest)
{
    AddAll({"a", "b", "c", "d", "e"});
    EXPECT_EQ(Entries(mru), (QStringList{"e", "d", "c", "b"}));
}

TEST_F(clsMRUMenuTest, Add_OfAListedFileBringsItToTheTopWithoutASecondEntry)
{
    AddAll({"a", "b", "c", "a"});
    EXPECT_EQ(Entries(mru), (QStringList{"a", "c", "b"}));
    AddAll({"a"});
    EXPECT_EQ(Entries(mru), (QStringList{"a", "c", "b"}));
}

TEST_F(clsMRUMenuTest, Item_OutsideTheListIsRefused)
{
    mru.Add("a");
    EXPECT_THROW(static_cast<void>(mru.Item(0)), std::out_of_range);
    EXPECT_THROW(static_cast<void>(mru.Item(2)), std::out_of_range);
}

TEST_F(clsMRUMenuTest, Max_OfZeroIsRefusedAndChangesNothing)
{
    AddAll({"a", "b"});
    EXPECT_THROW(mru.SetMax(0), std::invalid_argument);
    EXPECT_THROW(mru.SetMax(-3), std::invalid_argument);
    EXPECT_EQ(mru.Max(), 4);
    EXPECT_EQ(mru.Count(), 2);
}

TEST_F(clsMRUMenuTest, Max_ShortensTheListFromItsEndAndRefreshes)
{
    mru.Init(menu, "", "");
    AddAll({"a", "b", "c"});
    mru.SetMax(2);
    EXPECT_EQ(Entries(mru), (QStringList{"c", "b"}));
    EXPECT_EQ(menu.Captions(), (QStringList{"c", "b"}));
    mru.Add("d");
    EXPECT_EQ(Entries(mru), (QStringList{"d", "c"}));
}

TEST_F(clsMRUMenuTest, Max_OfOneKeepsTheNewest)
{
    AddAll({"a", "b"});
    mru.SetMax(1);
    EXPECT_EQ(Entries(mru), QStringList{"b"});
}

TEST_F(clsMRUMenuTest, Refresh_DrawsEachEntryAndShowsTheSeparator)
{
    mru.Init(menu, "", "");
    AddAll({"a", "b"});
    EXPECT_TRUE(menu.elements.at(0).isVisible);
    EXPECT_EQ(menu.Captions(), (QStringList{"b", "a"}));
    EXPECT_EQ(menu.UpperBound(), 2);
}

TEST_F(clsMRUMenuTest, Refresh_RemovesElementsBehindTheLastEntry)
{
    mru.Init(menu, "", "");
    AddAll({"a", "b", "c"});
    mru.Remove(2);
    EXPECT_EQ(menu.Captions(), (QStringList{"c", "a"}));
    EXPECT_EQ(menu.UpperBound(), 2);
}

TEST_F(clsMRUMenuTest, Clear_EmptiesListAndMenu)
{
    mru.Init(menu, "", "");
    AddAll({"a", "b"});
    mru.Clear();
    EXPECT_EQ(mru.Count(), 0);
    EXPECT_EQ(menu.UpperBound(), 0);
    EXPECT_FALSE(menu.elements.at(0).isVisible);
}

TEST_F(clsMRUMenuTest, Remove_OutsideTheListIsRefused)
{
    mru.Add("a");
    EXPECT_THROW(mru.Remove(2), std::out_of_range);
    EXPECT_THROW(mru.Remove(0), std::out_of_range);
    EXPECT_EQ(mru.Count(), 1);
}

TEST_F(clsMRUMenuTest, SelectItem_MovesAnEntryToTheTop)
{
    mru.Init(menu, "", "");
    AddAll({"a", "b", "c"});
    mru.SelectItem("a");
    EXPECT_EQ(Entries(mru), (QStringList{"a", "c", "b"}));
    EXPECT_EQ(menu.Captions(), (QStringList{"a", "c", "b"}));
}

TEST_F(clsMRUMenuTest, SelectItem_OfAnUnknownTextChangesNothing)
{
    AddAll({"a", "b"});
    mru.SelectItem("x");
    EXPECT_EQ(Entries(mru), (QStringList{"b", "a"}));
}

TEST_F(clsMRUMenuTest, FillListCombo_AddsEachEntryInOrder)
{
    RecordedList list;
    AddAll({"a", "b"});
    mru.FillListCombo(list);
    EXPECT_EQ(list.items, (QStringList{"b", "a"}));
}

TEST_F(clsMRUMenuTest, StoreSettings_WritesMaxAndTheEntriesUnderTheirNumbers)
{
    Store("9", "alt");
    AddAll({"/p/b, c.MDB", "C:\\a.MDB"});
    mru.StoreSettings(kSettingsApplication, kSection);
    EXPECT_EQ(ReadSection(kSettingsApplication, kSection),
              (std::map<QString, QString>{{"Max", "4"}, {"1", "C:\\a.MDB"}, {"2", "/p/b, c.MDB"}}));
}

TEST_F(clsMRUMenuTest, ReadSettings_BringsTheStoredOrderAndMaxBack)
{
    mru.SetMax(12);
    AddAll({"a", "b", "c", "d", "e", "f", "g", "h", "i", "j", "k"});
    mru.StoreSettings(kSettingsApplication, kSection);
    clsMRUMenu next;
    next.Init(menu, kSettingsApplication, kSection);
    EXPECT_EQ(next.Max(), 12);
    EXPECT_EQ(Entries(next), Entries(mru));
    EXPECT_EQ(menu.Captions(), Entries(mru));
}

TEST_F(clsMRUMenuTest, ReadSettings_OfMoreEntriesThanMaxKeepsTheNewest)
{
    Store("Max", "2");
    for (const char* number : {"1", "2", "3", "4"})
        Store(number, QString("Datei ") + number);
    mru.ReadSettings(kSettingsApplication, kSection);
    EXPECT_EQ(Entries(mru), (QStringList{"Datei 1", "Datei 2"}));
}

TEST_F(clsMRUMenuTest, ReadSettings_OfABadMaxKeepsTheDefault)
{
    for (const char* text : {"0", "-5", "abc", "", "99999999999999"}) {
        Store("Max", text);
        clsMRUMenu list;
        list.ReadSettings(kSettingsApplication, kSection);
        EXPECT_EQ(list.Max(), 4) << text;
    }
}

TEST_F(clsMRUMenuTest, ReadSettings_OfADoubledEntryListsItOnce)
{
    Store("1", "a");
    Store("2", "b");
    Store("3", "a");
    mru.ReadSettings(kSettingsApplication, kSection);
    EXPECT_EQ(Entries(mru), (QStringList{"a", "b"}));
}

} // namespace korvanel::test
