#include "support/PrintQueue.h"

#include "support/ProgramOutput.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QLibrary>
#include <QThread>
#include <QUrl>

#include <algorithm>
#include <csignal>

#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace korvanel::test {

namespace {

constexpr int kStartLimitMs = 20'000;
constexpr int kLookAgainMs = 10;
constexpr int kToldOfLog = 10'000; ///< characters
const QString kPrograms = "/usr/lib/cups/";
const QString kDescription = "/usr/share/ppd/cups-pdf/CUPS-PDF_noopt.ppd";

// cups-pdf's own backend wants to be root and writes only where the configuration of the whole system says. This one
// does the same with what it gets, for whoever runs the server. A file has its name once it is complete.
constexpr char kBackend[] = R"(#!/bin/sh
[ $# -gt 0 ] || { echo 'direct paper "Unknown" "Paper"'; exit 0; }
file=${DEVICE_URI#paper:}/$1
cat "${6:--}" >"$file.in" || exit 1
case $(head -c 4 "$file.in") in
%PDF) mv "$file.in" "$file.out" ;;
*) gs -q -dNOPAUSE -dBATCH -dSAFER -sDEVICE=pdfwrite -sOutputFile="$file.out" -dAutoRotatePages=/PageByPage \
    -dPDFSETTINGS=/prepress -f "$file.in" >&2 || exit 1 ;;
esac
mv "$file.out" "$file.pdf"
)";

// Every job is kept and listed with its title, and nobody is asked for a password.
constexpr char kServerSettings[] = R"(LogLevel debug
MaxLogSize 0
Browsing No
WebInterface No
DefaultShared No
DefaultAuthType None
PreserveJobHistory Yes
PreserveJobFiles Yes
MaxJobs 0
ErrorPolicy abort-job
<Location />
Order allow,deny
Allow all
</Location>
<Policy default>
JobPrivateAccess all
JobPrivateValues none
SubscriptionPrivateAccess all
SubscriptionPrivateValues none
<Limit All>
Order deny,allow
</Limit>
</Policy>
)";

// job-uuid is for the server: it looks up an old job, with its title, only for what it hasn't at hand.
constexpr char kJobsRequest[] = R"({
OPERATION Get-Jobs
GROUP operation-attributes-tag
ATTR charset attributes-charset utf-8
ATTR language attributes-natural-language en
ATTR uri printer-uri ipp://localhost/
ATTR keyword which-jobs all
ATTR keyword requested-attributes job-id,job-name,job-state,job-printer-uri,job-uuid
DISPLAY job-id
DISPLAY job-state
DISPLAY job-printer-uri
DISPLAY job-name
}
)";

/// A folder whose socket has a path that the system takes.
QString FolderTemplate()
{
    const QString own = QDir::tempPath() + "/print-XXXXXX";
    return static_cast<std::size_t>((own + "/socket").toLocal8Bit().size()) < sizeof(sockaddr_un::sun_path)
               ? own
               : QString("/tmp/print-XXXXXX");
}

void WriteText(const QString& path, const QByteArray& text)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
        throw std::runtime_error(path.toStdString() + ": " + file.errorString().toStdString());
}

QByteArray ReadText(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The server's socket has its name a moment before anybody answers there.
bool IsAnswered(const QString& socket)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const QByteArray path = socket.toLocal8Bit();
    if (static_cast<std::size_t>(path.size()) >= sizeof(address.sun_path))
        throw std::runtime_error("Too long for a socket: " + path.toStdString());
    std::copy(path.begin(), path.end(), address.sun_path);
    const int line = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const bool isAnswered = connect(line, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0;
    close(line);
    return isAnswered;
}

/// The library of the toolkit's printing keeps the name of the server from its first call on.
void PrintAt(const QString& socket)
{
    qputenv("CUPS_SERVER", socket.toLocal8Bit());
    using SetServer = void (*)(const char*);
    const auto setServer = reinterpret_cast<SetServer>(QLibrary::resolve("cups", 2, "cupsSetServer"));
    if (setServer == nullptr)
        throw std::runtime_error("libcups can't be told its server");
    setServer(socket.toLocal8Bit().constData());
}

} // namespace

