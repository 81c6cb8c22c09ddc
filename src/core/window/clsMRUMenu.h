// The most recently used project files, newest first: the list, its place in the menu and its place in the settings
// store. The menu is reached through `MenuArray`, so that the list can be tried without one.
#pragma once

#include "core/Shell.h"

#include <QString>
#include <QStringList>

namespace korvanel {

/// The menu entries of the list. Element 0 is the separator line in front of it.
class MenuArray
{
public:
    virtual ~MenuArray() = default;
    virtual void SetCaption(int index, const QString& caption) = 0;
    virtual void SetVisible(int index, bool isVisible) = 0;
    /// Creates an element unless it exists.
    virtual void Load(int index) = 0;
    virtual void Unload(int index) = 0;
    virtual int UpperBound() const = 0;
};

class clsMRUMenu
{
public:
    /// Attaches the menu and reads the list if `application` is not empty.
    void Init(MenuArray& array, const QString& application, const QString& section);

    int Count() const { return static_cast<int>(entries.size()); }
    /// Entry by its index from 1; throws std::out_of_range.
    const QString& Item(int index) const;
    int Max() const { return max; }
    /// Throws std::invalid_argument below 1; shortens the list from its end.
    void SetMax(int value);
    MenuArray* Menu() const { return menu; }

    /// Puts a text on top. One that is listed already moves there; the oldest falls out beyond `Max`.
    void Add(const QString& text);
    void Clear();
    void Remove(int index);
    /// Moves an entry to the top.
    void SelectItem(const QString& text);
    void FillListCombo(ListControl& list) const;
    /// Draws the list into the menu.
    void Refresh();
    void ReadSettings(const QString& application, const QString& section);
    void StoreSettings(const QString& application, const QString& section) const;

    // Walking the list, newest first.
    QStringList::const_iterator begin() const { return entries.begin(); }
    QStringList::const_iterator end() const { return entries.end(); }

private:
    QStringList entries;
    int max = 4;
    MenuArray* menu = nullptr;
};

} // namespace korvanel
