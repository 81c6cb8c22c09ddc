#include "remote/ProgramDriver.h"

#include <QElapsedTimer>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLocalServer>
#include <QProcessEnvironment>
#include <QThread>
#include <QUuid>

namespace korvanel {

namespace {

// Generous, for a machine under load or a program under sanitizers; nothing waits longer than it has to.
constexpr int kPatienceMs = 30000;
constexpr int kPauseMs = 10;

} // namespace

ProgramDriver::ProgramDriver(const QString& settingsDirectory, const QString& executable)
    : program(executable), socketName(QStringLiteral("korvanel-") + QUuid::createUuid().toString(QUuid::WithoutBraces))
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), settingsDirectory);
    environment.insert(QStringLiteral("HOME"), settingsDirectory);
    environment.insert(QStringLiteral("QT_PLUGIN_PATH"), QStringLiteral(KORVANEL_PLUGINS));
    environment.insert(QStringLiteral("QT_QPA_GENERIC_PLUGINS"), QStringLiteral("korvanelremote:") + socketName);
    if (!environment.contains(QStringLiteral("DISPLAY")) && !environment.contains(QStringLiteral("WAYLAND_DISPLAY")))
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
}

ProgramDriver::~ProgramDriver()
{
    Kill();
    QLocalServer::removeServer(socketName); // a program that was killed leaves it
}

void ProgramDriver::SetEnvironment(const QString& name, const QString& value)
{
    QProcessEnvironment environment = process.processEnvironment();
    environment.insert(name, value);
    process.setProcessEnvironment(environment);
}

void ProgramDriver::Start()
{
    process.setWorkingDirectory(QFileInfo(program).absolutePath());
    process.start(program, {});
    if (!process.waitForStarted(kPatienceMs))
        throw DriverError("program does not start: " + program.toStdString());
    Connect();
}

void ProgramDriver::Connect()
{
    WaitFor(QStringLiteral("the socket"), [this] {
        socket.abort();
        socket.connectToServer(socketName);
        return socket.waitForConnected(kPauseMs);
    });
}

void ProgramDriver::FollowRestart()
{
    WaitForEnd();
    Connect();
}

void ProgramDriver::WaitForDisconnect()
{
    if (socket.state() != QLocalSocket::UnconnectedState && !socket.waitForDisconnected(kPatienceMs))
        throw DriverError("program does not end");
}

int ProgramDriver::WaitForEnd()
{
    if (process.state() != QProcess::NotRunning && !process.waitForFinished(kPatienceMs))
        throw DriverError("program does not end");
    if (process.exitStatus() != QProcess::NormalExit)
        throw DriverError("program crashed");
    return process.exitCode();
}

void ProgramDriver::Kill()
{
    socket.abort();
    if (process.state() == QProcess::NotRunning)
        return;
    process.kill();
    process.waitForFinished(kPatienceMs);
}

void ProgramDriver::Mouse(const QString& name, const QString& what, QPoint at, const QString& button,
                          const QString& modifiers)
{
    Require(Send({{"do", "mouse"},
                  {"name", name},
                  {"text", what},
                  {"x", at.x()},
                  {"y", at.y()},
                  {"button", button},
                  {"modifiers", modifiers}}),
            "mouse");
}

void ProgramDriver::Wheel(const QString& name, QPoint at, int notches)
{
    Require(
        Send({{"do", "mouse"}, {"name", name}, {"text", "wheel"}, {"x", at.x()}, {"y", at.y()}, {"notches", notches}}),
        "wheel");
}

void ProgramDriver::ClickCell(const QString& name, int row, int column, const QString& button, const QString& what)
{
    Require(
        Send({{"do", "mouse"}, {"name", name}, {"text", what}, {"row", row}, {"column", column}, {"button", button}}),
        "click");
}

bool ProgramDriver::IsShown(const QString& name)
{
    return Read(name)["visible"].toBool();
}

QString ProgramDriver::MainTitle()
{
    return FindWindow(QStringLiteral("MainForm"))["title"].toString();
}

QJsonObject ProgramDriver::WaitForWindow(const QString& name)
{
    QJsonObject window;
    WaitFor(name, [&] {
        window = FindWindow(name);
        return !window.isEmpty();
    });
    return window;
}

void ProgramDriver::WaitForControl(const QString& name)
{
    WaitFor(name, [&] { return IsShown(name); });
}

void ProgramDriver::WaitForText(const QString& name, const QString& text)
{
    WaitFor(name + u'=' + text, [&] { return Text(name) == text; });
}

void ProgramDriver::WaitUntilEnabled(const QString& name)
{
    WaitFor(name + QStringLiteral(" to be enabled"), [&] { return IsEnabled(name); });
}

void ProgramDriver::WaitUntilGone(const QString& name)
{
    WaitFor(QStringLiteral("the end of ") + name, [&] { return !IsShown(name); });
}

void ProgramDriver::WaitForBox(const QString& text)
{
    WaitFor(text, [&] { return FindWindow(QStringLiteral("message"))["text"].toString() == text; });
}

QString ProgramDriver::AnswerBox(const QString& button)
{
    const QJsonObject box = WaitForWindow(QStringLiteral("message"));
    Do("answer", {}, button);
    return box["text"].toString();
}

void ProgramDriver::GivePath(const QString& path)
{
    WaitForWindow(QStringLiteral("dlgFile"));
    Do("path", {}, path);
}

void ProgramDriver::WaitForQuiet()
{
    WaitFor(QStringLiteral("the end of all dialogs"), [this] {
        return FindWindow(QStringLiteral("message")).isEmpty() && FindWindow(QStringLiteral("dlgFile")).isEmpty();
    });
}

bool ProgramDriver::IsRefused(const char* what, const QString& name, const QString& text)
{
    return !Send({{"do", what}, {"name", name}, {"text", text}})["ok"].toBool();
}

QJsonObject ProgramDriver::Do(const char* what, const QString& name, const QString& text)
{
    return Require(Send({{"do", what}, {"name", name}, {"text", text}}), what);
}

QJsonObject ProgramDriver::Require(const QJsonObject& answer, const char* what)
{
    if (!answer["ok"].toBool())
        throw DriverError(std::string(what) + ": " + answer["error"].toString().toStdString());
    return answer;
}

QJsonObject ProgramDriver::Send(const QJsonObject& command)
{
    socket.write(QJsonDocument(command).toJson(QJsonDocument::Compact) + '\n');
    if (!socket.waitForBytesWritten(kPatienceMs))
        throw DriverError("program does not listen");
    while (!socket.canReadLine())
        if (!socket.waitForReadyRead(kPatienceMs))
            throw DriverError("program does not answer " + QJsonDocument(command).toJson().toStdString());
    return QJsonDocument::fromJson(socket.readLine()).object();
}

QJsonObject ProgramDriver::FindWindow(const QString& name)
{
    const QJsonArray windows = Do("windows")["windows"].toArray();
    for (const auto& window : windows)
        if (window.toObject()["name"].toString() == name)
            return window.toObject();
    return {};
}

template <typename Condition>
void ProgramDriver::WaitFor(const QString& what, Condition&& isMet)
{
    QElapsedTimer timer;
    timer.start();
    while (!isMet()) {
        if (timer.elapsed() > kPatienceMs)
            throw DriverError("waited in vain for " + what.toStdString());
        QThread::msleep(kPauseMs);
    }
}

} // namespace korvanel
