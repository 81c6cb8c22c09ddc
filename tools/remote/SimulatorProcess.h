// The instrument simulator as a process: started with a link and a log in a given folder, told what
// to do, and ended with the object.
#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>

#include <vector>

namespace korvanel {

/// A line of the simulator's log.
struct LoggedExchange
{
    double seconds = 0; ///< since the simulator's start
    QByteArray request;
    QByteArray reply; ///< as sent; empty if there was none
    QString kind;     ///< read, write, query or bad
    int code = -1;    ///< register or value code; -1 if there is none
    QString text;     ///< value text, if the reply had it whole; of a block "U=230.1 I=5.02" and so on

    /// The text of a value of a block; null if the block has none of that name.
    QString Value(const QString& name) const;
};

/// Whatever fails throws std::runtime_error with what the simulator said.
class SimulatorProcess
{
public:
    /// Starts it with these options beside the link and the log, and waits until its line can be opened.
    explicit SimulatorProcess(const QString& folder, const QStringList& options = {});
    /// The same with an instrument of another family than the usual one.
    SimulatorProcess(const QString& folder, const QString& family, const QStringList& options);
    ~SimulatorProcess();
    SimulatorProcess(const SimulatorProcess&) = delete;
    SimulatorProcess& operator=(const SimulatorProcess&) = delete;

    /// What a program opens as its serial port; stays the same when the line is closed and opened again.
    QString Link() const { return link; }
    QString LogPath() const { return log; }
    /// The device behind the link.
    QString Device() const { return device; }
    qint64 ProcessId() const { return process.processId(); }

    /// Gives a command and waits until it is carried out.
    void Tell(const QString& command);
    /// No more commands will come.
    void CloseInput() { process.closeWriteChannel(); }
    /// Waits for the end of a simulator that was told to stop; its exit code.
    int WaitForEnd();
    std::vector<LoggedExchange> Log() const;

private:
    QString ReadLine();

    QString link;
    QString log;
    QString device;
    QProcess process;
};

} // namespace korvanel
