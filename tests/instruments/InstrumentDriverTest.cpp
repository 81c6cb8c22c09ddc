// What a family of instruments gets for nothing: the defaults of a driver, and what stands around its own operations.
#include "instruments/InstrumentDriver.h"

#include "support/Fixture.h"
#include "support/ScriptedPort.h"

namespace korvanel::test {
namespace {

constexpr const char* kTimeout = "Zeitüberschreitung!\nBitte Messgerät anschalten und die RS232-Verbindung überprüfen!";
constexpr const char* kNotFound = "Kann eingestelltes Messgerät nicht finden!";

/// Writes nothing but the identification.
class PlainDriver : public InstrumentDriver
{
public:
    QByteArray reply = "MODEL";
    mutable int questions = 0;
    mutable bool wasClean = false; ///< nothing of a former identification was left when it was asked

protected:
    Identity Identify() const override
    {
        ++questions;
        wasClean = !App().bDevConnected && App().sDevFound.isEmpty() && App().bConfigDue;
        return {.reply = reply, .isOfFamily = reply == "MODEL"};
    }
};

/// Writes besides what it does to configure an instrument of seven data bits.
class SevenBitDriver : public PlainDriver
{
public:
    mutable int configurations = 0;

protected:
    int DataBits() const override { return 7; }
    void Configure() const override { ++configurations; }
};

class InstrumentDriverTest : public BlockTest
{
protected:
    InstrumentDriverTest()
    {
        App().ThePort = &port;
        App().lComPort = 4;
        App().sDevice = QStringLiteral("PLAIN 3Ø4W");
    }
    /// What the operation told.
    QString ErrorOf(quint8 command) const
    {
        App().sDevError.clear();
        driver.Run(command);
        return App().sDevError;
    }

    ScriptedPort port;
    PlainDriver driver;
    SevenBitDriver sevenBitDriver;
};

TEST_F(InstrumentDriverTest, WhatAFamilyLacks_IsToldByItsNumber)
{
    for (const int command : {5, 7, 8, 9, 10, 11, 12, 128, 255})
        EXPECT_EQ(ErrorOf(static_cast<quint8>(command)), QString("Unbekanntes Gerätekommando: %1").arg(command));
    EXPECT_TRUE(port.requests.empty());
    EXPECT_EQ(port.openings, 0);
    EXPECT_EQ(driver.questions, 0);
}

TEST_F(InstrumentDriverTest, WhatEveryFamilyHas_IsDoneWithoutAnError)
{
    for (const quint8 command : {kDevSettings, kDevOpen, kDevIdentify, kDevConfigure, kDevPrepare, kDevClose})
        EXPECT_EQ(ErrorOf(command), "") << int{command};
    EXPECT_TRUE(port.requests.empty()) << "a driver of this kind sends nothing by itself";
    EXPECT_EQ(driver.questions, 1);
}

TEST_F(InstrumentDriverTest, Settings_HaveTheDataBitsOfTheFamily)
{
    driver.Run(kDevSettings);
    EXPECT_EQ(port.settings.number, 4);
    EXPECT_EQ(port.settings.baud, 9600);
    EXPECT_EQ(port.settings.dataBits, 8);
    sevenBitDriver.Run(kDevSettings);
    EXPECT_EQ(port.settings.dataBits, 7);
    EXPECT_FALSE(port.IsOpen());
}

TEST_F(InstrumentDriverTest, Open_TakesThePortOfTheProjectWithTheSettingsOfTheFamily)
{
    App().lComPort = 7;
    sevenBitDriver.Run(kDevOpen);
    EXPECT_TRUE(port.IsOpen());
    EXPECT_EQ(port.settings.number, 7);
    EXPECT_EQ(port.settings.dataBits, 7);
    sevenBitDriver.Run(kDevClose);
    EXPECT_FALSE(port.IsOpen());
}

TEST_F(InstrumentDriverTest, Open_APortThatCantBeOpenedIsThrown)
{
    port.openError = "Zugriff verweigert";
    EXPECT_THROW(driver.Run(kDevOpen), PortError);
}

TEST_F(InstrumentDriverTest, Identify_OfAnInstrumentOfTheFamilyFindsTheChosenEntry)
{
    EXPECT_EQ(ErrorOf(kDevIdentify), "");
    EXPECT_TRUE(App().bDevConnected);
    EXPECT_TRUE(App().bConfigDue);
    EXPECT_EQ(App().sDevFound, "PLAIN 3Ø4W");
}

TEST_F(InstrumentDriverTest, Identify_ForgetsTheFormerOneBeforeItAsks)
{
    App().bDevConnected = true;
    App().sDevFound = QStringLiteral("another");
    App().bConfigDue = false;
    driver.Run(kDevIdentify);
    EXPECT_TRUE(driver.wasClean);
}

TEST_F(InstrumentDriverTest, Identify_ToldApartAreNobodyAndAStranger)
{
    for (const auto& [reply, error] : {std::pair{"", kTimeout}, std::pair{"?", kNotFound}}) {
        App().bDevConnected = true;
        App().bConfigDue = false;
        driver.reply = reply;
        EXPECT_EQ(ErrorOf(kDevIdentify), error);
        EXPECT_FALSE(App().bDevConnected);
        EXPECT_EQ(App().sDevFound, "");
        EXPECT_TRUE(App().bConfigDue);
    }
}

TEST_F(InstrumentDriverTest, Configure_HappensOnlyWhileItIsDue)
{
    App().bConfigDue = false;
    sevenBitDriver.Run(kDevConfigure);
    EXPECT_EQ(sevenBitDriver.configurations, 0);
    sevenBitDriver.Run(kDevIdentify);
    sevenBitDriver.Run(kDevConfigure);
    EXPECT_EQ(sevenBitDriver.configurations, 1);
}

} // namespace
} // namespace korvanel::test
