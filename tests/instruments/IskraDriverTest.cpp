#include "instruments/IskraDriver.h"

#include "instruments/Catalogue.h"
#include "instruments/DevManaging.h"
#include "instruments/Frames.h"
#include "instruments/IskraSample.h"
#include "support/FakeInstrument.h"
#include "support/Fixture.h"
#include "support/ScriptedPort.h"

#include <cmath>
#include <map>
#include <stdexcept>

namespace korvanel::test {
namespace {

class IskraDriver : public BlockTest
{
protected:
    IskraDriver()
    {
        App().ThePort = &port;
        App().lModbusAddress = 33;
        App().lComPort = 4;
        App().sDevice = QStringLiteral("ISKRA MI71XX 1Ø2W (1b)");
        port.answer = [this](const QByteArray& request) { return instrument.Reply(request); };
    }
    bool Sample(const char* entry)
    {
        App().sDevice = QString::fromUtf8(entry);
        App().MeasuredRow = {};
        port.requests.clear();
        return DevCommand(kDevSample);
    }

    FakeInstrument instrument;
    ScriptedPort port;
};

TEST_F(IskraDriver, Settings_Are9600BaudWithEightDataBits)
{
    ASSERT_TRUE(DevCommand(kDevSettings));
    EXPECT_EQ(port.settings.number, 4);
    EXPECT_EQ(port.settings.baud, 9600);
    EXPECT_EQ(port.settings.dataBits, 8);
    EXPECT_TRUE(port.settings.isDtrOn);
    EXPECT_FALSE(port.settings.isRtsOn);
}

TEST_F(IskraDriver, Open_TakesThePortOfTheProjectWithoutSettingsBefore)
{
    App().lComPort = 7;
    ASSERT_TRUE(DevCommand(kDevOpen));
    EXPECT_EQ(port.settings.number, 7);
}

TEST_F(IskraDriver, Open_RefusesAnAddressOutsideTheBus)
{
    for (const qint32 address : {0, -1, 248, 300, 256 + 33}) {
        App().lModbusAddress = address;
        App().bShowDevErrors = false;
        EXPECT_FALSE(DevCommand(kDevOpen)) << address;
        EXPECT_EQ(App().sDevError, "Die Adresse darf nur zwischen 1 und 247 liegen.");
        EXPECT_FALSE(port.isOpen);
    }
}

TEST_F(IskraDriver, Connect_IdentifiesConfiguresAndReadsTransformersAndIdentity)
{
    const std::pair<const char*, int> modes[] = {
        {"ISKRA MI71XX 1Ø2W (1b)", 1}, {"ISKRA MI71XX 1Ø2W (1b) Rec", 1},     {"ISKRA MI71XX 3Ø3W (3u)", 5},
        {"ISKRA MI71XX 3Ø4W (4u)", 7}, {"ISKRA MI71XX 3Ø4W (4u) Rec L-N", 7}, {"ISKRA MI71XX 3Ø4W (4u) Rec L-L", 7},
        {"ISKRA MI71XX 3Ø3W (3b)", 9}, {"ISKRA MI71XX 3Ø4W (4b)", 25},        {"ISKRA MI71XX 3Ø4W U ", 25},
    };
    for (const auto& [entry, connection] : modes) {
        App().sDevice = QString::fromUtf8(entry);
        EXPECT_TRUE(DevConnect()) << entry;
        EXPECT_EQ(instrument.registers[19], connection) << entry;
        EXPECT_TRUE(App().bDevConnected);
        EXPECT_EQ(App().sDevFound, QString::fromUtf8(entry));
        EXPECT_EQ(App().sDeviceId, "MI7140 4711");
        EXPECT_EQ(App().dDevTransPrimary, (std::array<double, 2>{20000, 100}));
        EXPECT_EQ(App().dDevTransSecondary, (std::array<double, 2>{100, 5}));
        EXPECT_FALSE(port.IsOpen());
    }
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(IskraDriver, Connect_WithoutAnyReplyTellsTheTimeout)
{
    port.answer = [](const QByteArray&) { return QByteArray(); };
    EXPECT_FALSE(DevConnect());
    EXPECT_EQ(
        shell.BoxTexts(),
        QStringList{"COM4: Zeitüberschreitung!\nBitte Messgerät anschalten und die RS232-Verbindung überprüfen!"});
    EXPECT_FALSE(App().bDevConnected);
    EXPECT_EQ(App().sDevError, "") << "it has been shown";
    EXPECT_EQ(port.requests.size(), 1U) << "nothing is sent after the first error";
    EXPECT_FALSE(port.IsOpen());
    EXPECT_NEAR(clock.seconds, 1000.15, 1e-9) << "no request costs more than its wait";
}

TEST_F(IskraDriver, Identify_RefusesEveryWrongReply)
{
    App().bShowDevErrors = false;
    const QByteArray good = Crc16Append(QByteArray("\x21\x04\x06", 3) + "MI7140");
    for (const QByteArray& reply :
         {good.chopped(1), good + "!", QByteArray("garbage"), Crc16Append(QByteArray("\x21\x04\x06", 3) + "XX7140"),
          good.left(3), QByteArray(1024, '\xFF')}) {
        port.answer = [&reply](const QByteArray&) { return reply; };
        App().bDevConnected = true;
        EXPECT_FALSE(DevCommand(kDevIdentify));
        EXPECT_EQ(App().sDevError, "Kann eingestelltes Messgerät nicht finden!");
        EXPECT_FALSE(App().bDevConnected);
        EXPECT_EQ(App().sDevFound, "");
        EXPECT_TRUE(shell.boxes.empty()) << "the caller reads the error";
    }
}

TEST_F(IskraDriver, Configure_WorksOnlyAfterAnIdentification)
{
    App().bConfigDue = false;
    ASSERT_TRUE(DevCommand(kDevConfigure));
    EXPECT_TRUE(port.requests.empty());
    ASSERT_TRUE(DevCommand(kDevIdentify));
    EXPECT_TRUE(App().bConfigDue);
    ASSERT_TRUE(DevCommand(kDevConfigure));
    EXPECT_EQ(port.requests.back(), Crc16Append(QByteArray::fromHex("210600130001")));
}

TEST_F(IskraDriver, Configure_AWrongEchoIsToldInTheWordsOfTheMode)
{
    App().bConfigDue = true;
    App().sDevice = QStringLiteral("ISKRA MI71XX 3Ø3W (3b)");
    port.answer = [](const QByteArray& request) { return Crc16Append(request.left(5) + '\0'); };
    EXPECT_FALSE(DevCommand(kDevConfigure));
    EXPECT_EQ(App().sDevError, "Konnte 3Ø3W nicht konfigurieren.");
}

TEST_F(IskraDriver, ALateReplyIsNotTakenForTheAnswerToTheNextRequest)
{
    port.received = Crc16Append(QByteArray::fromHex("210600130001")); // arrived after its own wait
    port.answer = [](const QByteArray&) { return QByteArray(); };
    App().bConfigDue = true;
    EXPECT_FALSE(DevCommand(kDevConfigure));
}

TEST_F(IskraDriver, WriteTransformers_WritesThreeRegistersAndTheSecondaryCurrentIsFive)
{
    App().dDevTransPrimary = {20000, 150};
    App().dDevTransSecondary = {5, 1};
    ASSERT_TRUE(DevTransfer(TransferDirection::Write));
    EXPECT_EQ(instrument.registers[16], 0x8000 | 2000);
    EXPECT_EQ(instrument.registers[17], 10) << "below 10 V it is written as 10";
    EXPECT_EQ(instrument.registers[18], 30);
    EXPECT_EQ(App().dDevTransPrimary, (std::array<double, 2>{20000, 150})) << "read back";
    EXPECT_EQ(App().dDevTransSecondary, (std::array<double, 2>{10, 5}));
}

TEST_F(IskraDriver, ReadTransformers_AFaultLeavesNothingToDivideByZero)
{
    instrument.registers[17] = 0;
    ASSERT_TRUE(DevCommand(kDevReadTransformers));
    EXPECT_EQ(App().dDevTransSecondary[0], 1);
    port.answer = [](const QByteArray& request) { return request.left(3); };
    EXPECT_FALSE(DevCommand(kDevReadTransformers));
    EXPECT_EQ(App().sDevError, "Konnte Messwandler vom Messgerät nicht lesen!");
    EXPECT_EQ(App().dDevTransPrimary, (std::array<double, 2>{1, 1}));
    EXPECT_EQ(App().dDevTransSecondary, (std::array<double, 2>{1, 1}));
    EXPECT_EQ(port.requests.size(), 8U) << "the reading goes on";
}

TEST_F(IskraDriver, ResetAndInfo_TellTheirOwnErrors)
{
    ASSERT_TRUE(DevResetCounters());
    EXPECT_EQ(instrument.registers[13], 0xFFFF);
    port.answer = [](const QByteArray&) { return QByteArray("?"); };
    EXPECT_FALSE(DevCommand(kDevResetCounters));
    EXPECT_EQ(App().sDevError, "Konnte Reset nicht durchführen!");
    App().sDeviceId = QStringLiteral("old");
    EXPECT_FALSE(DevCommand(kDevInfo));
    EXPECT_TRUE(App().sDevError.startsWith("Bitte überprüfen Sie ob das Gerät richtig angeschlossen"));
    EXPECT_EQ(App().sDeviceId, "");
}

TEST_F(IskraDriver, Info_SendsBothRequestsWhateverComesBack)
{
    for (const char* reply : {"", "?", "a long reply of nobody"}) {
        port.requests.clear();
        port.answer = [reply](const QByteArray&) { return QByteArray(reply); };
        const double before = clock.seconds;
        EXPECT_FALSE(DevCommand(kDevInfo));
        EXPECT_EQ(port.requests, (std::vector<QByteArray>{Crc16Append(QByteArray::fromHex("210400010003")),
                                                          Crc16Append(QByteArray::fromHex("210400040001"))}));
        EXPECT_NEAR(clock.seconds - before, 0.3, 1e-9);
    }
}

TEST_F(IskraDriver, Info_NeedsModelAndNumber)
{
    for (const int missing : {1, 4}) {
        App().sDeviceId = QStringLiteral("old");
        port.answer = [this, missing](const QByteArray& request) {
            return request[3] == missing ? QByteArray() : instrument.Reply(request);
        };
        EXPECT_FALSE(DevCommand(kDevInfo));
        EXPECT_EQ(App().sDeviceId, "");
    }
}

TEST_F(IskraDriver, Sample_OfOnePhaseFollowsFromVoltageCurrentAndAngle)
{
    instrument.texts = {{16, "200.0 V"}, {13, "3.000 A"}, {28, "50.02Hz"}, {32, "  60.00"}};
    App().dTransRatio = {10, 2};
    ASSERT_TRUE(Sample("ISKRA MI71XX 1Ø2W (1b)"));
    const tMeasuredRow& row = App().MeasuredRow;
    EXPECT_DOUBLE_EQ(row.dU[kSum], 2000);
    EXPECT_DOUBLE_EQ(row.dI[kSum], 6);
    EXPECT_DOUBLE_EQ(row.df, 50.02);
    EXPECT_DOUBLE_EQ(row.dPhi[kSum], 60);
    EXPECT_NEAR(row.dS[kSum], 12000, 1e-9);
    EXPECT_NEAR(row.dP[kSum], 6000, 1e-9);
    EXPECT_NEAR(row.dQ[kSum], 10392.304845413264, 1e-9);
    EXPECT_NEAR(row.dCosPhi[kSum], 0.5, 1e-12);
    EXPECT_EQ(row.sValidMask, "NNNN");
    EXPECT_EQ(port.requests.size(), 4U);
    EXPECT_NEAR(clock.seconds, 1000.4, 1e-9);
}

TEST_F(IskraDriver, Sample_OfThreePhasesTakesTheMeanOfTheCurrentAndTheSquareRootOfThree)
{
    instrument.texts = {{40, "400.0 V"}, {12, "30.00 A"}, {28, "50.00Hz"}, {32, " -30.00"}};
    for (const char* entry :
         {"ISKRA MI71XX 3Ø3W (3u)", "ISKRA MI71XX 3Ø4W (4u)", "ISKRA MI71XX 3Ø3W (3b)", "ISKRA MI71XX 3Ø4W (4b)"}) {
        ASSERT_TRUE(Sample(entry));
        EXPECT_DOUBLE_EQ(App().MeasuredRow.dI[kSum], 10) << entry;
        EXPECT_NEAR(App().MeasuredRow.dS[kSum], 6928.203230275509, 1e-9);
        EXPECT_NEAR(App().MeasuredRow.dP[kSum], 6000, 1e-9);
        EXPECT_NEAR(App().MeasuredRow.dQ[kSum], -3464.1016151377544, 1e-9);
    }
}

TEST_F(IskraDriver, Sample_QueriesEachEntryInItsOrder)
{
    const std::pair<const char*, std::vector<int>> orders[] = {
        {"ISKRA MI71XX 1Ø2W (1b)", {16, 13, 28, 32}},
        {"ISKRA MI71XX 3Ø3W (3u)", {40, 12, 28, 32}},
        {"ISKRA MI71XX 1Ø2W (1b) Rec", {16, 12, 36, 28, 4, 8, 20, 32, 24, 0, 2, 1, 3}},
        {"ISKRA MI71XX 3Ø4W (4u) Rec L-N", {16, 17, 18, 19, 12, 13, 14, 15, 36, 28, 4,  5,  6,  7, 8, 9, 10,
                                            11, 20, 21, 22, 23, 32, 33, 34, 35, 24, 25, 26, 27, 0, 2, 1, 3}},
        {"ISKRA MI71XX 3Ø4W (4u) Rec L-L", {40, 41, 42, 43, 12, 13, 14, 15, 36, 28, 4,  5,  6,  7, 8, 9, 10,
                                            11, 20, 21, 22, 23, 32, 33, 34, 35, 24, 25, 26, 27, 0, 2, 1, 3}},
        {"ISKRA MI71XX 3Ø4W U ", {40, 41, 42, 43, 28}},
    };
    for (const auto& [entry, codes] : orders) {
        Sample(entry);
        std::vector<int> sent;
        for (const QByteArray& request : port.requests)
            sent.push_back(static_cast<quint8>(request[2]));
        EXPECT_EQ(sent, codes) << entry;
    }
    EXPECT_EQ(QueriesOf(IskraPlan::PhaseRecorderToNeutral), 34);
}

TEST_F(IskraDriver, Sample_OfAPhaseRecorderFillsEveryFieldWithItsScale)
{
    for (int code = 0; code < 44; ++code) // each value is its code; long enough for every kind
        instrument.texts[code] = QByteArray::number(code).rightJustified(7) + "        ";
    App().dTransRatio = {10, 100};
    ASSERT_TRUE(Sample("ISKRA MI71XX 3Ø4W (4u) Rec L-L"));
    const tMeasuredRow& row = App().MeasuredRow;
    EXPECT_EQ(row.dU, (std::array<double, 4>{400, 410, 420, 430}));
    EXPECT_EQ(row.dI, (std::array<double, 5>{400, 1300, 1400, 1500, 3600})) << "the overall current is the mean";
    EXPECT_EQ(row.df, 28);
    EXPECT_EQ(row.dP, (std::array<double, 4>{4000, 5000, 6000, 7000}));
    EXPECT_EQ(row.dQ, (std::array<double, 4>{8000, 9000, 10000, 11000}));
    EXPECT_EQ(row.dS, (std::array<double, 4>{20000, 21000, 22000, 23000}));
    EXPECT_EQ(row.dPhi, (std::array<double, 4>{32, 33, 34, 35}));
    EXPECT_EQ(row.dCosPhi, (std::array<double, 4>{24, 25, 26, 27}));
    EXPECT_EQ(row.dWpPlusAbs, 0);
    EXPECT_EQ(row.dWpMinusAbs, 2 * 3600.0 * 1000);
    EXPECT_EQ(row.dWqPlusAbs, 1 * 3600.0 * 1000);
    EXPECT_EQ(row.dWqMinusAbs, 3 * 3600.0 * 1000);
    EXPECT_EQ(row.dWpAbs, -2 * 3600.0 * 1000);
    EXPECT_EQ(row.dWqAbs, -2 * 3600.0 * 1000);
    EXPECT_EQ(row.sValidMask, "NNNN");
}

TEST_F(IskraDriver, Sample_AWrongHeadOrACutTextMakesItInvalidAndCostsTheFullTime)
{
    for (int code = 0; code < 44; ++code)
        instrument.texts[code] = "    1.5        ";
    for (const int fault : {0, 1, 2}) {
        port.answer = [this, fault](const QByteArray& request) {
            QByteArray reply = instrument.Reply(request);
            if (request[2] != 28)
                return reply;
            return fault == 0 ? QByteArray() : fault == 1 ? "x" + reply : reply.left(6);
        };
        const double before = clock.seconds;
        EXPECT_TRUE(Sample("ISKRA MI71XX 3Ø4W U ")) << "no message is raised";
        EXPECT_EQ(App().MeasuredRow.sValidMask, "EEEE") << fault;
        EXPECT_EQ(port.requests.size(), 5U);
        EXPECT_NEAR(clock.seconds - before, 0.5, 1e-9);
    }
}

TEST_F(IskraDriver, DevCommand_UnknownEntriesAndOperationsAreTold)
{
    App().sDevice = QStringLiteral("ISKRA MI71XX 3Ø4W U"); // without its blank
    EXPECT_FALSE(DevCommand(kDevSample));
    EXPECT_EQ(App().sDevError, "Unbekanntes Messgerät: ISKRA MI71XX 3Ø4W U");
    App().sDevice += u' ';
    EXPECT_FALSE(DevCommand(11));
    EXPECT_EQ(App().sDevError, "Unbekanntes Gerätekommando: 11");
}

TEST_F(IskraDriver, AnEntryThatIsNoModeOfItsOwn_IsAFaultOfTheProgram)
{
    App().sDevice = QStringLiteral("NORMA D4355 1Ø2W");
    App().bConfigDue = true;
    EXPECT_THROW(kIskraDriver.Run(kDevConfigure), std::out_of_range);
    EXPECT_THROW(kIskraDriver.Run(kDevSample), std::out_of_range);
    EXPECT_TRUE(port.requests.empty());
}

TEST_F(IskraDriver, DevCommand_APortThatCantBeOpenedIsTold)
{
    port.openError = "Zugriff verweigert";
    EXPECT_FALSE(DevConnect());
    EXPECT_EQ(shell.BoxTexts(), QStringList{"COM4: Zugriff verweigert"});
    EXPECT_TRUE(port.requests.empty());
}

} // namespace
} // namespace korvanel::test
