// The lists of measured and calculated quantities on the net configuration page.
#include "instruments/QuantityLists.h"

#include "core/Quantities.h"
#include "core/texts/ValueNamesTexts.h"
#include "support/Fixture.h"

#include <stdexcept>

namespace korvanel::test {

namespace {

const QStringList kMeasuredSums{"Spannung - U", "Strom - I", "Frequenz - f", "Wirkleistung - Pel",
                                "Phasenwinkel - Phi*"};
const QStringList kCalculatedSums{"Scheinleistung - S", "Blindleistung - Q",         "Leistungsfaktor - cosphi",
                                  "Wirkarbeit - Wp",    "positive Wirkarbeit - Wp+", "negative Wirkarbeit - Wp-",
                                  "Blindarbeit - Wq"};
const QStringList kMachine{"Umdrehungen - n", "Drehmoment - M", "Maschinenleistung - Pmech", "Wirkungsgrad - eta"};
const QStringList kRecorded{"Scheinleistung - S", "Blindleistung - Q", "Leistungsfaktor - cosphi", "Wirkarbeit - Wp",
                            "Blindarbeit - Wq"};
const QStringList kRelative{"relative positive Wirkarbeit - Wp+ rel", "relative negative Wirkarbeit - Wp- rel",
                            "relative positive Blindarbeit - Wq+ rel", "relative negative Blindarbeit - Wq- rel"};
const QStringList kMeasuredPhases{"Spannung (1,2,3,avg) - U",
                                  "Strom (1,2,3,total) - I",
                                  "Neutralleisterstrom - In",
                                  "Frequenz - f",
                                  "Wirkleistung (1,2,3,total) - Pel",
                                  "Phasenwinkel (1,2,3,avg) - Phi*",
                                  "Scheinleistung (1,2,3,total) - S",
                                  "Blindleistung (1,2,3,total) - Q",
                                  "Leistungsfaktor (1,2,3,avg) - cosphi",
                                  "absolute positive Wirkarbeit - Wp+ abs",
                                  "absolute negative Wirkarbeit - Wp- abs",
                                  "absolute positive Blindarbeit - Wq+ abs",
                                  "absolute negative Blindarbeit - Wq- abs"};

struct Lists
{
    QStringList measured;
    QStringList calculated;
};

const Lists kLists[] = {{kMeasuredSums, kCalculatedSums},
                        {kMeasuredSums, kCalculatedSums},
                        {kMeasuredSums, kMachine + kCalculatedSums},
                        {kMeasuredSums + kRecorded, kRelative},
                        {kMeasuredPhases, kRelative},
                        {kMeasuredPhases, kMachine + kRelative},
                        {{"Spannung (1,2,3,avg) - U", "Frequenz - f"}, {}}};

class QuantityListsTest : public BlockTest
{
};

} // namespace

TEST_F(QuantityListsTest, MeasuredList_OfEachNetConfiguration)
{
    for (int netConf = 0; netConf < kNetConfCount; ++netConf)
        EXPECT_EQ(MeasuredList(netConf), kLists[netConf].measured.join('\n')) << netConf;
}

TEST_F(QuantityListsTest, CalculatedList_OfEachNetConfiguration)
{
    for (int netConf = 0; netConf < kNetConfCount; ++netConf)
        EXPECT_EQ(CalculatedList(netConf), kLists[netConf].calculated.join('\n')) << netConf;
}

TEST_F(QuantityListsTest, CalculatedList_OfTheVoltageMeasurementIsEmpty)
{
    EXPECT_EQ(CalculatedList(6), "");
}

TEST_F(QuantityListsTest, Lists_TakeNamesFromTheTextTableAndKeepTheSymbols)
{
    texts::nameVoltage = "Voltage";
    texts::suffixMean = " (mean)";
    EXPECT_EQ(MeasuredList(6), "Voltage (mean) - U\nFrequenz - f");
}

TEST_F(QuantityListsTest, Lists_OfAnotherIndexAreRefused)
{
    for (const int netConf : {-1, 7}) {
        EXPECT_THROW(MeasuredList(netConf), std::out_of_range) << netConf;
        EXPECT_THROW(CalculatedList(netConf), std::out_of_range) << netConf;
    }
}

} // namespace korvanel::test