PrintQueue::PrintQueue() : folder(FolderTemplate())
{
    WriteFolders();
    WriteConfiguration();
    StartServer();
    PrintAt(Socket());
    // A default of the user's comes before the server's.
    qunsetenv("LPDEST");
    qunsetenv("PRINTER");
    qputenv("CUPS_SERVERROOT", folder.filePath("root").toLocal8Bit());
    AddQueue(kDefaultQueue, true);
    AddQueue(kOtherQueue, false);
    MakeDefault(kDefaultQueue);
}

PrintQueue::~PrintQueue()
{
    StopServer();
}

QProcessEnvironment PrintQueue::Environment() const
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("CUPS_SERVER", Socket());
    environment.insert("CUPS_SERVERROOT", folder.filePath("root"));
    environment.remove("LPDEST");
    environment.remove("PRINTER");
    return environment;
}

void PrintQueue::WriteFolders() const
{
    // A server that root has started filters as somebody else, who has to get through.
    QFile::setPermissions(folder.path(),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner | QFile::ExeGroup | QFile::ExeOther);
    const QDir top(folder.path());
    for (const char* name : {"root", "state", "cache", "spool/tmp", "programs/backend"})
        if (!top.mkpath(name))
            Fail(QString("No folder ") + name);
    for (const char* name : {"filter", "driver", "daemon", "monitor", "notifier", "cgi-bin"})
        if (!QFile::link(kPrograms + name, folder.filePath(QString("programs/") + name)))
            Fail(QString("No link to ") + name);
}

void PrintQueue::WriteConfiguration() const
{
    const QByteArray top = folder.path().toLocal8Bit();
    QByteArray files = "ServerRoot " + top + "/root\nServerBin " + top + "/programs\nStateDir " + top +
                       "/state\nCacheDir " + top + "/cache\nRequestRoot " + top + "/spool\nTempDir " + top +
                       "/spool/tmp\nServerKeychain " + top + "/root\nErrorLog " + top + "/log\nAccessLog " + top +
                       "/access\nPageLog " + top + "/pages\nPrintcap " + top + "/printcap\nSyncOnClose No\n";
    // Whoever isn't root can't become anybody else.
    if (geteuid() != 0)
        files += "Group " + QByteArray::number(getegid()) + "\n";
    WriteText(folder.filePath("files.conf"), files);
    WriteText(folder.filePath("server.conf"), "Listen " + Socket().toLocal8Bit() + "\n" + kServerSettings);
    WriteText(folder.filePath("jobs.request"), kJobsRequest);

    const QString backend = folder.filePath("programs/backend/paper");
    WriteText(backend, kBackend);
    // For nobody else, so that it runs as whoever runs the server.
    QFile::setPermissions(backend, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

void PrintQueue::StartServer()
{
    const QStringList configuration = {"-c", folder.filePath("server.conf"), "-s", folder.filePath("files.conf")};
    server.setProcessChannelMode(QProcess::MergedChannels);
    server.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGTERM); });
    server.start("/usr/sbin/cupsd", QStringList{"-f"} + configuration);
    const QDeadlineTimer limit(kStartLimitMs);
    while (!IsAnswered(Socket())) {
        if (server.waitForFinished(kLookAgainMs) || server.state() == QProcess::NotRunning || limit.hasExpired()) {
            // It says what it doesn't like of its configuration only if asked.
            QProcess check;
            check.setProcessChannelMode(QProcess::MergedChannels);
            check.start("/usr/sbin/cupsd", QStringList{"-t"} + configuration);
            check.waitForFinished();
            Fail("The print server doesn't start: " + server.errorString() + "\n" + check.readAll());
        }
    }
}

