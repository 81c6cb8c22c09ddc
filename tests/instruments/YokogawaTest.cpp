// The YOKOGAWA WT130 and 2535: the decoding of their blocks, and the drivers with a port in memory.
#include "instruments/YokogawaValues.h"

#include "instruments/DevManaging.h"
#include "support/BlockInstruments.h"
#include "support/Fixture.h"
#include "support/ScriptedPort.h"

#include <cmath>
#include <limits>
#include <numbers>
#include <random>

namespace korvanel::test {
namespace {

using enum YokogawaWiring;

constexpr int kWt130Field = 11;
constexpr int k2535Field = 10;

struct Values
{
    const char* U = "230.0";
    const char* I = "5.0";
    const char* P = "800.0";
    const char* f = "50.00";
};

/// A block of the WT130 with its angle group: "L" or "O" and "G" or "D" before the angle, and the value that carries
/// the sign.
QByteArray Wt130Block(YokogawaWiring wiring, const Values& values, const QByteArray& angleGroup = " G",
                      const char* angle = "30.0", const char* sign = "1")
{
    QByteArray block = EmptyBlock(261);
    const bool isSingle = wiring == SinglePhase;
    PutField(block, isSingle ? 7 : 61, kWt130Field, values.U);
    PutField(block, isSingle ? 80 : 134, kWt130Field, values.I);
    if (!isSingle)
        PutField(block, 188, kWt130Field, sign);
    PutField(block, isSingle ? 153 : 207, kWt130Field, values.P);
    PutField(block, 226, kWt130Field, values.f);
    block.replace(241, 2, angleGroup);
    PutField(block, 244, kWt130Field, angle);
    return block;
}

QByteArray Block2535(YokogawaWiring wiring, const Values& values)
{
    const struct
    {
        int length, U, I, P, f;
    } places[] = {{89, 7, 25, 43, 78}, {191, 41, 93, 145, 180}, {242, 58, 127, 196, 231}};
    const auto& place = places[static_cast<int>(wiring)];
    QByteArray block = EmptyBlock(place.length);
    PutField(block, place.U, k2535Field, values.U);
    PutField(block, place.I, k2535Field, values.I);
    PutField(block, place.P, k2535Field, values.P);
    PutField(block, place.f, k2535Field, values.f);
    return block;
}

tMeasuredRow RowOf130(const QByteArray& block, YokogawaWiring wiring, bool isSymmetricNet = false,
                      const YokogawaScale& scale = {})
{
    tMeasuredRow row;
    FillFromWt130(row, block, wiring, scale, isSymmetricNet);
    return row;
}

tMeasuredRow RowOf2535(const QByteArray& block, YokogawaWiring wiring, bool isSymmetricNet = false,
                       const YokogawaScale& scale = {})
{
    tMeasuredRow row;
    FillFrom2535(row, block, wiring, scale, isSymmetricNet);
    return row;
}

// The WT130.

TEST(Wt130Block, SinglePhase_FormsPowersOfTheAngle)
{
    const tMeasuredRow row = RowOf130(Wt130Block(SinglePhase, {}), SinglePhase);
    EXPECT_DOUBLE_EQ(row.dU[kSum], 230);
    EXPECT_DOUBLE_EQ(row.dI[kSum], 5);
    EXPECT_DOUBLE_EQ(row.dP[kSum], 800) << "as measured";
    EXPECT_DOUBLE_EQ(row.df, 50);
    EXPECT_DOUBLE_EQ(row.dPhi[kSum], 30);
    EXPECT_NEAR(row.dCosPhi[kSum], std::sqrt(3) / 2, 1e-12);
    EXPECT_DOUBLE_EQ(row.dS[kSum], 1150);
    EXPECT_NEAR(row.dQ[kSum], 575, 1e-9);
    EXPECT_EQ(row.sValidMask, "NNNN");
}

TEST(Wt130Block, SinglePhase_LettersTellWhetherTheCurrentLags)
{
    EXPECT_DOUBLE_EQ(RowOf130(Wt130Block(SinglePhase, {}, " G"), SinglePhase).dPhi[kSum], 30);
    for (const char* other : {" D", "  ", " g", " O"})
        EXPECT_DOUBLE_EQ(RowOf130(Wt130Block(SinglePhase, {}, other), SinglePhase).dPhi[kSum], -30) << other;
    EXPECT_LT(RowOf130(Wt130Block(SinglePhase, {}, " D"), SinglePhase).dQ[kSum], 0);
}

TEST(Wt130Block, WithoutAnAngleThePowerFactorIsOneWhateverThePower)
{
    for (const YokogawaWiring wiring : {SinglePhase, ThreeWire, FourWire}) {
        const tMeasuredRow row = RowOf130(Wt130Block(wiring, {.P = "-3"}, "OG", "77"), wiring);
        EXPECT_EQ(row.dPhi[kSum], 0);
        EXPECT_EQ(row.dCosPhi[kSum], 1);
        EXPECT_EQ(row.dQ[kSum], 0);
        EXPECT_EQ(row.dP[kSum], -3);
    }
    EXPECT_EQ(RowOf130(Wt130Block(SinglePhase, {}, "oG"), SinglePhase).dPhi[kSum], 30)
        << "letters are compared exactly";
}

TEST(Wt130Block, SinglePhaseMeterInAThreePhaseNetStandsForThreePhases)
{
    const tMeasuredRow row = RowOf130(Wt130Block(SinglePhase, {}), SinglePhase, true);
    EXPECT_DOUBLE_EQ(row.dU[kSum], 230 * std::numbers::sqrt3);
    EXPECT_DOUBLE_EQ(row.dI[kSum], 5);
    EXPECT_DOUBLE_EQ(row.dP[kSum], 2400);
    EXPECT_DOUBLE_EQ(row.dS[kSum], 3450);
    EXPECT_NEAR(row.dQ[kSum], 1725, 1e-9);
}

TEST(Wt130Block, ThreeWire_TakesTheSignFromAnotherValue)
{
    const tMeasuredRow lagging = RowOf130(Wt130Block(ThreeWire, {}), ThreeWire);
    EXPECT_DOUBLE_EQ(lagging.dU[kSum], 230);
    EXPECT_DOUBLE_EQ(lagging.dS[kSum], 1150 * std::numbers::sqrt3);
    EXPECT_DOUBLE_EQ(lagging.dPhi[kSum], 30);
    const tMeasuredRow leading = RowOf130(Wt130Block(ThreeWire, {}, " G", "30.0", "-0.5"), ThreeWire);
    EXPECT_DOUBLE_EQ(leading.dPhi[kSum], -30);
    EXPECT_NEAR(leading.dQ[kSum], -575 * std::numbers::sqrt3, 1e-9);
    EXPECT_DOUBLE_EQ(RowOf130(Wt130Block(ThreeWire, {}, " D", "30.0", "0"), ThreeWire).dPhi[kSum], 30);
}

TEST(Wt130Block, FourWire_TakesTheVoltageToTheNeutralConductor)
{
    const tMeasuredRow row = RowOf130(Wt130Block(FourWire, {}), FourWire, true);
    EXPECT_DOUBLE_EQ(row.dU[kSum], 230 * std::numbers::sqrt3);
    EXPECT_NEAR(row.dS[kSum], 3450, 1e-9);
    EXPECT_NEAR(row.dQ[kSum], 1725, 1e-9);
    EXPECT_DOUBLE_EQ(row.dP[kSum], 800) << "the total already";
}

TEST(Wt130Block, EveryNumberFormatIsRead)
{
    for (const char* text : {"5.0", "+5.0E+00", "0.05E2", "50e-1", "5", "  5 x", "5.0.1", "500E-02A"})
        EXPECT_DOUBLE_EQ(RowOf130(Wt130Block(SinglePhase, {.I = text}), SinglePhase).dI[kSum], 5) << text;
    for (const char* text : {"", "x5", "--5", "-", ".", "E5", "inf", "nan"})
        EXPECT_EQ(RowOf130(Wt130Block(SinglePhase, {.I = text}), SinglePhase).dI[kSum], 0) << text;
    EXPECT_TRUE(std::isinf(RowOf130(Wt130Block(SinglePhase, {.I = "1e999"}), SinglePhase).dI[kSum]));
}

// The 2535.

TEST(Block2535, FormsReactivePowerAndAngleWithoutASign)
{
    for (const YokogawaWiring wiring : {SinglePhase, ThreeWire}) {
        const tMeasuredRow row = RowOf2535(Block2535(wiring, {}), wiring);
        const double S = 1150 * (wiring == SinglePhase ? 1 : std::numbers::sqrt3);
        EXPECT_DOUBLE_EQ(row.dU[kSum], 230);
        EXPECT_DOUBLE_EQ(row.dS[kSum], S);
        EXPECT_DOUBLE_EQ(row.dCosPhi[kSum], 800 / S);
        EXPECT_DOUBLE_EQ(row.dQ[kSum], std::sqrt(S * S - 640'000));
        EXPECT_NEAR(row.dPhi[kSum], std::acos(800 / S) * 180 / std::numbers::pi, 1e-9);
        const tMeasuredRow generator = RowOf2535(Block2535(wiring, {.P = "-800"}), wiring);
        EXPECT_GT(generator.dQ[kSum], 0);
        EXPECT_GT(generator.dPhi[kSum], 90);
    }
}

TEST(Block2535, FourWire_TakesTheVoltageToTheNeutralConductor)
{
    const tMeasuredRow row = RowOf2535(Block2535(FourWire, {}), FourWire);
    EXPECT_DOUBLE_EQ(row.dU[kSum], 230 * std::numbers::sqrt3);
    EXPECT_NEAR(row.dS[kSum], 3450, 1e-9);
    EXPECT_DOUBLE_EQ(row.dP[kSum], 800);
}

TEST(Block2535, SinglePhaseMeterInAThreePhaseNetStandsForThreePhases)
{
    const tMeasuredRow row = RowOf2535(Block2535(SinglePhase, {}), SinglePhase, true);
    EXPECT_DOUBLE_EQ(row.dU[kSum], 230 * std::numbers::sqrt3);
    EXPECT_DOUBLE_EQ(row.dP[kSum], 2400);
    EXPECT_DOUBLE_EQ(row.dS[kSum], 3450);
    EXPECT_DOUBLE_EQ(row.dCosPhi[kSum], 2400.0 / 3450);
}

TEST(Block2535, FrequencyCodeMeansThatThereIsNone)
{
    for (const char* code : {"888888", "888888.0", "8.88888E5"})
        EXPECT_EQ(RowOf2535(Block2535(ThreeWire, {.f = code}), ThreeWire).df, 0) << code;
    EXPECT_EQ(RowOf2535(Block2535(ThreeWire, {.f = "888887"}), ThreeWire).df, 888887);
}

TEST(Block2535, WithoutApparentPowerTheAngleIsNinetyDegrees)
{
    const tMeasuredRow row = RowOf2535(Block2535(ThreeWire, {.I = "0"}), ThreeWire);
    EXPECT_EQ(row.dCosPhi[kSum], 0);
    EXPECT_NEAR(row.dPhi[kSum], 90, 1e-9);
    EXPECT_EQ(row.dQ[kSum], 0);
}

TEST(Block2535, ActivePowerBeyondTheApparentOneLeavesNoReactivePower)
{
    for (const char* power : {"2000", "-2000"}) {
        const tMeasuredRow row = RowOf2535(Block2535(SinglePhase, {.P = power}), SinglePhase);
        EXPECT_EQ(row.dQ[kSum], 0);
        EXPECT_EQ(row.dPhi[kSum], 0);
        EXPECT_EQ(row.sValidMask, "NNNN");
    }
}

TEST(Block2535, FourWire_ComparesWithTheSignOfThePower)
{
    const tMeasuredRow more = RowOf2535(Block2535(FourWire, {.P = "4000"}), FourWire);
    EXPECT_EQ(more.dQ[kSum], 0);
    EXPECT_EQ(more.sValidMask, "NNNN");
    const tMeasuredRow fedBack = RowOf2535(Block2535(FourWire, {.P = "-4000"}), FourWire);
    EXPECT_EQ(fedBack.sValidMask, "EEEE") << "no reactive power can be formed";
    EXPECT_TRUE(std::isfinite(fedBack.dQ[kSum]));
    EXPECT_EQ(RowOf2535(Block2535(FourWire, {.P = "-800"}), FourWire).sValidMask, "NNNN");
}

TEST(Setup2535, TellsTheScalingOnlyWhereItIsOn)
{
    EXPECT_EQ(ScaleOf2535("MDL2535,SC0,KV2.000,KA3.000").voltage, 1);
    const YokogawaScale scale = ScaleOf2535("MDL2535,SC1,KV2.000,KA30.00");
    EXPECT_EQ(scale.voltage, 2);
    EXPECT_EQ(scale.current, 30);
    for (const char* odd : {"SC1", "SC1KV", "SC1KVxKA", "SC1KV0.000KA00000", "SC1KV1e999KA1E999"}) {
        EXPECT_EQ(ScaleOf2535(odd).voltage, 1) << odd;
        EXPECT_EQ(ScaleOf2535(odd).current, 1) << odd;
    }
}

TEST(YokogawaBlocks, RandomOnesDoNoHarm)
{
    std::mt19937 random(5); // NOLINT(cert-msc51-cpp): the same blocks in every run
    std::uniform_int_distribution<int> byte(0, 255);
    const int blocks = std::max(10'000, qEnvironmentVariableIntValue("KORVANEL_FUZZ_BLOCKS"));
    const char* const likely = "0123456789+-.eE  GDO";
    for (int i = 0; i < blocks; ++i) {
        const auto wiring = static_cast<YokogawaWiring>(i % 3);
        QByteArray block(static_cast<qsizetype>(i % 2 == 0 ? kWt130BlockLength : Y2535BlockLength(wiring)), ' ');
        for (char& c : block)
            c = static_cast<char>(i % 5 == 0 ? byte(random) : likely[byte(random) % 20]);
        const tMeasuredRow row =
            i % 2 == 0 ? RowOf130(block, wiring, i % 4 == 0) : RowOf2535(block, wiring, i % 4 == 1);
        ASSERT_FALSE(row.sValidMask.isEmpty());
        ScaleOf2535(block);
    }
}

// The drivers.

class YokogawaTest : public BlockTest
{
protected:
    YokogawaTest()
    {
        App().ThePort = &port;
        App().dTransRatio = {1, 1};
        App().bShowDevErrors = false;
        App().bConfigDue = true;
        App().iNetConfIndex = 2;
        port.answer = [this](const QByteArray& request) {
            return request == "OS\r\n" ? setup : request == "OD\r\n" ? block : QByteArray();
        };
    }
    void Choose(const char* entry) { App().sDevice = QString::fromUtf8(entry); }
    bool Sample()
    {
        App().MeasuredRow = {};
        return DevCommand(kDevSample);
    }
    const tMeasuredRow& Row() const { return App().MeasuredRow; }

    QByteArray setup;
    QByteArray block;
    ScriptedPort port;
};

constexpr const char* kEntries130[] = {"YOKOGAWA WT130 1Ø2W", "YOKOGAWA WT130 3Ø3W", "YOKOGAWA WT130 3Ø4W"};
constexpr const char* kEntries2535[] = {"YOKOGAWA 2535 1Ø2W", "YOKOGAWA 2535 3Ø3W", "YOKOGAWA 2535 3Ø4W"};

TEST_F(YokogawaTest, Settings_AreEightDataBits)
{
    for (const char* entry : {kEntries130[0], kEntries2535[2]}) {
        Choose(entry);
        ASSERT_TRUE(DevCommand(kDevSettings));
        EXPECT_EQ(port.settings.dataBits, 8);
    }
}

TEST_F(YokogawaTest, Identify_LooksForTheModelInTheSetup)
{
    const auto identify = [this](const char* entry, const char* reply) {
        Choose(entry);
        setup = reply;
        return DevCommand(kDevIdentify);
    };
    for (const char* entry : kEntries130) {
        EXPECT_TRUE(identify(entry, "x MODEL253503 y\r\n")) << entry;
        EXPECT_EQ(App().sDevFound, QString::fromUtf8(entry));
        EXPECT_TRUE(App().bDevConnected);
        EXPECT_FALSE(identify(entry, "MDL2535,\r\n"));
        EXPECT_EQ(App().sDevError, "Kann eingestelltes Messgerät nicht finden!");
        EXPECT_FALSE(App().bDevConnected);
    }
    for (const char* entry : kEntries2535) {
        EXPECT_TRUE(identify(entry, "MDL2535,SC0\r\n")) << entry;
        EXPECT_EQ(App().sDevFound, QString::fromUtf8(entry));
        EXPECT_FALSE(identify(entry, "MODEL253503\r\n"));
        EXPECT_FALSE(identify(entry, ""));
        EXPECT_TRUE(App().sDevError.startsWith("Zeitüberschreitung!"));
    }
}

TEST_F(YokogawaTest, Configure_SendsEachCommandOfTheEntryByItself)
{
    const std::pair<const char*, const char*> setups[] = {
        {kEntries130[0], "RC#WR1#FL1#DB11#DC2#OF13,7,1#EA1#EB1#EC1#AV1#AA1#OF14,11,1"},
        {kEntries130[1], "RC#WR3#FL1#DB11#DC2#OF13,7,1#EA4#EB1#EC4#AV1#AA1#OF14,11,1#OF11,4,4"},
        {kEntries130[2], "RC#WR4#FL1#DB11#DC2#OF13,7,1#EA4#EB4#EC4#AV1#AA1#OF14,11,4#OF11,4,4"},
        {kEntries2535[0], "RC#WR1#FL1#DC8#EA1#EB1#EC1#AV1#AA1"},
        {kEntries2535[1], "RC#WR3#FL1#DC8#EA4#EB4#EC1#AV1#AA1"},
        {kEntries2535[2], "RC#WR4#FL1#DC8#EA4#EB4#EC1#AV1#AA1"},
    };
    for (const auto& [entry, commands] : setups) {
        Choose(entry);
        port.requests.clear();
        ASSERT_TRUE(DevCommand(kDevConfigure));
        QByteArray sent;
        for (const QByteArray& request : port.requests) {
            EXPECT_TRUE(request.endsWith("\r\n"));
            sent += (sent.isEmpty() ? "" : "#") + request.chopped(2);
        }
        EXPECT_EQ(sent, commands);
    }
    App().bConfigDue = false;
    port.requests.clear();
    DevCommand(kDevConfigure);
    EXPECT_TRUE(port.requests.empty());
}

TEST_F(YokogawaTest, Wt130_SingleMeterScalesUpInAThreePhaseNetAlone)
{
    Choose(kEntries130[0]);
    block = Wt130Block(SinglePhase, {});
    for (const int netConf : {0, 1, 2}) {
        App().iNetConfIndex = static_cast<qint16>(netConf);
        ASSERT_TRUE(Sample());
        EXPECT_DOUBLE_EQ(Row().dU[kSum], netConf == 1 ? 230 * std::numbers::sqrt3 : 230) << netConf;
        EXPECT_DOUBLE_EQ(Row().dP[kSum], netConf == 1 ? 2400 : 800) << netConf;
    }
}

TEST_F(YokogawaTest, Wt130_SampleHasTheTransformers)
{
    App().dTransRatio = {10, 20};
    Choose(kEntries130[1]);
    block = Wt130Block(ThreeWire, {});
    ASSERT_TRUE(Sample());
    EXPECT_DOUBLE_EQ(Row().dU[kSum], 2300);
    EXPECT_DOUBLE_EQ(Row().dI[kSum], 100);
    EXPECT_DOUBLE_EQ(Row().dP[kSum], 160'000);
    EXPECT_NEAR(Row().dS[kSum], 230'000 * std::numbers::sqrt3, 1e-6);
}

TEST_F(YokogawaTest, Y2535_PreparesWithItsScalingAndSamplesWithIt)
{
    Choose(kEntries2535[1]);
    setup = "MDL2535,SC1,KV2.000,KA3.000\r\n";
    ASSERT_TRUE(DevCommand(kDevPrepare));
    EXPECT_EQ(App().fDevScaleU, 2);
    EXPECT_EQ(App().fDevScaleI, 3);
    App().dTransRatio = {10, 20};
    block = Block2535(ThreeWire, {});
    ASSERT_TRUE(Sample());
    EXPECT_DOUBLE_EQ(Row().dU[kSum], 4600);
    EXPECT_DOUBLE_EQ(Row().dI[kSum], 300);
    EXPECT_DOUBLE_EQ(Row().dP[kSum], 960'000);
    setup = "MDL2535,SC0\r\n";
    ASSERT_TRUE(DevCommand(kDevPrepare));
    EXPECT_EQ(App().fDevScaleU, 1);
    setup.clear();
    EXPECT_FALSE(DevCommand(kDevPrepare));
    EXPECT_TRUE(App().sDevError.startsWith("Zeitüberschreitung!"));
}

TEST_F(YokogawaTest, BlockOfAnotherLengthIsWrong)
{
    const std::pair<const char*, int> lengths[] = {{kEntries130[0], 261},  {kEntries130[1], 261},
                                                   {kEntries130[2], 261},  {kEntries2535[0], 89},
                                                   {kEntries2535[1], 191}, {kEntries2535[2], 242}};
    for (const auto& [entry, length] : lengths) {
        Choose(entry);
        for (const int received : {length - 1, length + 1, 0, length + 40}) {
            block = QByteArray(received, '1');
            App().iGraceLeft = 1;
            EXPECT_FALSE(Sample());
            EXPECT_EQ(Row().sValidMask, "EEEE");
            EXPECT_EQ(Row().dU[kSum], 0);
            EXPECT_TRUE(
                App().sDevError.endsWith(QStringLiteral("\n%1 von %2 Zeichen empfangen.").arg(received).arg(length)));
            App().iGraceLeft = 5;
            EXPECT_TRUE(Sample());
            EXPECT_EQ(Row().sValidMask, "EEEE");
        }
        block = QByteArray(length, '1');
        EXPECT_TRUE(Sample()) << entry;
        EXPECT_EQ(App().sDevReply, block);
    }
}

} // namespace
} // namespace korvanel::test
