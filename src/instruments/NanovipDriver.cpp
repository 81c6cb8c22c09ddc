#include "instruments/NanovipDriver.h"

#include "core/Common.h"
#include "core/NetConfigurations.h"
#include "core/texts/DefaultTexts.h"
#include "instruments/Frames.h"
#include "instruments/NanovipValues.h"
#include "instruments/SerialLink.h"

namespace korvanel {

namespace {

constexpr double kNanovipWait = 1.5; // s, which the block takes
constexpr const char* kNanovipHead = ":010392";

/// Address 1, function 3, 73 registers from 0x0202 on, checksum.
QByteArray NanovipRequest()
{
    return Line(":010302020049AF");
}

} // namespace

const NanovipDriver kNanovipDriver{};

InstrumentDriver::Identity NanovipDriver::Identify() const
{
    const QByteArray reply = Exchange(NanovipRequest(), kNanovipWait);
    return {.reply = reply, .isOfFamily = reply.contains(kNanovipHead)};
}

void NanovipDriver::Configure() const
{
    ApplicationBlock& app = App();
    const QByteArray reply = Exchange(NanovipRequest(), kNanovipWait);
    if (reply.isEmpty()) {
        app.sDevError = texts::devTimeout;
        return;
    }
    const unsigned status = NanovipStatusOf(reply);
    const bool isSinglePhase = (status & kNanovipSwitchSinglePhase) != 0;
    // A machine is measured by one phase of it, with the switch at 1-phase.
    const bool isThreePhaseNet = app.iNetConfIndex == kNetThreePhase;
    if (isSinglePhase == isThreePhaseNet)
        app.sDevError = isSinglePhase ? texts::devSwitchSinglePhase : texts::devSwitchThreePhase;
    if ((status & kNanovipBatteryLow) != 0)
        app.sDevError = texts::devBatteryLow;
    if (!app.sDevError.isEmpty())
        app.bDevConnected = false;
}

void NanovipDriver::Prepare() const
{
    App().fDevScaleU = 1;
    App().fDevScaleI = 1;
}

void NanovipDriver::Sample() const
{
    ApplicationBlock& app = App();
    if (!TakeBlock(NanovipRequest(), kNanovipWait, kNanovipReplyLength))
        return;
    FillFromNanovip(app.MeasuredRow, app.sDevReply, app.dTransRatio);
    if ((NanovipStatusOf(app.sDevReply) & kNanovipOverrange) != 0)
        app.MeasuredRow.sValidMask = QStringLiteral("EENN");
}

} // namespace korvanel
