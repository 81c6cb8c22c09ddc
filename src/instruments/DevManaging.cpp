#include "instruments/DevManaging.h"

#include "core/Common.h"
#include "core/Messages.h"
#include "core/texts/DefaultTexts.h"
#include "instruments/Catalogue.h"
#include "instruments/SerialPort.h"

namespace korvanel {

namespace {

void CloseIfOpen()
{
    if (App().ThePort->IsOpen())
        DevCommand(kDevClose);
}

} // namespace

bool DevCommand(quint8 command)
{
    ApplicationBlock& app = App();
    app.sDevError.clear();
    const Instrument* instrument = FindInstrument(app.sDevice);
    try {
        if (instrument)
            instrument->driver->Run(command);
        else
            app.sDevError = texts::devUnknown + app.sDevice;
    } catch (const PortError& error) {
        app.sDevError = QString::fromUtf8(error.what());
    }
    if (app.sDevError.isEmpty())
        return true;
    if (app.bShowDevErrors) {
        const QString text = DevErrorText();
        app.sDevError.clear();
        ShowError(text);
    }
    return false;
}

QString DevErrorText()
{
    return QStringLiteral("COM%1: ").arg(App().lComPort) + App().sDevError;
}

bool DevConnect()
{
    ApplicationBlock& app = App();
    app.bShowDevErrors = true;
    app.bConfigDue = false;
    const QString formerIdentity = app.sDeviceId;
    bool isConnected = true;
    for (const quint8 command : {kDevSettings, kDevOpen, kDevIdentify, kDevConfigure})
        isConnected = isConnected && DevCommand(command);
    if (isConnected) {
        LookUpInstrument(app.sDevice);
        if (app.bHasDevTrans)
            DevCommand(kDevReadTransformers);
        if (app.bHasDeviceInfo)
            DevCommand(kDevInfo);
    }
    app.bProjectDirty = app.bProjectDirty || app.sDeviceId != formerIdentity; // it belongs to the project's header
    CloseIfOpen();
    return isConnected;
}

bool DevTransfer(TransferDirection direction)
{
    bool isDone = DevCommand(kDevOpen);
    if (isDone && direction == TransferDirection::Write)
        isDone = DevCommand(kDevWriteTransformers);
    if (isDone) // so that what is shown is what the instrument holds now
        isDone = DevCommand(kDevReadTransformers);
    CloseIfOpen();
    return isDone;
}

bool DevResetCounters()
{
    const bool isDone = DevCommand(kDevOpen) && DevCommand(kDevResetCounters);
    CloseIfOpen();
    return isDone;
}

} // namespace korvanel
