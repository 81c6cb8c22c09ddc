// What another program says: the tools of the system by which a test looks at what has been printed.
#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>

#include <stdexcept>

namespace korvanel::test {

/// Runs a program to its end and returns what it has written. Throws std::runtime_error with what it says of errors if
/// it can't be started, fails or takes more than half a minute.
inline QByteArray OutputOf(const QString& program, const QStringList& arguments,
                           const QProcessEnvironment& environment = QProcessEnvironment::systemEnvironment())
{
    constexpr int kLimitMs = 30'000;
    QProcess process;
    QProcessEnvironment plain = environment;
    plain.insert("LC_ALL", "C.UTF-8");
    process.setProcessEnvironment(plain);
    process.start(program, arguments, QIODevice::ReadOnly);
    const bool hasEnded = process.waitForFinished(kLimitMs);
    if (!hasEnded || process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0) {
        const QByteArray errors = process.readAllStandardError();
        throw std::runtime_error((program + ' ' + arguments.join(' ') + ": " + process.errorString()).toStdString() +
                                 "\n" + errors.toStdString());
    }
    return process.readAllStandardOutput();
}

} // namespace korvanel::test
