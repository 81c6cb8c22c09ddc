#include "acquisition/MeasurementConfiguration.h"

#include "instruments/Catalogue.h"
#include "support/Fixture.h"

#include <cmath>
#include <limits>

namespace korvanel::test {
namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();

class MeasurementConfiguration : public BlockTest
{
protected:
    MeasurementConfiguration()
    {
        App().sDevice = QStringLiteral("ISKRA MI71XX 1Ø2W (1b)");
        App().ScaleEnds = {500, 10, 50, 100, 50, 5000};
        PrepareMeasurementConfiguration();
        App().bProjectDirty = false;
    }
    /// Shows the page with a stored interval.
    static double IntervalAfterShow(const char* device, int netConf, double stored)
    {
        App().iNetConfIndex = static_cast<qint16>(netConf);
        App().sDevice = QString::fromUtf8(device);
        App().dInterval = stored;
        App().bProjectDirty = false;
        PrepareMeasurementConfiguration();
        return App().dInterval;
    }
    QString RangeMessage() const { return shell.boxes.empty() ? QString() : shell.boxes.back().text; }
};

TEST_F(MeasurementConfiguration, Series_FromFive)
{
    EXPECT_EQ(FillSeries(5, 100000), (std::vector<double>{5, 10, 50, 100, 500, 1000, 5000, 10000, 50000, 100000}));
}

TEST_F(MeasurementConfiguration, Series_FromZeroGoesOnWithATwentieth)
{
    EXPECT_EQ(FillSeries(0, 1000), (std::vector<double>{0, 0.05, 0.1, 0.5, 1, 5, 10, 50, 100, 500, 1000}));
}

TEST_F(MeasurementConfiguration, Series_TheTextOfTheNumberDecides)
{
    EXPECT_EQ(FillSeries(0.25, 3), (std::vector<double>{0.25, 0.5, 1})) << "0.25 has a 5 and is doubled";
    EXPECT_EQ(FillSeries(2, 10), (std::vector<double>{2, 10}));
}

TEST_F(MeasurementConfiguration, Series_OfNoRangeIsEmpty)
{
    EXPECT_TRUE(FillSeries(10, 5).empty());
    EXPECT_TRUE(FillSeries(-1, 5).empty());
    EXPECT_TRUE(FillSeries(kNan, 5).empty());
    EXPECT_TRUE(FillSeries(1, kInf).empty());
    EXPECT_TRUE(FillSeries(1, kNan).empty());
}

TEST_F(MeasurementConfiguration, ScaleEnds_ListsGoFromTheirLowToTheirHigh)
{
    const std::pair<const char*, const char*> ends[] = {{"5", "100000"}, {"0,5", "100000"}, {"0,0001", "100000"},
                                                        {"10", "500"},   {"0,1", "10000"},  {"10", "10000"}};
    const qsizetype sizes[] = {10, 12, 19, 4, 11, 7};
    for (int i = 0; i < kScaleEnds; ++i) {
        const QStringList choices = ScaleEndChoices(i);
        EXPECT_EQ(choices.first(), ends[i].first) << i;
        EXPECT_EQ(choices.last(), ends[i].second) << i;
        EXPECT_EQ(choices.size(), sizes[i]) << i;
    }
    EXPECT_EQ(ScaleEndChoices(3), (QStringList{"10", "50", "100", "500"}));
    EXPECT_EQ(TriggerChoices().mid(0, 4), (QStringList{"0", "0,05", "0,1", "0,5"}));
    EXPECT_EQ(TriggerChoices().last(), "1000");
}

TEST_F(MeasurementConfiguration, TransformerLists)
{
    EXPECT_EQ(TransformerChoices(0), (QStringList{"1", "230", "1500", "3000", "5000", "6000", "10000", "15000", "20000",
                                                  "25000", "30000", "45000", "50000", "60000"}));
    EXPECT_EQ(TransformerChoices(1), (QStringList{"1", "100", "230"}));
    EXPECT_EQ(TransformerChoices(2), (QStringList{"1", "5", "10", "25", "50", "75", "100", "150", "200", "250", "500",
                                                  "750", "1000", "1200", "1500", "2000", "2500"}));
    EXPECT_EQ(TransformerChoices(3), (QStringList{"1", "5", "10"}));
}

TEST_F(MeasurementConfiguration, IntervalList_GoesFromTheSmallestOfTheInstrumentToTen)
{
    EXPECT_EQ(IntervalChoices(), (QStringList{"1", "2", "3", "4", "5", "6", "7", "8", "9", "10"}));
    App().iMinInterval = 5;
    EXPECT_EQ(IntervalChoices(), (QStringList{"5", "6", "7", "8", "9", "10"}));
}

// Showing the page.

TEST_F(MeasurementConfiguration, Show_AnInstrumentOfAnotherNetGivesWayToTheFirst)
{
    App().bDevConnected = true;
    App().iNetConfIndex = 1;
    PrepareMeasurementConfiguration();
    EXPECT_EQ(App().sDevice, "ISKRA MI71XX 3Ø3W (3b)");
    EXPECT_FALSE(App().bDevConnected);
    EXPECT_TRUE(App().bProjectDirty);
}

TEST_F(MeasurementConfiguration, Show_AnInstrumentOfTheListStaysConnected)
{
    App().bDevConnected = true;
    PrepareMeasurementConfiguration();
    EXPECT_TRUE(App().bDevConnected);
    EXPECT_FALSE(App().bProjectDirty);
    EXPECT_TRUE(App().bHasDevTrans) << "looked up";
}

TEST_F(MeasurementConfiguration, Show_TheTrailingBlankOfAnEntryCounts)
{
    App().iNetConfIndex = 6;
    App().sDevice = QStringLiteral("ISKRA MI71XX 3Ø4W U");
    PrepareMeasurementConfiguration();
    EXPECT_EQ(App().sDevice, "ISKRA MI71XX 3Ø4W U ");
}

TEST_F(MeasurementConfiguration, Show_RefreshesTheMask)
{
    App().MeasuredRow.sValidMask = QStringLiteral("EEEE");
    PrepareMeasurementConfiguration();
    EXPECT_EQ(App().MeasuredRow.sValidMask, "NNNN");
}

TEST_F(MeasurementConfiguration, Show_AnIntervalBelowTheSmallestBecomesTheSmallest)
{
    EXPECT_EQ(IntervalAfterShow("ISKRA MI71XX 3Ø4W (4u) Rec L-N", 4, 2), 5);
    EXPECT_TRUE(App().bProjectDirty);
    for (const double stored : {0.0, -3.0, kNan, kInf, -kInf}) {
        EXPECT_EQ(IntervalAfterShow("NANOVIP-PLUS 1Ø2W", 0, stored), 2) << stored;
        EXPECT_TRUE(App().bProjectDirty) << stored;
    }
}

TEST_F(MeasurementConfiguration, Show_AStoredIntervalOfSixtySurvives)
{
    EXPECT_EQ(IntervalAfterShow("ISKRA MI71XX 3Ø4W (4u) Rec L-N", 4, 60), 60);
    EXPECT_FALSE(App().bProjectDirty);
}

TEST_F(MeasurementConfiguration, Show_AnIntervalAboveSixtyStaysAndIsNoObstacle)
{
    for (const double stored : {61.0, 900.0, 86400.0}) {
        EXPECT_EQ(IntervalAfterShow("ISKRA MI71XX 1Ø2W (1b)", 0, stored), stored);
        EXPECT_FALSE(App().bProjectDirty);
        EXPECT_TRUE(CheckIntervalOfFamily());
        EXPECT_TRUE(CheckIntervalForRun());
    }
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(MeasurementConfiguration, RunCheck_RefusesAnIntervalOfMoreThanADay)
{
    for (const double stored : {86401.0, 1e300}) {
        EXPECT_EQ(IntervalAfterShow("ISKRA MI71XX 1Ø2W (1b)", 0, stored), stored);
        EXPECT_TRUE(CheckIntervalOfFamily());
        EXPECT_FALSE(CheckIntervalForRun());
        EXPECT_EQ(RangeMessage(), "Der eingegebene Wert muss sich\nzwischen 1 und 86400  befinden.");
    }
}

TEST_F(MeasurementConfiguration, FamilyCheck_AppliesToTheFamilyWithAnOwnLeastIntervalAlone)
{
    App().dInterval = 900;
    for (const char* entry : {"ISKRA MI71XX 1Ø2W (1b)", "NORMA D4355 1Ø2W", "YOKOGAWA WT130 1Ø2W"}) {
        App().sDevice = QString::fromUtf8(entry);
        EXPECT_TRUE(CheckIntervalOfFamily()) << entry;
    }
    EXPECT_TRUE(shell.boxes.empty());
    App().sDevice = QStringLiteral("NANOVIP-PLUS 1Ø2W");
    EXPECT_FALSE(CheckIntervalOfFamily());
    EXPECT_EQ(RangeMessage(), "Der eingegebene Wert muss sich\nzwischen 1,5 und 60  befinden.");
}

TEST_F(MeasurementConfiguration, Show_CorrectsTransformersAndPort)
{
    App().dTransPrimary = {0, kNan};
    App().dTransSecondary = {-5, kInf};
    App().lComPort = 0;
    PrepareMeasurementConfiguration();
    EXPECT_EQ(App().dTransPrimary, (std::array<double, 2>{1, 1}));
    EXPECT_EQ(App().dTransSecondary, (std::array<double, 2>{1, 1}));
    EXPECT_EQ(App().lComPort, 1);
    EXPECT_TRUE(App().bProjectDirty);
}

TEST_F(MeasurementConfiguration, Show_CorrectedTransformersOfTheInstrumentChangeNoProject)
{
    App().dDevTransPrimary = {0, kNan};
    PrepareMeasurementConfiguration();
    EXPECT_EQ(App().dDevTransPrimary, (std::array<double, 2>{1, 1}));
    EXPECT_FALSE(App().bProjectDirty);
}

// Choosing an instrument.

TEST_F(MeasurementConfiguration, Choose_AnotherEntryIsNotConnectedAndHasNoIdentity)
{
    App().bDevConnected = true;
    App().sDeviceId = QStringLiteral("MI7140 4711");
    ChooseInstrument(QStringLiteral("YOKOGAWA 2535 1Ø2W"));
    EXPECT_EQ(App().sDevice, "YOKOGAWA 2535 1Ø2W");
    EXPECT_FALSE(App().bDevConnected);
    EXPECT_EQ(App().sDeviceId, "");
    EXPECT_FALSE(App().bHasDevTrans);
    EXPECT_TRUE(App().bProjectDirty);
}

TEST_F(MeasurementConfiguration, Choose_TheEntryInForceChangesNothing)
{
    App().bDevConnected = true;
    App().sDeviceId = QStringLiteral("MI7140 4711");
    ChooseInstrument(App().sDevice);
    EXPECT_TRUE(App().bDevConnected);
    EXPECT_EQ(App().sDeviceId, "MI7140 4711");
    EXPECT_FALSE(App().bProjectDirty);
}

TEST_F(MeasurementConfiguration, Choose_TheSmallestIntervalFollowsTheInstrument)
{
    ChooseInstrument(QStringLiteral("NANOVIP-PLUS 1Ø2W"));
    EXPECT_EQ(App().dInterval, 2) << "1 was the first and is too short";
    ChooseInstrument(QStringLiteral("YOKOGAWA 2535 1Ø2W"));
    EXPECT_EQ(App().dInterval, 1) << "2 was the first";
    App().dInterval = 7;
    ChooseInstrument(QStringLiteral("NANOVIP-PLUS 1Ø2W"));
    EXPECT_EQ(App().dInterval, 7) << "any other stays";
    App().dInterval = 60;
    ChooseInstrument(QStringLiteral("YOKOGAWA 2535 1Ø2W"));
    EXPECT_EQ(App().dInterval, 60);
}

TEST_F(MeasurementConfiguration, Choose_AnIntervalThatIsTooShortBecomesTheNewSmallest)
{
    IntervalAfterShow("ISKRA MI71XX 3Ø4W (4u) Rec L-N", 4, 8);
    App().iNetConfIndex = 0;
    App().sDevice = QStringLiteral("YOKOGAWA 2535 1Ø2W");
    App().dInterval = 1.5;
    ChooseInstrument(QStringLiteral("NORMA D4355 1Ø2W"));
    EXPECT_EQ(App().dInterval, 2);
}

// Typed texts.

TEST_F(MeasurementConfiguration, Interval_IsWholeAndAtLeastOne)
{
    const std::pair<const char*, double> texts[] = {{"7", 7},    {"7,9", 7},    {"7.9", 7}, {"60", 60},   {"0", 1},
                                                    {"-5", 1},   {"abc", 1},    {"", 1},    {"1e999", 1}, {"1,2,3", 1},
                                                    {" 9 s", 9}, {"\u0663", 1}, {"2e1", 20}};
    for (const auto& [text, seconds] : texts) {
        App().dInterval = 3;
        const TypedEntry entry = EnterInterval(QString::fromUtf8(text));
        EXPECT_TRUE(entry.isAccepted) << text;
        EXPECT_EQ(App().dInterval, seconds) << text;
        EXPECT_EQ(entry.text, QString::number(seconds)) << text;
    }
    EXPECT_TRUE(shell.boxes.empty());
    EXPECT_TRUE(App().bProjectDirty);
}

TEST_F(MeasurementConfiguration, Interval_OutOfRangeIsToldAndNotTaken)
{
    for (const char* text : {"61", "1e300", "60,9e3", "0,5"}) {
        shell.boxes.clear();
        const TypedEntry entry = EnterInterval(QString::fromUtf8(text));
        EXPECT_FALSE(entry.isAccepted) << text;
        EXPECT_EQ(RangeMessage(), "Der eingegebene Wert muss sich\nzwischen 1 und 60  befinden.") << text;
    }
    EXPECT_EQ(App().dInterval, 1);
    EXPECT_FALSE(App().bProjectDirty);
    App().iMinInterval = 5;
    EXPECT_FALSE(EnterInterval(QStringLiteral("4")).isAccepted);
    EXPECT_EQ(RangeMessage(), "Der eingegebene Wert muss sich\nzwischen 5 und 60  befinden.");
    EXPECT_FALSE(EnterInterval(QString()).isAccepted) << "nothing counts as 1";
}

TEST_F(MeasurementConfiguration, Interval_TheSameValueIsNoChange)
{
    EXPECT_TRUE(EnterInterval(QStringLiteral("1,4")).isAccepted);
    EXPECT_FALSE(App().bProjectDirty);
}

TEST_F(MeasurementConfiguration, RunCheck_OfANanovipIsFromOneAndAHalfToSixty)
{
    App().sDevice = QStringLiteral("NANOVIP-PLUS 1Ø2W");
    App().iMinInterval = 2;
    for (const double interval : {1.0, 1.4, 61.0}) {
        App().dInterval = interval;
        EXPECT_FALSE(CheckIntervalForRun()) << interval;
        EXPECT_EQ(RangeMessage(), "Der eingegebene Wert muss sich\nzwischen 1,5 und 60  befinden.");
    }
    EXPECT_EQ(shell.boxes.size(), 3U) << "told once each";
    for (const double interval : {2.0, 2.5, 60.0}) {
        App().dInterval = interval;
        EXPECT_TRUE(CheckIntervalForRun()) << interval;
    }
    App().dInterval = 1.6;
    EXPECT_FALSE(CheckIntervalForRun()) << "below what the instrument can do";
}

TEST_F(MeasurementConfiguration, RunCheck_TellsTheLeastIntervalOfEachEntry)
{
    struct Case
    {
        const char* entry;
        const char* bounds; ///< that are told to an interval far too short
        double shortest;    ///< s, that a run accepts
    };
    const Case cases[] = {
        {"ISKRA MI71XX 1Ø2W (1b)", "1 und 86400", 1},
        {"ISKRA MI71XX 1Ø2W (1b) Rec", "1 und 86400", 1},
        {"ISKRA MI71XX 3Ø3W (3u)", "1 und 86400", 1},
        {"ISKRA MI71XX 3Ø4W (4u)", "1 und 86400", 1},
        {"ISKRA MI71XX 3Ø3W (3b)", "1 und 86400", 1},
        {"ISKRA MI71XX 3Ø4W (4b)", "1 und 86400", 1},
        {"ISKRA MI71XX 3Ø4W (4u) Rec L-N", "5 und 86400", 5},
        {"ISKRA MI71XX 3Ø4W (4u) Rec L-L", "5 und 86400", 5},
        {"ISKRA MI71XX 3Ø4W U ", "1 und 86400", 1},
        {"NANOVIP-PLUS 1Ø2W", "1,5 und 60", 2},
        {"NANOVIP-PLUS 3Ø3W", "1,5 und 60", 2},
        {"NORMA D4355 1Ø2W", "2 und 86400", 2},
        {"NORMA D4355 3Ø4W", "2 und 86400", 2},
        {"YOKOGAWA WT130 1Ø2W", "1 und 86400", 1},
        {"YOKOGAWA WT130 3Ø3W", "1 und 86400", 1},
        {"YOKOGAWA WT130 3Ø4W", "1 und 86400", 1},
        {"YOKOGAWA 2535 1Ø2W", "1 und 86400", 1},
        {"YOKOGAWA 2535 3Ø3W", "1 und 86400", 1},
        {"YOKOGAWA 2535 3Ø4W", "1 und 86400", 1},
    };
    for (const Case& c : cases) {
        App().sDevice = QString::fromUtf8(c.entry);
        LookUpInstrument(App().sDevice);
        shell.boxes.clear();
        App().dInterval = 0.5;
        EXPECT_FALSE(CheckIntervalForRun()) << c.entry;
        EXPECT_EQ(RangeMessage(), QString("Der eingegebene Wert muss sich\nzwischen %1  befinden.").arg(c.bounds))
            << c.entry;
        EXPECT_EQ(shell.boxes.size(), 1U) << c.entry;
        App().dInterval = c.shortest - 0.01;
        EXPECT_FALSE(CheckIntervalForRun()) << c.entry;
        App().dInterval = c.shortest;
        EXPECT_TRUE(CheckIntervalForRun()) << c.entry;
    }
}

TEST_F(MeasurementConfiguration, Transformers_ZeroOrLessOrNoNumberBecomesOne)
{
    const std::pair<const char*, double> texts[] = {{"230", 230},   {"0,5", 0.5}, {"0.5", 0.5}, {"0", 1},
                                                    {"-5", 1},      {"abc", 1},   {"", 1},      {"1e999", 1},
                                                    {"1,2,3", 1.2}, {"٣", 1},     {"1e-999", 1}};
    for (const TransformerSide side : {TransformerSide::Program, TransformerSide::Instrument})
        for (int i = 0; i < kTransformerValues; ++i)
            for (const auto& [text, value] : texts) {
                EnterTransformer(side, i, QStringLiteral("7"));
                const QString shown = EnterTransformer(side, i, QString::fromUtf8(text));
                EXPECT_EQ(shown, QString::number(value).replace('.', ',')) << text;
            }
}

TEST_F(MeasurementConfiguration, Transformers_StandInTheirFields)
{
    for (int i = 0; i < kTransformerValues; ++i)
        EnterTransformer(TransformerSide::Program, i, QString::number(10 + i));
    EXPECT_EQ(App().dTransPrimary, (std::array<double, 2>{10, 12}));
    EXPECT_EQ(App().dTransSecondary, (std::array<double, 2>{11, 13}));
    EXPECT_EQ(RatioText(TransformerSide::Program, 0), "10 / 11");
    EXPECT_EQ(RatioText(TransformerSide::Program, 1), "12 / 13");
    EXPECT_EQ(RatioText(TransformerSide::Instrument, 1), "1 / 1");
    EXPECT_TRUE(App().bProjectDirty);
}

TEST_F(MeasurementConfiguration, Transformers_OfTheInstrumentAreHeldAndChangeNoProject)
{
    EnterTransformer(TransformerSide::Instrument, 0, QStringLiteral("20000"));
    EnterTransformer(TransformerSide::Instrument, 3, QStringLiteral("5"));
    EXPECT_EQ(App().dDevTransPrimary[0], 20000);
    EXPECT_EQ(App().dDevTransSecondary[1], 5);
    EXPECT_EQ(App().dTransPrimary[0], 1);
    EXPECT_FALSE(App().bProjectDirty);
}

TEST_F(MeasurementConfiguration, Transformers_TheSameValueIsNoChange)
{
    EnterTransformer(TransformerSide::Program, 0, QStringLiteral("-1"));
    EXPECT_FALSE(App().bProjectDirty);
}

TEST_F(MeasurementConfiguration, Trigger_IsANumberFromZeroToAThousand)
{
    const std::pair<const char*, double> texts[] = {{"0,05", 0.05}, {"5", 5},     {"1000", 1000}, {"1001", 1000},
                                                    {"-5", 0},      {"abc", 0},   {"", 0},        {"1e999", 0},
                                                    {"1,2,3", 1.2}, {"\u0663", 0}};
    for (const auto& [text, value] : texts) {
        EnterTrigger(1, QString::fromUtf8(text));
        EXPECT_EQ(App().dTrigger[1], value) << text;
    }
    EXPECT_EQ(App().dTrigger[0], 0);
    EXPECT_TRUE(App().bProjectDirty);
    App().bProjectDirty = false;
    EXPECT_EQ(EnterTrigger(0, QStringLiteral("0,0")), "0");
    EXPECT_FALSE(App().bProjectDirty);
}

TEST_F(MeasurementConfiguration, ScaleEnd_OfPowerIsTypedInKilowattsAndHeldInWatts)
{
    EXPECT_EQ(ScaleEndText(2), "0,05") << "50 W";
    EXPECT_EQ(EnterScaleEnd(2, QStringLiteral("7,5")), "7,5");
    EXPECT_EQ(App().ScaleEnds[2], 7500);
    EXPECT_TRUE(App().bProjectDirty);
}

TEST_F(MeasurementConfiguration, ScaleEnd_TheTextOfTheStoredValueIsNoChange)
{
    App().ScaleEnds[2] = 1.0 / 3;
    EnterScaleEnd(2, ScaleEndText(2));
    EXPECT_EQ(App().ScaleEnds[2], 1.0 / 3);
    for (int i = 0; i < kScaleEnds; ++i)
        EnterScaleEnd(i, ScaleEndText(i));
    EXPECT_FALSE(App().bProjectDirty);
}

TEST_F(MeasurementConfiguration, ScaleEnd_WithoutARangeStaysAsItWas)
{
    for (int i = 0; i < kScaleEnds; ++i)
        for (const char* text : {"0", "-5", "abc", "", "1e999", "1e-999", "\u0663"})
            EXPECT_EQ(EnterScaleEnd(i, QString::fromUtf8(text)), ScaleEndText(i)) << text;
    EXPECT_EQ(EnterScaleEnd(2, QStringLiteral("1e307")), "0,05") << "not finite in watts";
    EXPECT_EQ(App().ScaleEnds, (std::array<double, 6>{500, 10, 50, 100, 50, 5000}));
    EXPECT_FALSE(App().bProjectDirty);
}

TEST_F(MeasurementConfiguration, ScaleEnd_OthersAreHeldAsTyped)
{
    const std::array<double, 6> typed{400, 25.5, 0, 60, 12, 3000};
    for (const int i : {0, 1, 3, 4, 5})
        EnterScaleEnd(i, QString::number(typed.at(static_cast<std::size_t>(i))));
    EXPECT_EQ(App().ScaleEnds, (std::array<double, 6>{400, 25.5, 50, 60, 12, 3000}));
}

TEST_F(MeasurementConfiguration, Port_IsAWholeNumberFromOne)
{
    const std::pair<const char*, int> texts[] = {{"4", 4},     {"3,9", 3},   {"0", 1},     {"-5", 1},
                                                 {"abc", 1},   {"", 1},      {"1e999", 1}, {"99999999999", 2147483647},
                                                 {"1,2,3", 1}, {"\u0663", 1}};
    for (const auto& [text, port] : texts) {
        EXPECT_EQ(EnterPort(QString::fromUtf8(text)), QString::number(port)) << text;
        EXPECT_EQ(App().lComPort, port) << text;
    }
    EXPECT_TRUE(App().bProjectDirty);
    App().bProjectDirty = false;
    EnterPort(QStringLiteral("1"));
    EXPECT_FALSE(App().bProjectDirty);
}

TEST_F(MeasurementConfiguration, Beat_IsStoredAsOne)
{
    EnterBeat(false);
    EXPECT_FALSE(App().bProjectDirty);
    EnterBeat(true);
    EXPECT_EQ(App().lSound, 1);
    EXPECT_TRUE(App().bProjectDirty);
}

} // namespace
} // namespace korvanel::test