void PrintQueue::AddQueue(const QString& queue, bool takesPdf)
{
    if (!QDir().mkpath(PaperOf(queue)))
        Fail("No folder for " + queue);
    QByteArray description = ReadText(kDescription);
    if (description.isEmpty())
        Fail(kDescription + " can't be read");
    if (takesPdf)
        description.replace("*DefaultPageSize", "*cupsFilter2: \"application/vnd.cups-pdf application/pdf 0 -\"\n"
                                                "*DefaultPageSize");
    const QString file = folder.filePath(queue + ".ppd");
    WriteText(file, description);
    // The renderer that leaves text what it is; the package of cups-pdf chooses it too.
    Run("/usr/sbin/lpadmin",
        {"-p", queue, "-E", "-v", "paper:" + PaperOf(queue), "-P", file, "-o", "pdftops-renderer-default=pdftocairo"});
}

std::vector<PrintJob> PrintQueue::Jobs() const
{
    const QString address = "ipp://" + QString::fromLatin1(QUrl::toPercentEncoding(Socket())) + ":631/";
    const QByteArray answer = OutputOf("ipptool", {"-c", address, folder.filePath("jobs.request")}, Environment());
    std::vector<PrintJob> jobs;
    for (const QString& line : QString::fromUtf8(answer).split('\n', Qt::SkipEmptyParts).mid(1)) {
        const QStringList columns = line.split(',');
        if (columns.size() < 4)
            Fail("The list of jobs: " + answer);
        QString title = columns.mid(3).join(',');
        if (title.startsWith('"')) // as one with a comma is written
            title = title.mid(1).chopped(1).remove('\\');
        jobs.push_back({columns[0].toInt(), title, columns[2].section('/', -1), columns[1]});
    }
    std::sort(jobs.begin(), jobs.end(), [](const PrintJob& a, const PrintJob& b) { return a.number < b.number; });
    return jobs;
}

QStringList PrintQueue::Printed(const QString& queue) const
{
    std::vector<int> numbers;
    for (const QString& name : QDir(PaperOf(queue)).entryList({"*.pdf"}, QDir::Files))
        numbers.push_back(name.chopped(4).toInt());
    std::sort(numbers.begin(), numbers.end());
    QStringList files;
    for (const int number : numbers)
        files << PaperOf(queue) + '/' + QString::number(number) + ".pdf";
    return files;
}

QString PrintQueue::WaitForPrinted(const QString& queue, int jobs, int limitMs) const
{
    const QDeadlineTimer limit(limitMs);
    for (;;) {
        const QStringList files = Printed(queue);
        if (files.size() >= jobs)
            return files[jobs - 1];
        if (limit.hasExpired())
            Fail(QString("%1 has printed %2 jobs of %3").arg(queue).arg(files.size()).arg(jobs));
        QThread::msleep(kLookAgainMs);
    }
}

QString PrintQueue::Submitted(int jobNumber) const
{
    return folder.filePath(QString("spool/d%1-001").arg(jobNumber, 5, 10, QChar('0')));
}

void PrintQueue::MakeDefault(const QString& queue)
{
    Run("/usr/sbin/lpadmin", {"-d", queue});
}

void PrintQueue::Remove(const QString& queue)
{
    Run("/usr/sbin/lpadmin", {"-x", queue});
}

void PrintQueue::Disable(const QString& queue)
{
    Run("/usr/sbin/cupsdisable", {queue});
}

void PrintQueue::Enable(const QString& queue)
{
    Run("/usr/sbin/cupsenable", {queue});
}

void PrintQueue::Reject(const QString& queue)
{
    Run("/usr/sbin/cupsreject", {queue});
}

void PrintQueue::StopServer()
{
    constexpr int kEndLimitMs = 5000;
    server.terminate();
    if (!server.waitForFinished(kEndLimitMs) && server.state() != QProcess::NotRunning) {
        server.kill();
        server.waitForFinished();
    }
}

QString PrintQueue::Log() const
{
    return QString::fromLocal8Bit(ReadText(folder.filePath("log")));
}

void PrintQueue::Run(const QString& program, const QStringList& arguments) const
{
    try {
        OutputOf(program, arguments, Environment());
    } catch (const std::runtime_error& failure) {
        Fail(QString::fromLocal8Bit(failure.what()));
    }
}

void PrintQueue::Fail(const QString& what) const
{
    throw std::runtime_error((what + "\nThe end of the server's log:\n" + Log().right(kToldOfLog)).toStdString());
}

} // namespace korvanel::test
