#include "instruments/SystemPort.h"

#include "core/NumberText.h"
#include "core/Texts.h"
#include "core/texts/DefaultTexts.h"

#include <QFileInfo>
#include <QSerialPort>

#include <algorithm>
#include <array>

namespace korvanel {

namespace {

// More than any instrument sends; whoever floods the line must not hold the program.
constexpr qint64 kLargestReply = 65536;

[[noreturn]] void Throw(TextRef text, const QString& device)
{
    throw PortError(FillPlaceholders(TextOf(text), {device}).toStdString());
}

/// Why a device could not be opened, in the user's words.
TextRef ReasonOf(QSerialPort::SerialPortError error, const QString& device)
{
    const QFileInfo file(device);
#ifndef Q_OS_WIN
    if (!file.exists())
        return &texts::portMissing;
#endif
    switch (error) {
    case QSerialPort::DeviceNotFoundError:
        return &texts::portMissing;
    case QSerialPort::PermissionError: // the toolkit tells a port in use and one without permission alike
        return file.isReadable() && file.isWritable() ? &texts::portBusy : &texts::portDenied;
    default:
        return &texts::portFailed;
    }
}

} // namespace

SystemPort::SystemPort(std::function<QString(int)> ofNumber) : deviceOf(std::move(ofNumber)) {}

SystemPort::~SystemPort()
{
    SystemPort::Close();
}

void SystemPort::Open()
{
    Close();
    device = deviceOf(settings.number);
    port = std::make_unique<QSerialPort>();
    port->setPortName(device);
    port->setBaudRate(settings.baud);
    port->setDataBits(static_cast<QSerialPort::DataBits>(settings.dataBits));
    port->setParity(QSerialPort::NoParity);
    port->setStopBits(QSerialPort::OneStop);
    port->setFlowControl(QSerialPort::NoFlowControl);
    if (!port->open(QIODevice::ReadWrite)) {
        const TextRef reason = ReasonOf(port->error(), device);
        port.reset();
        Throw(reason, device);
    }
    // A line without these two wires, such as a pseudo-terminal, works all the same.
    port->setDataTerminalReady(settings.isDtrOn);
    port->setRequestToSend(settings.isRtsOn);
    port->clearError();
    WatchForLoss();
}

void SystemPort::WatchForLoss()
{
    QSerialPort* watched = port.get();
    QObject::connect(
        watched, &QSerialPort::errorOccurred, watched, [this, watched](QSerialPort::SerialPortError error) {
            constexpr std::array kLosses{QSerialPort::ResourceError, QSerialPort::ReadError, QSerialPort::WriteError};
            if (isLost || std::find(kLosses.begin(), kLosses.end(), error) == kLosses.end())
                return;
            isLost = true;
            // A device that has hung up is ready to be read for ever; only a closed one leaves the event loop in peace.
            QMetaObject::invokeMethod(watched, &QSerialPort::close, Qt::QueuedConnection);
        });
}

void SystemPort::Close()
{
    isLost = false;
    if (!port)
        return;
    port->disconnect();
    port->close();
    // It may be the port whose signal is being answered.
    port.release()->deleteLater();
}

bool SystemPort::IsOpen() const
{
    return port != nullptr;
}

void SystemPort::Output(const QByteArray& bytes)
{
    if (!port || isLost)
        ThrowLost();
    port->clear(QSerialPort::Output); // what nobody has taken since the last request must not arrive with this one
    if (port->write(bytes) != bytes.size())
        ThrowLost();
    port->flush();
    if (isLost)
        ThrowLost();
}

QByteArray SystemPort::Input()
{
    if (!port)
        ThrowLost();
    QByteArray received;
    if (!isLost)
        received = port->readAll();
    while (!isLost && received.size() < kLargestReply && port->waitForReadyRead(0))
        received += port->readAll();
    return received;
}

void SystemPort::ThrowLost()
{
    const QString gone = device;
    Close();
    Throw(&texts::portLost, gone);
}

} // namespace korvanel
