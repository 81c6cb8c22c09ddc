#include "motors/ModelListing.h"

#include "support/Fixture.h"

namespace korvanel::test {
namespace {

/// Every value differs, so that no line can stand for another.
constexpr MachineModel kModel{.Pelec_n = 20437.7146,
                              .n_syn_n = 1500,
                              .phi_n = 26.10359,
                              .Nennschlupf = 0.025,
                              .Kippschlupf = 0.1197822,
                              .Kippmoment = 301.98631,
                              .Mreib_rech = 1.5,
                              .cosphi_o = 0.085,
                              .phi_o = 85.1239751,
                              .n_syn_o = 1490.25,
                              .Po_rech = 647.8,
                              .Po_regress = 1507.5284,
                              .Po_polynom = 1017.3467,
                              .Po_RZM = 210,
                              .Po_D_n = 200,
                              .Po_Y_n = -220,
                              .Po_D_o = 530,
                              .Po_Y_o = 540,
                              .M_RZM_D_n = 122.5,
                              .M_RZM_Y_n = 112.25,
                              .M_RZM_D_o = 3.75,
                              .M_RZM_Y_o = 3.125,
                              .Mreib_D_n = 1.7055,
                              .Mreib_Y_n = -8.5445,
                              .k_RZM = 0.95,
                              .Tth_ICL = 3617.0188,
                              .R2 = 1.32456,
                              .Rs_rech = 0.56,
                              .Rs_polynom = 0.327039,
                              .k_maschine = 0.0681759};

const QStringList kFriction{"Mreib rech = 1,5 Nm"};
const QStringList kRating{"Pelec n = 20,438 kW",
                          "n syn n = 1500 rpm",
                          "phi n = 26,104 °",
                          "Nennschlupf = 2,5 %",
                          "---",
                          "Po regress = 1,508 kW",
                          "Po polynom = 1,017 kW",
                          "Po RZM = 0,21 kW",
                          "Po rech = 0,648 kW",
                          "---",
                          "M RZM D n = 122,5 Nm",
                          "M RZM Y n = 112,25 Nm",
                          "Mreib D n = 1,706 Nm",
                          "Mreib Y n = -8,544 Nm",
                          "Po D n = 0,2 kW",
                          "Po Y n = -0,22 kW",
                          "---",
                          "k maschine = 0,068",
                          "R2 = 1,325",
                          "Rs polynom = 0,327 Ohm",
                          "Rs rech = 0,56 Ohm"};
const QStringList kStall{"---", "Kippschlupf = 11,978 %", "Kippmoment = 301,986 Nm"};
const QStringList kThermal{"---", "Tth ICL = 60,284 min"};
const QStringList kNoLoad{"---",
                          "cosphi o = 0,085",
                          "phi o = 85,124 °",
                          "n syn o = 1490,25 rpm",
                          "---",
                          "M RZM D o = 3,75 Nm",
                          "M RZM Y o = 3,125 Nm",
                          "Po D o = 0,53 kW",
                          "Po Y o = 0,54 kW"};
const QStringList kConnection{"---", "k RZM = 0,95"};

class ModelListingTest : public BlockTest
{
protected:
    static QStringList Listing(std::initializer_list<MachineKnowledge> known)
    {
        MachineStatus status{};
        for (const MachineKnowledge piece : known)
            status[piece] = true;
        return ModelListing(status, kModel);
    }
};

TEST_F(ModelListingTest, ListsEverythingThatFollowsLineByLine)
{
    EXPECT_EQ(
        Listing({kRatingKnown, kNoLoadKnown, kConnectionKnown, kStallRatioKnown, kInsulationClassKnown, kMassKnown}),
        kFriction + kRating + kStall + kThermal + kNoLoad + kConnection);
}

TEST_F(ModelListingTest, ListsOnlyWhatFollowsFromWhatIsKnown)
{
    EXPECT_EQ(Listing({}), kFriction);
    EXPECT_EQ(Listing({kRatingKnown}), kFriction + kRating);
    EXPECT_EQ(Listing({kStallRatioKnown}), kFriction + kStall);
    EXPECT_EQ(Listing({kInsulationClassKnown, kMassKnown}), kFriction + kThermal);
    EXPECT_EQ(Listing({kInsulationClassKnown}), kFriction) << "the class alone gives no time constant";
    EXPECT_EQ(Listing({kMassKnown}), kFriction);
    EXPECT_EQ(Listing({kNoLoadKnown}), kFriction + kNoLoad);
    EXPECT_EQ(Listing({kConnectionKnown}), kFriction + kConnection);
    EXPECT_EQ(Listing({kPolePairsKnown, kRsKnown, kTimeConstantKnown}), kFriction);
}

} // namespace
} // namespace korvanel::test
