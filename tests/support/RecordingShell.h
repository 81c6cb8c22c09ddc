// A shell without a user: it records what it is asked and answers from a script.
#pragma once

#include "core/Shell.h"
#include "core/window/DialogTable.h"

#include <QString>

#include <deque>
#include <functional>
#include <map>
#include <ostream>
#include <stdexcept>
#include <string>
#include <vector>

namespace korvanel::test {

class RecordingShell : public Shell
{
public:
    // The script. An exhausted one answers No to questions and cancels dialogs.
    std::deque<Answer> answers;
    std::deque<QString> openPaths;
    std::deque<QString> savePaths;
    std::map<int, std::function<bool()>> dialogs; ///< what happens in a dialog, by its number, and its outcome

    // The record.
    std::vector<Box> boxes;
    std::vector<FileQuestion> openQuestions;
    std::vector<FileQuestion> saveQuestions;
    std::function<void()> onBox = [] {}; ///< what happens while a box stands
    bool failsAtEndOfProgress = false;   ///< as a page does that can't show its results
    QStringList calls;
    std::vector<double> progress; ///< shares that were shown, whatever the operation
    QStringList printers;
    QString defaultPrinter;
    int waiting = 0;

    QStringList BoxTexts() const
    {
        QStringList texts;
        for (const Box& box : boxes)
            texts << box.text;
        return texts;
    }

    Answer ShowBox(const Box& box) override
    {
        boxes.push_back(box);
        onBox();
        if (box.buttons == BoxButtons::Ok)
            return Answer::Ok;
        return Next(answers, Answer::No);
    }
    QString AskOpenPath(const FileQuestion& question) override
    {
        openQuestions.push_back(question);
        return Next(openPaths, QString());
    }
    std::optional<QString> AskSavePath(const FileQuestion& question) override
    {
        saveQuestions.push_back(question);
        if (savePaths.empty())
            return std::nullopt;
        return Next(savePaths, QString());
    }
    void SetWaitCursor(bool isWaiting) override { waiting += isWaiting ? 1 : -1; }
    void Beep() override { calls << QStringLiteral("Beep"); }
    void ShowProgress(Progress mode, double fraction) override
    {
        if (mode == Progress::Advance)
            progress.push_back(fraction);
        calls << QStringLiteral("ShowProgress %1").arg(static_cast<int>(mode));
        if (mode == Progress::End && failsAtEndOfProgress)
            throw std::runtime_error("the page can't be shown");
    }
    void SetBusyMenus(bool areEnabled) override { Record("SetBusyMenus", areEnabled); }
    void EnableProjectMenus(bool isProjectOpen) override { Record("EnableProjectMenus", isProjectOpen); }
    void EnableMachineMenu(bool isEnabled) override { Record("EnableMachineMenu", isEnabled); }
    void UnloadPage() override { calls << QStringLiteral("UnloadPage"); }
    void ShowPage() override { calls << QStringLiteral("ShowPage"); }
    void RefreshPage() override { calls << QStringLiteral("RefreshPage"); }
    void RefreshStatusBar() override { calls << QStringLiteral("RefreshStatusBar"); }
    void RefreshCaption() override { calls << QStringLiteral("RefreshCaption"); }
    void AddFileMRU(const QString& path) override { calls << QStringLiteral("AddFileMRU ") + path; }
    void SelectRecentFile(const QString& path) override { calls << QStringLiteral("SelectRecentFile ") + path; }
    bool ShowDialog(int number) override
    {
        const DialogEntry* entry = FindDialog(number);
        if (!entry)
            throw std::out_of_range("no dialog " + std::to_string(number));
        calls << QStringLiteral("ShowDialog ") + QLatin1String(entry->name);
        return dialogs.contains(number) && dialogs.at(number)();
    }
    QStringList PrinterNames() override { return printers; }
    QString DefaultPrinterName() override { return defaultPrinter; }

private:
    void Record(const char* what, bool flag) { calls << QStringLiteral("%1 %2").arg(QLatin1String(what)).arg(flag); }
    template <typename Value>
    static Value Next(std::deque<Value>& script, const Value& otherwise)
    {
        if (script.empty())
            return otherwise;
        Value value = script.front();
        script.pop_front();
        return value;
    }
};

} // namespace korvanel::test

/// For the failures of assertions on texts.
inline void PrintTo(const QString& text, std::ostream* out)
{
    *out << '"' << text.toStdString() << '"';
}
