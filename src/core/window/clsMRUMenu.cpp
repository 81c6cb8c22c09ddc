#include "core/window/clsMRUMenu.h"

#include "core/SettingsStore.h"

#include <algorithm>
#include <map>
#include <stdexcept>

namespace korvanel {

namespace {

constexpr int kMostEntries = 99; // no menu shows more
const QString kMaxKey = QStringLiteral("Max");

} // namespace

void clsMRUMenu::Init(MenuArray& array, const QString& application, const QString& section)
{
    menu = &array;
    menu->SetCaption(0, QStringLiteral("-"));
    menu->SetVisible(0, false);
    if (!application.isEmpty())
        ReadSettings(application, section);
}

const QString& clsMRUMenu::Item(int index) const
{
    if (index < 1 || index > Count())
        throw std::out_of_range("clsMRUMenu::Item");
    return entries[index - 1];
}

void clsMRUMenu::SetMax(int value)
{
    if (value < 1)
        throw std::invalid_argument("clsMRUMenu::Max");
    max = value;
    while (Count() > max)
        entries.removeLast();
    Refresh();
}

void clsMRUMenu::Add(const QString& text)
{
    if (entries.contains(text)) {
        SelectItem(text);
        return;
    }
    entries.prepend(text);
    if (Count() > max)
        entries.removeLast();
    Refresh();
}

void clsMRUMenu::Clear()
{
    entries.clear();
    Refresh();
}

void clsMRUMenu::Remove(int index)
{
    entries.removeOne(Item(index));
    Refresh();
}

void clsMRUMenu::SelectItem(const QString& text)
{
    const qsizetype at = entries.indexOf(text);
    if (at < 0)
        return;
    entries.move(at, 0);
    Refresh();
}

void clsMRUMenu::FillListCombo(ListControl& list) const
{
    for (const QString& entry : entries)
        list.AddItem(entry);
}

void clsMRUMenu::Refresh()
{
    if (!menu)
        return;
    menu->SetVisible(0, Count() > 0);
    for (int i = 1; i <= Count(); ++i) {
        menu->Load(i);
        menu->SetCaption(i, Item(i));
        menu->SetVisible(i, true);
    }
    for (int i = menu->UpperBound(); i > Count(); --i)
        menu->Unload(i);
}

void clsMRUMenu::ReadSettings(const QString& application, const QString& section)
{
    // The store sorts its keys as texts; the numbers tell the order in which the entries were stored.
    std::map<int, QString> stored;
    for (const auto& [key, value] : ReadSection(application, section)) {
        bool isNumber = false;
        const int number = key.toInt(&isNumber);
        if (isNumber && !value.isEmpty())
            stored[number] = value;
        else if (key == kMaxKey && value.toInt() >= 1)
            max = std::min(value.toInt(), kMostEntries);
    }
    entries.clear();
    for (auto entry = stored.rbegin(); entry != stored.rend(); ++entry)
        Add(entry->second);
    Refresh();
}

void clsMRUMenu::StoreSettings(const QString& application, const QString& section) const
{
    DeleteSection(application, section);
    StoreValue(application, section, kMaxKey, QString::number(max));
    for (int i = 1; i <= Count(); ++i)
        StoreValue(application, section, QString::number(i), Item(i));
}

} // namespace korvanel
