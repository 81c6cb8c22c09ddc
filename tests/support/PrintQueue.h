// A print server of the test's own, with two queues whose paper is a PDF file: what the program prints goes the whole
// way through the system, and nobody's printer is touched.
#pragma once

#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <vector>

namespace korvanel::test {

/// The default queue. It takes PDF, as printers of today do.
inline const QString kDefaultQueue = "Office";
/// The other queue. It takes PostScript, as older printers do.
inline const QString kOtherQueue = "Workshop";

struct PrintJob
{
    int number = 0;
    QString title;
    QString queue;
    QString state; ///< "completed", "processing", "pending", "aborted", "canceled"
};

/// The server runs from the construction to the destruction. This process and those that it starts print there, and
/// after the destruction nowhere. There is one at a time. What fails throws std::runtime_error with the log of the
/// server.
class PrintQueue
{
public:
    PrintQueue();
    ~PrintQueue();
    PrintQueue(const PrintQueue&) = delete;
    PrintQueue& operator=(const PrintQueue&) = delete;

    /// For a process that doesn't inherit the environment of this one.
    QProcessEnvironment Environment() const;

    /// All jobs that were ever made, done or not, in the order of their numbers. A job is listed as soon as whoever
    /// prints has handed it over.
    std::vector<PrintJob> Jobs() const;
    /// The printed files of a queue, oldest first.
    QStringList Printed(const QString& queue) const;
    /// Waits until the queue has printed that many jobs and returns the file of the last of them.
    QString WaitForPrinted(const QString& queue, int jobs = 1, int limitMs = 20'000) const;
    /// The file that was handed over, before the filters of the queue had it.
    QString Submitted(int jobNumber) const;

    void MakeDefault(const QString& queue);
    /// The printer is gone.
    void Remove(const QString& queue);
    /// The printer is stopped: jobs are taken and wait.
    void Disable(const QString& queue);
    /// What is waiting is printed.
    void Enable(const QString& queue);
    /// The queue refuses jobs.
    void Reject(const QString& queue);
    void StopServer();

    /// What the server has said so far.
    QString Log() const;

private:
    QString Socket() const { return folder.filePath("socket"); }
    QString PaperOf(const QString& queue) const { return folder.filePath("paper/" + queue); }
    void WriteFolders() const;
    void WriteConfiguration() const;
    void StartServer();
    void AddQueue(const QString& queue, bool takesPdf);
    void Run(const QString& program, const QStringList& arguments) const;
    [[noreturn]] void Fail(const QString& what) const;

    QTemporaryDir folder;
    QProcess server;
};

} // namespace korvanel::test
