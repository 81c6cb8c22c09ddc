// The frame around a page, as far as the page asks something of it. The main window is that frame; no page knows more
// of the window than this.
#pragma once

class QString;

namespace korvanel {

class PageFrame
{
public:
    virtual ~PageFrame() = default;
    /// Unloads the page on show and shows another; 7 shows none.
    virtual void UnloadAndOpen(int page) = 0;
    /// Enables or locks the buttons back and forward, by which a run must not be left.
    virtual void SetPageButtons(bool areEnabled) = 0;
    /// Shows the file name of the motor database in the status bar; an empty name ends that.
    virtual void ShowDatabase(const QString& name) = 0;
};

} // namespace korvanel
