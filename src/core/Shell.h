// Whatever the modules want of the user interface goes through this one abstract class. The main window implements it;
// tests use one that records what it is asked and gives scripted answers.
#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace korvanel {

enum class BoxIcon
{
    None,
    Exclamation,
    Question
};
enum class BoxButtons
{
    Ok,
    YesNo,
    YesNoCancel
};
enum class Answer
{
    Ok,
    Yes,
    No,
    Cancel
};

/// One modal message box.
struct Box
{
    QString title;
    QString text;
    BoxIcon icon = BoxIcon::None;
    BoxButtons buttons = BoxButtons::Ok;
    Answer preset = Answer::Ok; ///< button that the Enter key presses
};

/// One modal file dialog.
struct FileQuestion
{
    QString title;
    QString suggestion;     ///< full path to begin with, or a directory when opening
    QString filter;         ///< "Text|*.MDB|Text|*.KVL|": pairs of description and pattern
    QString preset;         ///< name in the box of an open dialog
    QString extension = {}; ///< ".xls": of a name that is typed into a save dialog without one; empty for none
};

enum class Progress
{
    Begin = 0,
    Advance = 1,
    End = 2
};

/// A list control of a page, as far as modules fill it.
class ListControl
{
public:
    virtual ~ListControl() = default;
    virtual void AddItem(const QString& text) = 0;
    virtual void SelectItem(int index) = 0;
};

class Shell
{
public:
    virtual ~Shell() = default;

    virtual Answer ShowBox(const Box& box) = 0;
    /// The chosen path; empty if the user chose none.
    virtual QString AskOpenPath(const FileQuestion& question) = 0;
    /// The chosen path, which may be the suggestion itself; nothing if the user cancelled.
    virtual std::optional<QString> AskSavePath(const FileQuestion& question) = 0;

    virtual void SetWaitCursor(bool isWaiting) = 0;
    virtual void Beep() = 0;
    /// Progress of a long operation, `fraction` from 0 to 1. Nothing is shown for recordings up to the threshold.
    virtual void ShowProgress(Progress mode, double fraction) = 0;
    /// false saves the state of the menus and disables them, true restores it.
    virtual void SetBusyMenus(bool areEnabled) = 0;
    /// Menu entries that need an open project; the machine menu follows the net configuration.
    virtual void EnableProjectMenus(bool isProjectOpen) = 0;
    virtual void EnableMachineMenu(bool isEnabled) = 0;

    virtual void UnloadPage() = 0;
    virtual void ShowPage() = 0;
    virtual void RefreshPage() = 0;
    virtual void RefreshStatusBar() = 0;
    virtual void RefreshCaption() = 0;

    virtual void AddFileMRU(const QString& path) = 0;
    virtual void SelectRecentFile(const QString& path) = 0;

    /// Shows a dialog by its number of `DialogNumber` over the window; true if the user accepts it. Throws
    /// std::out_of_range for a number under which nobody has registered a dialog.
    virtual bool ShowDialog(int number) = 0;

    virtual QStringList PrinterNames() = 0;
    /// Empty if there is no default printer or it can't be read.
    virtual QString DefaultPrinterName() = 0;
};

} // namespace korvanel
