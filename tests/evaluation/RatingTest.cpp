// Ratings of single values at their borders, just inside and just outside, and of whole sets.
#include "evaluation/Rating.h"

#include "evaluation/EvaluationFixture.h"

#include <cmath>
#include <limits>

namespace korvanel::test {
namespace {

constexpr double kBeyond = std::numeric_limits<double>::infinity();

double Above(double value)
{
    return std::nextafter(value, kBeyond);
}
double Below(double value)
{
    return std::nextafter(value, -kBeyond);
}

class RatingTest : public EvaluationTest
{
protected:
    RatingTest() { Use(2); }

    void Use(int netConf)
    {
        SetRoundMachine();
        Rebuild(netConf);
    }
    void Rebuild(int netConf)
    {
        App().iNetConfIndex = static_cast<qint16>(netConf);
        rater = std::make_unique<Rater>(RatedDataOf(WhichMachine::I), netConf);
    }
    /// Of the pass and of the lists; the two have to agree.
    int Rate(double value, int quantity) const
    {
        const int rating = rater->Rate(value, quantity);
        RateValue(0, 0, RatingMode::Set, false);
        RateValue(value, quantity, RatingMode::MachineI, true);
        EXPECT_EQ(App().iRowWorstRating, rating) << quantity << " " << value;
        return rating;
    }
    /// Inclusive borders of the ratings 1 and 2 of a quantity.
    void ExpectBands(int quantity, double low2, double low1, double high1, double high2) const
    {
        SCOPED_TRACE(quantity);
        EXPECT_EQ(Rate(low1, quantity), 1);
        EXPECT_EQ(Rate(high1, quantity), 1);
        EXPECT_EQ(Rate(Above(low1), quantity), 1);
        EXPECT_EQ(Rate(Below(high1), quantity), 1);
        EXPECT_EQ(Rate(Below(low1), quantity), 2);
        EXPECT_EQ(Rate(Above(high1), quantity), 2);
        EXPECT_EQ(Rate(low2, quantity), 2);
        EXPECT_EQ(Rate(high2, quantity), 2);
        EXPECT_EQ(Rate(Below(low2), quantity), 3);
        EXPECT_EQ(Rate(Above(high2), quantity), 3);
    }
    void ExpectPlausible(int quantity, double low, double high, int within) const
    {
        SCOPED_TRACE(quantity);
        EXPECT_EQ(Rate(low, quantity), within);
        EXPECT_EQ(Rate(high, quantity), within);
        EXPECT_EQ(Rate(Above(low), quantity), within);
        EXPECT_EQ(Rate(Below(high), quantity), within);
        EXPECT_EQ(Rate(Below(low), quantity), 3);
        EXPECT_EQ(Rate(Above(high), quantity), 3);
    }

