// The NANOVIP PLUS: the decoding of its block, and the driver with a port in memory.
#include "instruments/NanovipValues.h"

#include "instruments/DevManaging.h"
#include "support/BlockInstruments.h"
#include "support/Fixture.h"
#include "support/ScriptedPort.h"

#include <cmath>
#include <limits>
#include <random>

namespace korvanel::test {
namespace {

// Decoding.

double Decoded(const char* sixCharacters)
{
    return DecodeNanovipValue(sixCharacters, 1);
}

TEST(NanovipValue, DigitsStandInAnOddOrder)
{
    EXPECT_EQ(Decoded("230100"), 123.0F);
    EXPECT_EQ(Decoded("000000"), 0);
}

TEST(NanovipValue, SignIsEightForNegativeAndAnythingElseForPositive)
{
    EXPECT_EQ(Decoded("238100"), -123.0F);
    for (const char sign : std::string("012345679AF-x"))
        EXPECT_EQ(Decoded((std::string("23") + sign + "100").c_str()), 123.0F) << sign;
    EXPECT_FALSE(std::signbit(Decoded("008000"))) << "no negative zero";
}

TEST(NanovipValue, ExponentFEMeansAHundredth)
{
    EXPECT_EQ(Decoded("2301FE"), 1.23F);
    EXPECT_EQ(Decoded("2301fe"), 1.23F);
    EXPECT_EQ(Decoded("230102"), 12300.0F);
}

TEST(NanovipValue, HasSinglePrecision)
{
    const double value = Decoded("0101FF");
    EXPECT_EQ(value, 10.1F);
    EXPECT_NE(value, 10.1);
}

TEST(NanovipValue, EveryMantissaExponentAndSign)
{
    for (int mantissa = 0; mantissa < 1000; ++mantissa)
        for (int byte = 0; byte < 256; ++byte)
            for (const char sign : {'0', '8'}) {
                std::array<char, 8> field{};
                std::snprintf(field.data(), field.size(), "%02d%c%d%02X", mantissa % 100, sign, mantissa / 100, byte);
                std::string decimal = (sign == '8' ? "-" : "") + std::to_string(mantissa) + 'e' +
                                      std::to_string(byte > 127 ? byte - 256 : byte);
                const double expected = static_cast<float>(std::strtod(decimal.c_str(), nullptr));
                ASSERT_EQ(DecodeNanovipValue(field.data(), 1), expected) << field.data();
            }
}

TEST(NanovipValue, WhatIsNoDigitEndsTheNumber)
{
    EXPECT_EQ(Decoded("x30100"), 1.0F) << "the first digit stands fourth";
    EXPECT_EQ(Decoded("230x00"), 0);
    EXPECT_EQ(Decoded("1E0200"), 21.0F);
    EXPECT_EQ(Decoded("2301G2"), 123.0F);
    EXPECT_EQ(Decoded("23010G"), 123.0F);
    EXPECT_EQ(Decoded("23"), 0);
    EXPECT_EQ(Decoded(""), 0);
}

TEST(NanovipBlock, RandomOnesDoNoHarm)
{
    std::mt19937 random(4); // NOLINT(cert-msc51-cpp): the same blocks in every run
    std::uniform_int_distribution<int> byte(0, 255);
    const int blocks = std::max(20'000, qEnvironmentVariableIntValue("KORVANEL_FUZZ_BLOCKS"));
    QByteArray block(kNanovipReplyLength, '0');
    for (int i = 0; i < blocks; ++i) {
        for (char& c : block)
            c = static_cast<char>(i % 2 == 0 ? byte(random) : "0123456789ABCDEF8"[byte(random) % 17]);
        tMeasuredRow row;
        FillFromNanovip(row, block, {1, 1});
        ASSERT_LE(std::abs(row.dPhi[kSum]), 180);
        ASSERT_LE(NanovipStatusOf(block), 255U);
    }
}

// The driver.

class NanovipTest : public BlockTest
{
protected:
    NanovipTest()
    {
        App().ThePort = &port;
        App().lComPort = 4;
        App().sDevice = QStringLiteral("NANOVIP-PLUS 3Ø3W");
        App().dTransRatio = {1, 1};
        App().bShowDevErrors = false;
        App().bConfigDue = true;
        App().iNetConfIndex = 1;
        port.answer = [this](const QByteArray& request) {
            return request == ":010302020049AF\r\n" ? reply : QByteArray();
        };
    }
    void Put(int position, const char* sixCharacters) { reply.replace(position - 1, 6, sixCharacters); }
    void PutStatus(const char* twoDigits) { reply.replace(295, 2, twoDigits); }
    bool Sample()
    {
        App().MeasuredRow = {};
        return DevCommand(kDevSample);
    }
    const tMeasuredRow& Row() const { return App().MeasuredRow; }

    QByteArray reply = NanovipBlock();
    ScriptedPort port;
};

TEST_F(NanovipTest, Settings_AreSevenDataBits)
{
    ASSERT_TRUE(DevCommand(kDevSettings));
    EXPECT_EQ(port.settings.dataBits, 7);
    EXPECT_EQ(port.settings.baud, 9600);
}

TEST_F(NanovipTest, Identify_TakesTheHeadOfTheReply)
{
    for (const char* entry : {"NANOVIP-PLUS 1Ø2W", "NANOVIP-PLUS 3Ø3W"}) {
        App().sDevice = QString::fromUtf8(entry);
        EXPECT_TRUE(DevCommand(kDevIdentify));
        EXPECT_TRUE(App().bDevConnected);
        EXPECT_EQ(App().sDevFound, QString::fromUtf8(entry));
    }
    reply = ":010391" + QByteArray(296, '0');
    EXPECT_FALSE(DevCommand(kDevIdentify));
    EXPECT_EQ(App().sDevError, "Kann eingestelltes Messgerät nicht finden!");
    EXPECT_FALSE(App().bDevConnected);
    reply.clear();
    EXPECT_FALSE(DevCommand(kDevIdentify));
    EXPECT_TRUE(App().sDevError.startsWith("Zeitüberschreitung!"));
}

TEST_F(NanovipTest, Configure_ComparesTheSwitchWithTheThreePhaseNetAlone)
{
    const struct
    {
        int netConf;
        const char* status;
        const char* error;
    } cases[] = {{1, "20", "Netzartschalter steht auf 1-phasig"},
                 {1, "00", ""},
                 {0, "20", ""},
                 {0, "00", "Netzartschalter steht auf 3-phasig"},
                 {2, "20", ""},
                 {2, "00", "Netzartschalter steht auf 3-phasig"},
                 {2, "60", "Batterie ist leer!"},
                 {1, "60", "Batterie ist leer!"}};
    for (const auto& [netConf, status, error] : cases) {
        App().iNetConfIndex = static_cast<qint16>(netConf);
        App().bDevConnected = true;
        PutStatus(status);
        DevCommand(kDevConfigure);
        EXPECT_EQ(App().sDevError, error) << netConf << ' ' << status;
        EXPECT_EQ(App().bDevConnected, *error == '\0') << netConf << ' ' << status;
    }
}

TEST_F(NanovipTest, Configure_IsDueAfterAnIdentificationOnly)
{
    App().bConfigDue = false;
    PutStatus("20");
    EXPECT_TRUE(DevCommand(kDevConfigure));
    EXPECT_TRUE(port.requests.empty());
    App().bConfigDue = true;
    reply.clear();
    EXPECT_FALSE(DevCommand(kDevConfigure));
    EXPECT_TRUE(App().sDevError.startsWith("Zeitüberschreitung!"));
}

TEST_F(NanovipTest, Prepare_TakesTheFactorsOfTheInstrumentBack)
{
    App().fDevScaleU = App().fDevScaleI = 7;
    EXPECT_TRUE(DevCommand(kDevPrepare));
    EXPECT_EQ(App().fDevScaleU, 1);
    EXPECT_EQ(App().fDevScaleI, 1);
    EXPECT_TRUE(port.requests.empty());
}

TEST_F(NanovipTest, Sample_HoldsEveryValueWithTheTransformers)
{
    App().dTransRatio = {10, 20};
    ASSERT_TRUE(Sample());
    EXPECT_FLOAT_EQ(static_cast<float>(Row().dU[kSum]), 2300);
    EXPECT_FLOAT_EQ(static_cast<float>(Row().dI[kSum]), 101);
    EXPECT_FLOAT_EQ(static_cast<float>(Row().dP[kSum]), 186'000);
    EXPECT_FLOAT_EQ(static_cast<float>(Row().dQ[kSum]), 139'400);
    EXPECT_FLOAT_EQ(static_cast<float>(Row().dS[kSum]), 232'000);
    EXPECT_FLOAT_EQ(static_cast<float>(Row().df), 50.0F);
    EXPECT_FLOAT_EQ(static_cast<float>(Row().dCosPhi[kSum]), 0.8F);
    EXPECT_NEAR(Row().dPhi[kSum], 36.87, 0.01);
    EXPECT_EQ(Row().sValidMask, "NNNN");
}

TEST_F(NanovipTest, Sample_SignOfThePowerFactorIsThatOfThePowerAndTheAngleTellsTheShift)
{
    const struct
    {
        const char* power;
        const char* factor;
        double cosPhi;
        double phi;
    } cases[] = {{"300901", "0800FF", 0.8, 36.87},   {"300901", "0880FF", 0.8, -36.87},
                 {"308901", "0800FF", -0.8, 143.13}, {"308901", "0880FF", -0.8, -143.13},
                 {"300901", "010000", 1, 0},         {"308901", "018000", -1, 0}};
    for (const auto& [power, factor, cosPhi, phi] : cases) {
        Put(20, power);
        Put(26, factor);
        ASSERT_TRUE(Sample());
        EXPECT_NEAR(Row().dCosPhi[kSum], cosPhi, 1e-6) << power << ' ' << factor;
        EXPECT_NEAR(Row().dPhi[kSum], phi, 0.01) << power << ' ' << factor;
    }
}

TEST_F(NanovipTest, Sample_PowerFactorOfZeroWithPowerFedBackStaysZero)
{
    Put(20, "308901");
    Put(26, "000000");
    ASSERT_TRUE(Sample());
    EXPECT_EQ(Row().dCosPhi[kSum], 0);
    EXPECT_FALSE(std::signbit(Row().dCosPhi[kSum]));
    EXPECT_NEAR(Row().dPhi[kSum], 90, 1e-9);
}

TEST_F(NanovipTest, Sample_WithoutPowerHasNoPowerFactor)
{
    Put(20, "000000");
    ASSERT_TRUE(Sample());
    EXPECT_EQ(Row().dCosPhi[kSum], 0);
    EXPECT_NEAR(Row().dPhi[kSum], 90, 1e-9);
}

TEST_F(NanovipTest, Sample_BeyondTheRangeIsInvalidThoughItsValuesAreRead)
{
    PutStatus("10");
    EXPECT_TRUE(Sample());
    EXPECT_EQ(Row().sValidMask, "EENN");
    EXPECT_FLOAT_EQ(static_cast<float>(Row().dU[kSum]), 230);
    PutStatus("EF");
    EXPECT_TRUE(Sample());
    EXPECT_EQ(Row().sValidMask, "NNNN");
}

TEST_F(NanovipTest, Sample_OfAnotherLengthIsWrongThoughAllValuesCouldBeRead)
{
    App().iGraceLeft = 1;
    for (const int length : {302, 304, 0, 1}) {
        reply = NanovipBlock().leftJustified(304, '0').left(length);
        EXPECT_FALSE(Sample());
        EXPECT_EQ(Row().sValidMask, "EEEE");
        EXPECT_EQ(Row().dU[kSum], 0) << "nothing is decoded";
        EXPECT_EQ(
            App().sDevError,
            QStringLiteral("Zeitüberschreitung!\nBitte Messgerät anschalten und die RS232-Verbindung überprüfen!\n"
                           "Keine unötigen oder zeitkritischen Programme starten!\n%1 von 303 Zeichen empfangen.")
                .arg(length));
    }
    App().iGraceLeft = 5;
    EXPECT_TRUE(Sample()) << "a run isn't interrupted by a message";
    EXPECT_EQ(Row().sValidMask, "EEEE");
}

TEST_F(NanovipTest, OperationsThatItLacksAreTold)
{
    for (const quint8 command : {kDevReadTransformers, kDevWriteTransformers, kDevResetCounters, kDevInfo}) {
        EXPECT_FALSE(DevCommand(command));
        EXPECT_EQ(App().sDevError, QStringLiteral("Unbekanntes Gerätekommando: %1").arg(command));
    }
}

} // namespace
} // namespace korvanel::test
