#include "instruments/InstrumentDriver.h"

#include "core/Common.h"
#include "core/NumberText.h"
#include "core/texts/DefaultTexts.h"
#include "instruments/SerialLink.h"
#include "instruments/SerialPort.h"

#include <array>

namespace korvanel {

namespace {

void TellUnknownCommand(quint8 command)
{
    App().sDevError = texts::devUnknownCommand + QString::number(command);
}

} // namespace

void InstrumentDriver::Run(quint8 command) const
{
    using Driver = InstrumentDriver;
    static constexpr std::array kOperations{
        &Driver::Settings,          &Driver::Open,          &Driver::IdentifyAnew, &Driver::ConfigureIfDue,
        &Driver::Prepare,           &Driver::Sample,        &Driver::Close,        &Driver::ReadTransformers,
        &Driver::WriteTransformers, &Driver::ResetCounters, &Driver::ReadInfo,
    };
    static_assert(kOperations.size() == kDevInfo + 1);
    if (command < kOperations.size())
        (this->*kOperations[command])();
    else
        TellUnknownCommand(command);
}

void InstrumentDriver::Settings() const
{
    LinkSettings(DataBits());
}

void InstrumentDriver::Open() const
{
    Settings();
    App().ThePort->Open();
}

void InstrumentDriver::IdentifyAnew() const
{
    ApplicationBlock& app = App();
    app.bDevConnected = false;
    app.sDevFound.clear();
    app.bConfigDue = true;
    const Identity identity = Identify();
    if (identity.reply.isEmpty()) {
        app.sDevError = texts::devTimeout;
    } else if (identity.isOfFamily) {
        app.bDevConnected = true;
        app.sDevFound = app.sDevice;
    } else {
        app.sDevError = TextOf(identity.refusal ? identity.refusal : &texts::devNotFound);
    }
}

void InstrumentDriver::ConfigureIfDue() const
{
    if (App().bConfigDue)
        Configure();
}

void InstrumentDriver::Close() const
{
    App().ThePort->Close();
}

void InstrumentDriver::Sample() const
{
    TellUnknownCommand(kDevSample);
}

bool InstrumentDriver::TakeBlock(const QByteArray& request, double wait, qsizetype length)
{
    ApplicationBlock& app = App();
    app.sDevReply = Exchange(request, wait);
    if (app.sDevReply.size() == length)
        return true;
    app.MeasuredRow.sValidMask = QStringLiteral("EEEE");
    if (app.iGraceLeft <= 1) // a run goes on without a message
        app.sDevError =
            FillPlaceholders(texts::devWrongLength, {QString::number(app.sDevReply.size()), QString::number(length)});
    return false;
}

void InstrumentDriver::ReadTransformers() const
{
    TellUnknownCommand(kDevReadTransformers);
}

void InstrumentDriver::WriteTransformers() const
{
    TellUnknownCommand(kDevWriteTransformers);
}

void InstrumentDriver::ResetCounters() const
{
    TellUnknownCommand(kDevResetCounters);
}

void InstrumentDriver::ReadInfo() const
{
    TellUnknownCommand(kDevInfo);
}

} // namespace korvanel
