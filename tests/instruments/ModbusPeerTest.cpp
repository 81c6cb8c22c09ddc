// The driver over the system's serial port against a MODBUS server of other hands.
#include "support/ModbusPeer.h"
#include "support/Fixture.h"

#include "instruments/DevManaging.h"
#include "instruments/SystemPort.h"

#include <QCoreApplication>

namespace korvanel::test {
namespace {

class ModbusPeerTest : public BlockTest
{
protected:
    ModbusPeerTest()
    {
        App().TheClock = &realClock;
        App().ThePort = &port;
        App().lModbusAddress = 33;
        App().sDevice = QStringLiteral("ISKRA MI71XX 1Ø2W (1b)");
        App().bShowDevErrors = true;
    }
    ~ModbusPeerTest() override
    {
        port.Close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    QString Shown() const { return shell.BoxTexts().join('\n'); }
    void WriteTransformers(double voltagePrimary, double voltageSecondary, double currentPrimary)
    {
        App().dDevTransPrimary = {voltagePrimary, currentPrimary};
        App().dDevTransSecondary = {voltageSecondary, 1};
        ASSERT_TRUE(DevTransfer(TransferDirection::Write)) << Shown().toStdString();
    }
    void SetTransformerRegisters(int voltagePrimary, int voltageSecondary, int currentSecondary, int ratio)
    {
        peer.SetRegister(16, voltagePrimary);
        peer.SetRegister(17, voltageSecondary);
        peer.SetRegister(15, currentSecondary);
        peer.SetRegister(18, ratio);
    }

    ModbusPeer peer;
    SystemClock realClock;
    SystemPort port{[this](int) { return peer.Device(); }};
};

TEST_F(ModbusPeerTest, EveryEntry_IsIdentifiedAndConfigured)
{
    struct Case
    {
        const char* entry;
        int mode;
    };
    const Case cases[] = {
        {"ISKRA MI71XX 1Ø2W (1b)", 1}, {"ISKRA MI71XX 1Ø2W (1b) Rec", 1},     {"ISKRA MI71XX 3Ø3W (3u)", 5},
        {"ISKRA MI71XX 3Ø4W (4u)", 7}, {"ISKRA MI71XX 3Ø4W (4u) Rec L-N", 7}, {"ISKRA MI71XX 3Ø4W (4u) Rec L-L", 7},
        {"ISKRA MI71XX 3Ø3W (3b)", 9}, {"ISKRA MI71XX 3Ø4W (4b)", 25},        {"ISKRA MI71XX 3Ø4W U ", 25},
    };
    for (const Case& each : cases) {
        peer.SetRegister(19, 0);
        App().sDevice = QString::fromUtf8(each.entry);
        EXPECT_TRUE(DevConnect()) << each.entry;
        EXPECT_TRUE(App().bDevConnected) << each.entry;
        EXPECT_EQ(App().sDevFound, App().sDevice);
        EXPECT_EQ(peer.Register(19), each.mode) << each.entry;
        EXPECT_FALSE(port.IsOpen());
    }
    EXPECT_EQ(Shown(), "");
}

TEST_F(ModbusPeerTest, Connect_ReadsTransformersAndIdentity)
{
    SetTransformerRegisters(0x8000 | 2000, 100, 50, 20);
    ASSERT_TRUE(DevConnect()) << Shown().toStdString();
    EXPECT_EQ(App().sDeviceId, "MI7140 4711");
    EXPECT_DOUBLE_EQ(App().dDevTransPrimary[0], 20000);
    EXPECT_DOUBLE_EQ(App().dDevTransSecondary[0], 100);
    EXPECT_DOUBLE_EQ(App().dDevTransPrimary[1], 100);
    EXPECT_DOUBLE_EQ(App().dDevTransSecondary[1], 5);
}

TEST_F(ModbusPeerTest, OtherAddress_IsAnsweredByNobody)
{
    App().lModbusAddress = 34;
    EXPECT_FALSE(DevConnect());
    EXPECT_FALSE(App().bDevConnected);
    EXPECT_EQ(peer.Served(), 0);
    ASSERT_EQ(shell.boxes.size(), 1U);
    EXPECT_TRUE(shell.boxes[0].text.startsWith("COM1: ")) << Shown().toStdString();
}

TEST_F(ModbusPeerTest, VoltagePrimary_IsReadWithEveryPowerOfTen)
{
    ASSERT_TRUE(DevCommand(kDevSettings));
    struct Case
    {
        int coded;
        double volts;
    };
    for (const Case& each : {Case{4000, 400}, Case{15999, 1599.9}, Case{0x4000 | 1600, 1600},
                             Case{0x8000 | 2000, 20000}, Case{0xC000 | 4000, 400000}}) {
        SetTransformerRegisters(each.coded, 110, 10, 4000);
        ASSERT_TRUE(DevTransfer(TransferDirection::Read)) << Shown().toStdString();
        EXPECT_DOUBLE_EQ(App().dDevTransPrimary[0], each.volts);
        EXPECT_DOUBLE_EQ(App().dDevTransSecondary[0], 110);
        EXPECT_DOUBLE_EQ(App().dDevTransPrimary[1], 4000);
        EXPECT_DOUBLE_EQ(App().dDevTransSecondary[1], 1);
    }
}

TEST_F(ModbusPeerTest, Transformers_AreWrittenAsTheInstrumentCodesThem)
{
    ASSERT_TRUE(DevCommand(kDevSettings));
    struct Case
    {
        double voltagePrimary, voltageSecondary, currentPrimary;
        int codedPrimary, codedSecondary, codedRatio;
    };
    const Case cases[] = {
        {400, 400, 5, 4000, 400, 1},
        {1600, 9, 104, 0x4000 | 1600, 10, 20},
        {20000, 100, 100, 0x8000 | 2000, 100, 20},
        {400000, 776, 20000, 0xC000 | 4000, 775, 4000},
        {0, 775, 0, 1, 775, 1},
        {1e9, 10, 1e9, 0xC000 | 15999, 10, 4000},
    };
    for (const Case& each : cases) {
        WriteTransformers(each.voltagePrimary, each.voltageSecondary, each.currentPrimary);
        EXPECT_EQ(peer.Register(16), each.codedPrimary) << each.voltagePrimary;
        EXPECT_EQ(peer.Register(17), each.codedSecondary) << each.voltageSecondary;
        EXPECT_EQ(peer.Register(18), each.codedRatio) << each.currentPrimary;
    }
}

TEST_F(ModbusPeerTest, CurrentSecondary_IsTheInstrumentsAfterWriting)
{
    ASSERT_TRUE(DevCommand(kDevSettings));
    peer.SetRegister(15, 10);
    WriteTransformers(400, 400, 1000);
    EXPECT_EQ(peer.Register(15), 10);
    EXPECT_EQ(peer.Register(18), 200); // of 5 A, whatever the instrument has
    EXPECT_DOUBLE_EQ(App().dDevTransSecondary[1], 1);
    EXPECT_DOUBLE_EQ(App().dDevTransPrimary[1], 200);
}

TEST_F(ModbusPeerTest, Reset_WritesAllOnes)
{
    ASSERT_TRUE(DevCommand(kDevSettings));
    EXPECT_TRUE(DevResetCounters());
    EXPECT_EQ(peer.Register(13), 0xFFFF);
    EXPECT_EQ(Shown(), "");
    EXPECT_FALSE(port.IsOpen());
}

TEST_F(ModbusPeerTest, DeviceInfo_IsModelAndNumber)
{
    ASSERT_TRUE(DevCommand(kDevSettings) && DevCommand(kDevOpen));
    EXPECT_TRUE(DevCommand(kDevInfo));
    EXPECT_EQ(App().sDeviceId, "MI7140 4711");
    EXPECT_TRUE(DevCommand(kDevClose));
}

} // namespace
} // namespace korvanel::test
