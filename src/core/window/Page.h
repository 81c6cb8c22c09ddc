// A page: a child window of fixed size in the frame, with the buttons that lead back and forward along the path.
// Pages build their controls in their constructor and are made anew each time they are shown.
#pragma once

#include "core/window/InputUse.h"

#include <QWidget>

#include <functional>

class QHBoxLayout;
class QPushButton;
class QVBoxLayout;

namespace korvanel {

class PageFrame;
struct PageEntry;

/// Size of every page: 11310 by 7300 twips at 15 twips a pixel.
inline constexpr int kPageWidth = 754;
inline constexpr int kPageHeight = 487;

class Page : public QWidget
{
    Q_OBJECT

public:
    Page(PageFrame& host, const PageEntry& entry);

    /// The page has its size whatever its controls would like.
    QSize sizeHint() const override { return {kPageWidth, kPageHeight}; }
    QSize minimumSizeHint() const override { return sizeHint(); }
    const PageEntry& Entry() const { return pageEntry; }
    /// Takes what it shows from the application block again.
    virtual void Refresh() {}
    /// Stops what the page keeps running; called when the page is left.
    virtual void Leave() {}
    /// Ends work that the page goes on with between the events; false if there is none.
    virtual bool StopWork() { return false; }
    /// Takes over what has been typed and not yet taken, by the rule of its field, and asks where it can't be taken
    /// silently. Called before the page is left and before the project is saved, however that comes about: by a button,
    /// a key, the menu, the close button of the window. False if the user has to look at a field first.
    virtual bool TakeInput(InputUse /*use*/) { return true; }
    /// Asks before the program is closed over something that is still going on; false keeps it.
    virtual bool MayClose() { return true; }
    /// Adds the bottom row behind the page's own controls: the buttons and, on the pages that carry one, the small
    /// label with the identity of the instrument.
    void AddBottomRow();

protected:
    /// Layout for the controls of the page, above its buttons.
    QVBoxLayout& Body() { return *body; }
    PageFrame& Frame() { return pageFrame; }
    /// Runs what a control of the page does: not while a modal window is on show, and with its failure reported.
    void Guarded(const std::function<void()>& routine);
    /// Runs a routine with the page locked: what is pressed meanwhile is dropped. Then, however the routine ends,
    /// `atEnd` shows what has come of it, and the focus is where it was.
    void Locked(const std::function<void()>& routine, const std::function<void()>& atEnd = {});
    /// The same for work that holds the program up: with the wait cursor, and with the menus locked too.
    void LockedAndBusy(const std::function<void()>& routine, const std::function<void()>& atEnd);
    /// Whether the page may be left forward; a page that checks its input overrides it.
    virtual bool MayGoForward() { return true; }

private:
    QPushButton* AddButton(QHBoxLayout& row, const char* name, const QString& text);
    void AddDeviceLabel(QHBoxLayout& row);

    PageFrame& pageFrame;
    const PageEntry& pageEntry;
    QVBoxLayout* body;
};

} // namespace korvanel
