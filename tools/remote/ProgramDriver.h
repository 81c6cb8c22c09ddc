// Starts the real program with private settings and drives it through its controls, as a person would: end-to-end
// tests and the demo are written with it.
#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QLocalSocket>
#include <QPoint>
#include <QProcess>
#include <QStringList>

#include <stdexcept>

namespace korvanel {

class DriverError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

class ProgramDriver
{
public:
    /// `settingsDirectory` holds the user's settings of this run. `program` is the executable to start.
    explicit ProgramDriver(const QString& settingsDirectory, const QString& program = QStringLiteral(KORVANEL_PROGRAM));
    ~ProgramDriver();
    ProgramDriver(const ProgramDriver&) = delete;
    ProgramDriver& operator=(const ProgramDriver&) = delete;

    /// Puts a variable into the environment of the program; before `Start`.
    void SetEnvironment(const QString& name, const QString& value);
    /// Starts the program and waits for its main window.
    void Start();
    /// Connects to the program that the first one has started in its place before it ended.
    void FollowRestart();
    /// Waits until a program that was started by another one has ended.
    void WaitForDisconnect();
    /// Waits for the program's end; its exit code. Throws if it doesn't end or crashed.
    int WaitForEnd();
    bool IsRunning() const { return process.state() == QProcess::Running; }
    void Kill();
    qint64 ProcessId() const { return process.processId(); }

    void Trigger(const QString& name) { Do("trigger", name); }
    void Type(const QString& name, const QString& text) { Do("type", name, text); }
    void Choose(const QString& name, const QString& text) { Do("choose", name, text); }
    void Grab(const QString& name, const QString& file) { Do("grab", name, file); }
    /// What the mouse does at a place of a control: "press", "move", "release", "click", "double".
    void Mouse(const QString& name, const QString& what, QPoint at, const QString& button = QStringLiteral("left"),
               const QString& modifiers = {});
    /// Turns the wheel over a place; positive notches go away from the hand.
    void Wheel(const QString& name, QPoint at, int notches);
    /// A click into a cell of a table, or what else the mouse does there.
    void ClickCell(const QString& name, int row, int column, const QString& button = QStringLiteral("left"),
                   const QString& what = QStringLiteral("click"));
    /// A key as "Ctrl+Z", to the control with the focus or to another one.
    void Key(const QString& sequence, const QString& name = {}) { Do("key", name, sequence); }
    void CloseMainWindow() { Do("close"); }
    /// What can be read of a control; without "ok" there is none of that name.
    QJsonObject Read(const QString& name) { return Send({{"do", "read"}, {"name", name}}); }
    /// All texts of the windows on show, with the names of their controls: "name" and "text".
    QJsonArray Texts() { return Do("texts")["texts"].toArray(); }
    QString Text(const QString& name) { return Read(name)["text"].toString(); }
    bool IsEnabled(const QString& name) { return Read(name)["enabled"].toBool(); }
    /// True if there is a control of that name on show.
    bool IsShown(const QString& name);
    QString MainTitle();

    /// Waits for a window of that name ("message" for a message box); its description.
    QJsonObject WaitForWindow(const QString& name);
    /// Waits for a control to be on show.
    void WaitForControl(const QString& name);
    /// Waits until a control shows a text.
    void WaitForText(const QString& name, const QString& text);
    /// Waits until a control can be used again.
    void WaitUntilEnabled(const QString& name);
    /// Waits for a control to go.
    void WaitUntilGone(const QString& name);
    /// Waits for a message box with this text.
    void WaitForBox(const QString& text);
    /// Waits for a message box, presses a button of it and returns its text.
    QString AnswerBox(const QString& button);
    /// Waits for the file dialog and gives it a path; an empty path cancels it.
    void GivePath(const QString& path);
    /// Waits until no modal window is on show any more.
    void WaitForQuiet();
    /// Whether a command would be refused, as pressing a disabled button is.
    bool IsRefused(const char* what, const QString& name, const QString& text = {});

private:
    void Connect();
    QJsonObject Do(const char* what, const QString& name = {}, const QString& text = {});
    QJsonObject Send(const QJsonObject& command);
    static QJsonObject Require(const QJsonObject& answer, const char* what);
    QJsonObject FindWindow(const QString& name);
    template <typename Condition>
    void WaitFor(const QString& what, Condition&& isMet);

    QString program;
    QString socketName;
    QProcess process;
    QLocalSocket socket;
};

} // namespace korvanel
