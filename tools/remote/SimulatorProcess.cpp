#include "remote/SimulatorProcess.h"

#include <QDir>
#include <QFile>

#include <csignal>
#include <stdexcept>

#include <sys/prctl.h>

namespace korvanel {

namespace {

// Generous, for a machine under load; nothing waits longer than it has to.
constexpr int kSimulatorPatienceMs = 30000;

} // namespace

QString LoggedExchange::Value(const QString& name) const
{
    const QString head = name + u'=';
    for (const QString& pair : text.split(u' '))
        if (pair.startsWith(head))
            return pair.mid(head.size());
    return {};
}

SimulatorProcess::SimulatorProcess(const QString& folder, const QStringList& options)
    : link(QDir(folder).filePath(QStringLiteral("instrument"))),
      log(QDir(folder).filePath(QStringLiteral("instrument.log")))
{
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    // Whoever crashes takes its simulator along.
    process.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGTERM); });
    process.start(QStringLiteral(KORVANEL_SIMULATOR),
                  QStringList{QStringLiteral("--link"), link, QStringLiteral("--log"), log} + options);
    const QString greeting = ReadLine();
    if (device.isEmpty())
        throw std::runtime_error("simulator greets with " + greeting.toStdString());
}

SimulatorProcess::SimulatorProcess(const QString& folder, const QString& family, const QStringList& options)
    : SimulatorProcess(folder, QStringList{QStringLiteral("--family"), family} + options)
{}

SimulatorProcess::~SimulatorProcess()
{
    process.terminate();
    if (process.waitForFinished(kSimulatorPatienceMs))
        return;
    process.kill();
    process.waitForFinished(kSimulatorPatienceMs);
}

void SimulatorProcess::Tell(const QString& command)
{
    process.write(command.toUtf8() + '\n');
    QString answer = ReadLine();
    while (answer.startsWith(QStringLiteral("device ")))
        answer = ReadLine();
    if (answer != QStringLiteral("ok"))
        throw std::runtime_error(command.toStdString() + ": " + answer.toStdString());
}

int SimulatorProcess::WaitForEnd()
{
    if (process.state() != QProcess::NotRunning && !process.waitForFinished(kSimulatorPatienceMs))
        throw std::runtime_error("simulator does not end");
    if (process.exitStatus() != QProcess::NormalExit)
        throw std::runtime_error("simulator crashed");
    return process.exitCode();
}

QString SimulatorProcess::ReadLine()
{
    while (!process.canReadLine())
        if (!process.waitForReadyRead(kSimulatorPatienceMs))
            throw std::runtime_error("simulator does not answer: " + process.errorString().toStdString());
    QString line = QString::fromUtf8(process.readLine()).trimmed();
    const QString announcement = QStringLiteral("device ");
    if (line.startsWith(announcement))
        device = line.mid(announcement.size());
    return line;
}

std::vector<LoggedExchange> SimulatorProcess::Log() const
{
    QFile file(log);
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error("simulator has no log");
    file.readLine(); // names of the columns
    std::vector<LoggedExchange> exchanges;
    while (!file.atEnd()) {
        QByteArray line = file.readLine();
        if (!line.endsWith('\n'))
            break; // being written just now
        line.chop(1);
        const QList<QByteArray> columns = line.split('\t');
        if (columns.size() != 6)
            throw std::runtime_error("simulator logs " + line.toStdString());
        exchanges.push_back({columns[0].toDouble(), QByteArray::fromHex(columns[1]), QByteArray::fromHex(columns[2]),
                             QString::fromLatin1(columns[3]), columns[4].isEmpty() ? -1 : columns[4].toInt(),
                             QString::fromLatin1(columns[5])});
    }
    return exchanges;
}

} // namespace korvanel