    std::unique_ptr<Rater> rater;
};

TEST_F(RatingTest, Voltage_WithinFivePercentIsGoodWithinTenMedium)
{
    for (const int quantity : {0, 16, 17, 18})
        ExpectBands(quantity, 0.9 * 400, 0.95 * 400, 1.05 * 400, 1.1 * 400);
    EXPECT_EQ(Rate(380, kU), 1);
    EXPECT_EQ(Rate(420, kU), 1);
    EXPECT_EQ(Rate(360, kU), 2);
}

TEST_F(RatingTest, Frequency_WithinTwoPercentIsGoodWithinFiveMedium)
{
    ExpectBands(kF, 0.95 * 50, 0.98 * 50, 1.02 * 50, 1.05 * 50);
    EXPECT_EQ(Rate(49, kF), 1);
    EXPECT_EQ(Rate(51, kF), 1);
    EXPECT_EQ(Rate(47.5, kF), 2);
    EXPECT_EQ(Rate(52.5, kF), 2);
}

TEST_F(RatingTest, Power_UpToTheRatedOneIsGoodUpToHalfAsMuchAgainMedium)
{
    for (const int quantity : {3, 22, 23, 24})
        ExpectBands(quantity, -18000, -12000, 12000, 18000);
    App().MachineI.model.Pelec_n = -12000; // a generator is judged by the magnitude
    Rebuild(2);
    for (const int quantity : {3, 22, 23, 24})
        ExpectBands(quantity, -18000, -12000, 12000, 18000);
}

TEST_F(RatingTest, WithoutARatedValueOnlyThePlausibleRangeCounts)
{
    App().MachineI.record.U.reset();
    App().MachineI.record.f.reset();
    Rebuild(2);
    for (const int quantity : {0, 16, 17, 18})
        ExpectPlausible(quantity, 0, 100000, 0);
    ExpectPlausible(kF, 0, 1000, 0);
}

TEST_F(RatingTest, WithoutRatedPowerTheLoadIsNoneOfTheMachine)
{
    App().MachineI.record.Pmech.reset();
    for (const int netConf : {2, 5}) {
        Rebuild(netConf);
        for (const int quantity : {3, 22, 23, 24})
            ExpectPlausible(quantity, -1e9, 1e9, 0);
        EXPECT_EQ(Rate(1500, kN), 3);
        EXPECT_EQ(Rate(50, kM), 2);
        EXPECT_EQ(Rate(10000.5, kM), 3);
        EXPECT_EQ(Rate(5000, kPmech), 3);
        EXPECT_EQ(Rate(0.9, kEta), 3);
        EXPECT_EQ(Rate(400, kU), 1);
    }
}

TEST_F(RatingTest, Current_IsNotRated)
{
    for (const int netConf : {0, 2, 5}) {
        Rebuild(netConf);
        for (const int quantity : {1, 19, 20, 21, 37})
            ExpectPlausible(quantity, 0, 100000, 0);
    }
}

TEST_F(RatingTest, QuantitiesWithoutRatedValueHaveAPlausibleRange)
{
    for (int netConf = 0; netConf < kNetConfCount; ++netConf) {
        Rebuild(netConf);
        for (const int quantity : {4, 5, 25, 26, 27, 28, 29, 30})
            ExpectPlausible(quantity, -1e9, 1e9, 0);
        for (const int quantity : {11, 31, 32, 33})
            ExpectPlausible(quantity, -180, 180, 0);
        for (const int quantity : {6, 34, 35, 36})
            ExpectPlausible(quantity, -1, 1, 0);
        ExpectPlausible(kN, 0, 6000, 0);
        ExpectPlausible(kM, -10000, 10000, 0);
        ExpectPlausible(kPmech, -1e9, 1e9, 0);
        ExpectPlausible(kEta, 0, 0.99999999, 0);
        for (const int quantity : {12, 13, 14, 15})
            ExpectPlausible(quantity, -360000000000.0, 360000000000.0, 0);
        for (int quantity = kWpAbs; quantity <= kWqMinusRel; ++quantity)
            ExpectPlausible(quantity, -360000000000.0, 360000000000.0, 0);
    }
}

TEST_F(RatingTest, WithoutAMachineInTheNetOnlyThePlausibleRangeCounts)
{
    for (const int netConf : {0, 1, 3, 4, 6}) {
        Use(netConf);
        for (const int quantity : {0, 16, 17, 18})
            ExpectPlausible(quantity, 0, 100000, 0);
        ExpectPlausible(kF, 0, 1000, 0);
        for (const int quantity : {3, 22, 23, 24})
            ExpectPlausible(quantity, -1e9, 1e9, 0);
        App().MachineI.record.Pmech.reset();
        Rebuild(netConf);
        EXPECT_EQ(Rate(1500, kN), 0);
        EXPECT_EQ(Rate(50, kM), 0);
        EXPECT_EQ(Rate(0.9, kEta), 0);
    }
}

TEST_F(RatingTest, APlausibleRangeStandsAboveTheRatedData)
{
    App().MachineI.record.U = 200000;
    App().MachineI.record.f = 2000;
    App().MachineI.model.Pelec_n = 5e9;
    Rebuild(2);
    EXPECT_EQ(Rate(200000, kU), 3);
    EXPECT_EQ(Rate(2000, kF), 3);
    EXPECT_EQ(Rate(2e9, kP), 3);
    EXPECT_EQ(Rate(-2e9, kP), 3);
}

TEST_F(RatingTest, EfficiencyOfExactly1IsBad)
{
    EXPECT_EQ(Rate(1, kEta), 3);
    EXPECT_EQ(Rate(0.99999999, kEta), 0);
    EXPECT_EQ(Rate(-0.01, kEta), 3);
}

TEST_F(RatingTest, ASpeedAbove6000IsBadEvenIfItIsTheRatedOne)
{
    App().MachineI.record.n = 6500;
    Rebuild(2);
    EXPECT_EQ(Rate(6500, kN), 3);
    EXPECT_EQ(Rate(6000, kN), 0);
}

TEST_F(RatingTest, ANumberThatIsNoQuantityHasNoRating)
{
    for (const int quantity : {-1, -2, -3, -4, 50, 51, 1000, -1000})
        for (const double value : {0.0, 1e300, -1e300})
            EXPECT_EQ(Rate(value, quantity), 0) << quantity;
}

TEST_F(RatingTest, SharesOfTheStallTorqueAndOfRatedValuesDifferInOneThreshold)
{
    EXPECT_EQ(RateStallShare(0), 1);
    EXPECT_EQ(RateStallShare(0.8), 1);
    EXPECT_EQ(RateStallShare(Above(0.8)), 2);
    EXPECT_EQ(RateStallShare(1), 2);
    EXPECT_EQ(RateStallShare(Above(1)), 3);
    EXPECT_EQ(RateRatedShare(0), 1);
    EXPECT_EQ(RateRatedShare(Above(0.8)), 1);
    EXPECT_EQ(RateRatedShare(0.85), 1);
    EXPECT_EQ(RateRatedShare(Above(0.85)), 2);
    EXPECT_EQ(RateRatedShare(1), 2);
    EXPECT_EQ(RateRatedShare(Above(1)), 3);
}

TEST_F(RatingTest, RateValue_GivesTheColourAndKeepsTheWordWhenAsked)
{
    struct Case
    {
        double share;
        qint32 colour;
        const char* word;
    };
    for (const auto& [share, colour, word] :
         {Case{0.8, 49152, "gut"}, Case{0.9, 40443, "mittel"}, Case{1.1, 192, "schlecht"}}) {
        EXPECT_EQ(RateValue(share, -1, RatingMode::Mmax, true), colour);
        EXPECT_EQ(App().sRatingWord, word);
        EXPECT_EQ(RateValue(share, -1, RatingMode::Extrem, true), colour);
        EXPECT_EQ(App().sRatingWord, word);
        EXPECT_EQ(RateValue(share, -1, RatingMode::None, false), 0);
        EXPECT_EQ(App().sRatingWord, word) << "nobody asked for another one";
        EXPECT_EQ(RateValue(share, -1, RatingMode::None, true), 0);
        EXPECT_EQ(App().sRatingWord, "-");
    }
}

TEST_F(RatingTest, OnlyQuantitiesOfAMachineRaiseTheWorstRating)
{
    RateValue(0, 0, RatingMode::Set, false);
    EXPECT_EQ(App().iRowWorstRating, 0);
    RateValue(7, -1, RatingMode::Mmax, true);
    RateValue(7, -1, RatingMode::Extrem, true);
    RateValue(7, kU, RatingMode::None, true);
    EXPECT_EQ(App().iRowWorstRating, 0);
    RateValue(365, kU, RatingMode::MachineI, false);
    EXPECT_EQ(App().iRowWorstRating, 2);
    RateValue(400, kU, RatingMode::MachineI, false);
    EXPECT_EQ(App().iRowWorstRating, 2) << "it is never lowered";
    RateValue(-1, kI, RatingMode::MachineI, false);
    EXPECT_EQ(App().iRowWorstRating, 3);
    RateValue(0, 0, RatingMode::Set, false);
    EXPECT_EQ(App().iRowWorstRating, 0);
}

TEST_F(RatingTest, TheMachineOfTheSimulationJudgesByItsOwnData)
{
    App().MachineII.record = App().MachineI.record;
    App().MachineII.record.U = 500;
    RateValue(0, 0, RatingMode::Set, false);
    EXPECT_EQ(RateValue(500, kU, RatingMode::MachineII, true), 49152);
    EXPECT_EQ(App().iRowWorstRating, 1);
    EXPECT_EQ(RateValue(500, kU, RatingMode::MachineI, true), 192);
    EXPECT_EQ(App().iRowWorstRating, 3);
}

TEST_F(RatingTest, WhatIsCalculatedOfTheSecondMachineComesFromItsOwnRecord)
{
    MachineRecord& machine = App().MachineII.record;
    machine = App().MachineI.record;
    machine.cosphi = 0.5;
    machine.Mkipp_Mn = 3;
    const double Pel = std::sqrt(3) * 400 * 100 * 0.5;
    EXPECT_DOUBLE_EQ(RatedDataOf(WhichMachine::II).Pel, Pel);
    EXPECT_EQ(RatedDataOf(WhichMachine::II).Mkipp, 300);
    EXPECT_DOUBLE_EQ(RatedDataOf(WhichMachine::II).Pth().value_or(0), Pel - 10000);
    EXPECT_EQ(RateValue(Pel - 1, kP, RatingMode::MachineII, false), 49152);
    EXPECT_EQ(RateValue(Pel + 1, kP, RatingMode::MachineII, false), 40443);
    machine.Pmech = -10000; // of a generator both powers are negative
    EXPECT_DOUBLE_EQ(RatedDataOf(WhichMachine::II).Pel, -Pel);
    EXPECT_DOUBLE_EQ(RatedDataOf(WhichMachine::II).Pth().value_or(0), Pel - 10000);
    machine.Mkipp_Mn.reset();
    EXPECT_FALSE(RatedDataOf(WhichMachine::II).Mkipp.has_value());
}

TEST_F(RatingTest, RateRow_TakesTheWorstOfSevenValuesAndNotTheCurrent)
{
    const std::vector<int> rated{kU, kF, kM, kP, kN, kPmech, kEta};
    EXPECT_EQ(std::vector<int>(RatedQuantities().begin(), RatedQuantities().end()), rated);
    tValueRow good;
    good.dU[kSum] = 400;
    good.df = 50;
    good.dP[kSum] = 9000;
    good.dn = 1490;
    good.dM = 50;
    good.dPmech = 8000;
    good.deta = 0.9;
    good.dI[kSum] = -1;
    good.dCosPhi[kSum] = 5;
    EXPECT_EQ(rater->RateRow(good), 1);
    struct Case
    {
        double tValueRow::*field;
        double value;
    };
    for (const auto& [field, value] : {Case{&tValueRow::df, 60}, Case{&tValueRow::dM, 10001}, Case{&tValueRow::dn, -1},
                                       Case{&tValueRow::dPmech, 2e9}, Case{&tValueRow::deta, 1}}) {
        tValueRow bad = good;
        bad.*field = value;
        EXPECT_EQ(rater->RateRow(bad), 3);
        EXPECT_EQ(RateRow(bad, RatingMode::MachineI), 3);
        EXPECT_EQ(App().iRowWorstRating, 3);
        EXPECT_EQ(RateRow(good, RatingMode::MachineI), 1) << "each row begins anew";
    }
    tValueRow medium = good;
    medium.dP[kSum] = -13000;
    EXPECT_EQ(rater->RateRow(medium), 2);
    EXPECT_EQ(RateRow(medium, RatingMode::Extrem), 0) << "a mode that takes no quantity";
}

} // namespace
} // namespace korvanel::test
