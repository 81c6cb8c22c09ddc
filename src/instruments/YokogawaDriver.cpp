#include "instruments/YokogawaDriver.h"

#include "core/Common.h"
#include "core/NetConfigurations.h"
#include "core/texts/DefaultTexts.h"
#include "instruments/EntryTable.h"
#include "instruments/Frames.h"
#include "instruments/SerialLink.h"
#include "instruments/YokogawaValues.h"

namespace korvanel {

namespace {

constexpr double kWt130Wait = 0.25; // s, after each command
constexpr double kWt130BlockWait = 0.5;
constexpr double k2535Wait = 0.8; // s, after each command and the block

struct YokogawaMode
{
    const char* entry;
    YokogawaWiring wiring;
    const char* setup; ///< commands, divided by "#"
};

constexpr YokogawaMode kYokogawaModes[] = {
    {.entry = "YOKOGAWA WT130 1Ø2W",
     .wiring = YokogawaWiring::SinglePhase,
     .setup = "RC#WR1#FL1#DB11#DC2#OF13,7,1#EA1#EB1#EC1#AV1#AA1#OF14,11,1"},
    {.entry = "YOKOGAWA WT130 3Ø3W",
     .wiring = YokogawaWiring::ThreeWire,
     .setup = "RC#WR3#FL1#DB11#DC2#OF13,7,1#EA4#EB1#EC4#AV1#AA1#OF14,11,1#OF11,4,4"},
    {.entry = "YOKOGAWA WT130 3Ø4W",
     .wiring = YokogawaWiring::FourWire,
     .setup = "RC#WR4#FL1#DB11#DC2#OF13,7,1#EA4#EB4#EC4#AV1#AA1#OF14,11,4#OF11,4,4"},
    {.entry = "YOKOGAWA 2535 1Ø2W",
     .wiring = YokogawaWiring::SinglePhase,
     .setup = "RC#WR1#FL1#DC8#EA1#EB1#EC1#AV1#AA1"},
    {.entry = "YOKOGAWA 2535 3Ø3W", .wiring = YokogawaWiring::ThreeWire, .setup = "RC#WR3#FL1#DC8#EA4#EB4#EC1#AV1#AA1"},
    {.entry = "YOKOGAWA 2535 3Ø4W", .wiring = YokogawaWiring::FourWire, .setup = "RC#WR4#FL1#DC8#EA4#EB4#EC1#AV1#AA1"},
};

/// Sends the setup of the chosen entry; the instrument answers nothing to it.
void SendSetup(double wait)
{
    for (const QByteArray& command : QByteArray(ChosenEntry(kYokogawaModes).setup).split('#'))
        Exchange(Line(command.constData()), wait);
}

bool IsSymmetricNet()
{
    return App().iNetConfIndex == kNetThreePhase;
}

} // namespace

const Wt130Driver kWt130Driver{};
const Y2535Driver k2535Driver{};

InstrumentDriver::Identity Wt130Driver::Identify() const
{
    const QByteArray reply = Exchange(Line("OS"), kWt130Wait);
    return {.reply = reply, .isOfFamily = reply.contains("MODEL253503")};
}

void Wt130Driver::Configure() const
{
    SendSetup(kWt130Wait);
}

void Wt130Driver::Sample() const
{
    ApplicationBlock& app = App();
    if (TakeBlock(Line("OD"), kWt130BlockWait, kWt130BlockLength))
        FillFromWt130(app.MeasuredRow, app.sDevReply, ChosenEntry(kYokogawaModes).wiring,
                      {.voltage = app.dTransRatio[0], .current = app.dTransRatio[1]}, IsSymmetricNet());
}

InstrumentDriver::Identity Y2535Driver::Identify() const
{
    const QByteArray reply = Exchange(Line("OS"), k2535Wait);
    return {.reply = reply, .isOfFamily = reply.contains("MDL2535,")};
}

void Y2535Driver::Configure() const
{
    SendSetup(k2535Wait);
}

void Y2535Driver::Prepare() const
{
    ApplicationBlock& app = App();
    const QByteArray setup = Exchange(Line("OS"), k2535Wait);
    if (setup.isEmpty())
        app.sDevError = texts::devTimeout;
    const YokogawaScale scale = ScaleOf2535(setup);
    app.fDevScaleU = static_cast<float>(scale.voltage);
    app.fDevScaleI = static_cast<float>(scale.current);
}

void Y2535Driver::Sample() const
{
    ApplicationBlock& app = App();
    const YokogawaWiring wiring = ChosenEntry(kYokogawaModes).wiring;
    if (TakeBlock(Line("OD"), k2535Wait, Y2535BlockLength(wiring)))
        FillFrom2535(app.MeasuredRow, app.sDevReply, wiring,
                     {.voltage = app.dTransRatio[0] * app.fDevScaleU, .current = app.dTransRatio[1] * app.fDevScaleI},
                     IsSymmetricNet());
}

} // namespace korvanel
