// The rules between the texts of the machine page and a record. Expected numbers are those of the rules themselves.
#include "motors/MachineEntry.h"

#include "support/Fixture.h"

namespace korvanel::test {
namespace {

class MachineEntryTest : public BlockTest
{
protected:
    static MachineRecord FullRecord()
    {
        MachineRecord record;
        record.Hersteller = QStringLiteral("O'Neill \"Typ; 50 %\"");
        record.Polpaarzahl = 2;
        record.Pmech = 18500;
        record.U = 400;
        record.f = 50;
        record.n = 1462.5;
        record.I = 32.85;
        record.cosphi = 0.898;
        record.M = 120.79;
        record.eta = 0.905;
        record.Po = 650;
        record.Uo = 400;
        record.Io = 11;
        record.fo = 50;
        record.Schaltungsart = QStringLiteral("D");
        record.Rs = 0.56;
        record.Mkipp_Mn = 2.6;
        record.Tth = 1800;
        record.I_CL = QStringLiteral("F");
        record.Masse = 130;
        record.Mreib = true;
        return record;
    }
    static EnteredNumber Enter(std::size_t field, const char* text, bool isGenerator = false)
    {
        return EnterMachineNumber(field, QString::fromUtf8(text), isGenerator);
    }
    /// A record that has something in every member, so that what is cleared is seen.
    static MachineRecord Taken(const MachineEntry& entry)
    {
        MachineRecord record = FullRecord();
        TakeMachineEntry(entry, record);
        return record;
    }
};

bool HasRating(const MachineRecord& r)
{
    return r.Pmech || r.U || r.M || r.n || r.I || r.f || r.cosphi || r.eta;
}

// What is shown of a record.

TEST_F(MachineEntryTest, Shown_InTheUnitsOfThePage)
{
    const MachineEntry entry = EntryOfMachine(FullRecord());
    const std::array<QString, kMachineFieldCount> texts{"18,5", "400", "50", "1462,5", "32,85", "0,898", "0,65",
                                                        "400",  "11",  "50", "0,56",   "2,6",   "30",    "130"};
    EXPECT_EQ(entry.numbers, texts);
    EXPECT_EQ(entry.comment, "O'Neill \"Typ; 50 %\"");
    EXPECT_FALSE(entry.isGenerator);
    for (const bool isKnown : entry.isKnown)
        EXPECT_TRUE(isKnown);
    EXPECT_EQ(entry.polePairs, 2);
    EXPECT_EQ(entry.connection, 1);
    EXPECT_EQ(InsulationClasses()[static_cast<std::size_t>(entry.insulationClass)], std::string("F"));
    EXPECT_TRUE(entry.isFrictionZero);
}

TEST_F(MachineEntryTest, Shown_NullIsEmptyAndNotKnown)
{
    const MachineEntry entry = EntryOfMachine({});
    for (const QString& text : entry.numbers)
        EXPECT_EQ(text, "");
    for (const bool isKnown : entry.isKnown)
        EXPECT_FALSE(isKnown);
    EXPECT_EQ(entry.polePairs, 0);
    EXPECT_EQ(entry.connection, -1);
    EXPECT_EQ(entry.insulationClass, -1);
}

TEST_F(MachineEntryTest, Shown_NegativePowerIsAGenerator)
{
    MachineRecord record = FullRecord();
    record.Pmech = -3000;
    const MachineEntry entry = EntryOfMachine(record);
    EXPECT_TRUE(entry.isGenerator);
    EXPECT_EQ(entry.numbers[kFieldPmech], "-3");
    EXPECT_EQ(entry.numbers[kFieldCosphi], "0,898") << "as it stands in the record";
}

TEST_F(MachineEntryTest, Shown_EmptyTextsCountAsNotKnown)
{
    MachineRecord record = FullRecord();
    record.Schaltungsart = QString();
    record.I_CL = QString();
    const MachineEntry entry = EntryOfMachine(record);
    EXPECT_FALSE(entry.isKnown[kConnectionKnown]);
    EXPECT_FALSE(entry.isKnown[kInsulationClassKnown]);
}

TEST_F(MachineEntryTest, Shown_ANullWithinTheRatingDataIsEmptyThere)
{
    MachineRecord record = FullRecord();
    record.U.reset();
    const MachineEntry entry = EntryOfMachine(record);
    EXPECT_TRUE(entry.isKnown[kRatingKnown]);
    EXPECT_EQ(entry.numbers[kFieldU], "");
    EXPECT_FALSE(HasRating(Taken(entry))) << "which makes the rating data incomplete";
}

TEST_F(MachineEntryTest, Shown_PolePairsThatTheListDoesNotHave)
{
    for (const qint16 pairs : std::initializer_list<qint16>{-3, 0, 11, 32767}) {
        MachineRecord record = FullRecord();
        record.Polpaarzahl = pairs;
        const MachineEntry entry = EntryOfMachine(record);
        EXPECT_EQ(entry.polePairs, 0) << pairs;
        EXPECT_EQ(entry.isKnown[kPolePairsKnown], pairs >= 1) << pairs;
        MachineRecord taken = record;
        TakeMachineEntry(entry, taken);
        EXPECT_EQ(taken.Polpaarzahl, pairs) << "what can't be shown is kept";
    }
}

TEST_F(MachineEntryTest, NewMachine_HasFirstEntriesAndRatingDataToBeKnown)
{
    const MachineEntry entry = NewMachineEntry();
    EXPECT_EQ(entry.polePairs, 1);
    EXPECT_EQ(entry.connection, 0);
    EXPECT_EQ(entry.insulationClass, 0);
    EXPECT_FALSE(entry.isFrictionZero);
    EXPECT_FALSE(entry.isGenerator);
    EXPECT_EQ(entry.comment, "");
    for (int group = 0; group < kKnowledgeCount; ++group)
        EXPECT_EQ(entry.isKnown.at(static_cast<std::size_t>(group)), group == kRatingKnown) << group;
    for (const QString& text : entry.numbers)
        EXPECT_EQ(text, "");
}

// The record from the page.

TEST_F(MachineEntryTest, Taken_InTheUnitsOfTheRecord)
{
    MachineEntry entry = EntryOfMachine(FullRecord());
    entry.numbers = {"22", "690", "60", "1770", "24,5", "0,87", "0,8", "680", "9,5", "60", "0,3", "3", "45", "160"};
    const MachineRecord record = Taken(entry);
    EXPECT_EQ(record.Pmech, 22000);
    EXPECT_EQ(record.U, 690);
    EXPECT_EQ(record.f, 60);
    EXPECT_EQ(record.n, 1770);
    EXPECT_EQ(record.I, 24.5);
    EXPECT_EQ(record.cosphi, 0.87);
    EXPECT_EQ(record.Po, 800);
    EXPECT_EQ(record.Uo, 680);
    EXPECT_EQ(record.Io, 9.5);
    EXPECT_EQ(record.fo, 60);
    EXPECT_EQ(record.Rs, 0.3);
    EXPECT_EQ(record.Mkipp_Mn, 3);
    EXPECT_EQ(record.Tth, 2700);
    EXPECT_EQ(record.Masse, 160);
    EXPECT_EQ(record.M, 120.79) << "left to the model";
    EXPECT_EQ(record.eta, 0.905) << "left to the model";
}

TEST_F(MachineEntryTest, Taken_UncheckedRatingStoresNullsHoweverMuchTheFieldsHold)
{
    MachineEntry entry = EntryOfMachine(FullRecord());
    entry.isKnown[kRatingKnown] = false;
    const MachineRecord record = Taken(entry);
    EXPECT_FALSE(HasRating(record));
    EXPECT_EQ(record.Po, 650) << "the others stay";
}

TEST_F(MachineEntryTest, Taken_OneEmptyRatingFieldMakesAllNull)
{
    for (std::size_t field = kFieldPmech; field <= kFieldCosphi; ++field) {
        for (const char* text : {"", "  ", "abc"}) {
            MachineEntry entry = EntryOfMachine(FullRecord());
            entry.numbers.at(field) = QLatin1String(text);
            EXPECT_FALSE(HasRating(Taken(entry))) << field << text;
        }
    }
}

TEST_F(MachineEntryTest, Taken_OneEmptyNoLoadFieldOrNoCheckMakesAllNull)
{
    for (std::size_t field = kFieldPo; field <= kFieldFo + 1; ++field) {
        MachineEntry entry = EntryOfMachine(FullRecord());
        if (field <= kFieldFo)
            entry.numbers.at(field).clear();
        else
            entry.isKnown[kNoLoadKnown] = false;
        const MachineRecord record = Taken(entry);
        EXPECT_FALSE(record.Po || record.Uo || record.Io || record.fo) << field;
        EXPECT_TRUE(HasRating(record)) << field;
    }
}

TEST_F(MachineEntryTest, Taken_SingleValuesAreNullWithoutTextOrCheck)
{
    const std::pair<std::size_t, std::optional<double> MachineRecord::*> fields[] = {
        {kFieldRs, &MachineRecord::Rs},
        {kFieldStallRatio, &MachineRecord::Mkipp_Mn},
        {kFieldTth, &MachineRecord::Tth},
        {kFieldMass, &MachineRecord::Masse},
    };
    for (const auto& [field, member] : fields) {
        MachineEntry entry = EntryOfMachine(FullRecord());
        entry.numbers.at(field).clear();
        EXPECT_FALSE((Taken(entry).*member).has_value()) << field;
        entry = EntryOfMachine(FullRecord());
        entry.isKnown.at(MachineFieldOf(field).group) = false;
        EXPECT_FALSE((Taken(entry).*member).has_value()) << field;
    }
}

TEST_F(MachineEntryTest, Taken_PolePairsStayUnlessTheyAreKnown)
{
    MachineEntry entry = EntryOfMachine(FullRecord());
    entry.polePairs = 4;
    EXPECT_EQ(Taken(entry).Polpaarzahl, 4);
    entry.isKnown[kPolePairsKnown] = false;
    EXPECT_EQ(Taken(entry).Polpaarzahl, 2) << "the previous value stays";
}

TEST_F(MachineEntryTest, Taken_ConnectionIsTheStarForTheFirstEntryAndDeltaElse)
{
    MachineEntry entry = EntryOfMachine(FullRecord());
    entry.connection = 0;
    EXPECT_EQ(Taken(entry).Schaltungsart, QStringLiteral("Y"));
    entry.connection = 1;
    EXPECT_EQ(Taken(entry).Schaltungsart, QStringLiteral("D"));
    entry.isKnown[kConnectionKnown] = false;
    EXPECT_FALSE(Taken(entry).Schaltungsart.has_value());
}

TEST_F(MachineEntryTest, Taken_InsulationClassIsTheListTextOrNull)
{
    MachineEntry entry = EntryOfMachine(FullRecord());
    const char* classes[] = {"A", "B", "F", "H"};
    for (int i = 0; i < 4; ++i) {
        entry.insulationClass = i;
        EXPECT_EQ(Taken(entry).I_CL, QString(classes[i]));
    }
    entry.isKnown[kInsulationClassKnown] = false;
    EXPECT_FALSE(Taken(entry).I_CL.has_value());
}

TEST_F(MachineEntryTest, Taken_AClassThatTheListDoesNotHaveIsKept)
{
    MachineRecord record = FullRecord();
    record.I_CL = QStringLiteral("C");
    const MachineEntry entry = EntryOfMachine(record);
    EXPECT_TRUE(entry.isKnown[kInsulationClassKnown]);
    TakeMachineEntry(entry, record);
    EXPECT_EQ(record.I_CL, QStringLiteral("C"));
}

TEST_F(MachineEntryTest, Taken_RemarkAndFrictionGoOver)
{
    MachineEntry entry = EntryOfMachine(FullRecord());
    entry.comment = QStringLiteral("neu");
    entry.isFrictionZero = false;
    EXPECT_EQ(Taken(entry).Hersteller, "neu");
    EXPECT_FALSE(Taken(entry).Mreib);
}

TEST_F(MachineEntryTest, Taken_AnUntouchedNumberKeepsAllItsDigits)
{
    MachineRecord record = FullRecord();
    record.Pmech = 18500.000000000004;
    record.Rs = 1.0 / 3;
    record.Tth = 100;
    const MachineRecord before = record;
    TakeMachineEntry(EntryOfMachine(record), record);
    EXPECT_EQ(record.Pmech, before.Pmech);
    EXPECT_EQ(record.Rs, before.Rs);
    EXPECT_EQ(record.Tth, before.Tth);
}

TEST_F(MachineEntryTest, HasMachineData_IsFalseForANewProjectOnly)
{
    EXPECT_FALSE(HasMachineData({}));
    EXPECT_TRUE(HasMachineData(FullRecord()));
    MachineRecord record;
    record.Polpaarzahl = 2;
    EXPECT_TRUE(HasMachineData(record));
    record = {};
    record.Masse = 1;
    EXPECT_TRUE(HasMachineData(record));
}

// Numbers as they are typed.

TEST_F(MachineEntryTest, Entered_WhatIsNoNumberAndZeroEmptiesTheField)
{
    for (const char* text : {"", "   ", "abc", "0", "0,000", "-0", "1,2,3", "12 V", "0x10", "inf", "nan", "1e999",
                             "1.2.3", "\xE2\x82\xAC", "--1", "1e", "'; DROP TABLE Motor"}) {
        for (std::size_t field = 0; field < kMachineFieldCount; ++field) {
            const EnteredNumber entered = Enter(field, text);
            EXPECT_TRUE(entered.isAccepted) << text;
            EXPECT_EQ(entered.text, "") << field << text;
        }
    }
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(MachineEntryTest, Entered_IsTrimmedAndTakesEitherDecimalCharacter)
{
    EXPECT_EQ(Enter(kFieldU, "  400 ").text, "400");
    EXPECT_EQ(Enter(kFieldU, "400.5").text, "400,5");
    EXPECT_EQ(Enter(kFieldU, "400,50").text, "400,50");
}

TEST_F(MachineEntryTest, Entered_LimitsOfEveryField)
{
    struct Limits
    {
        std::size_t field;
        bool isGenerator;
        const char *lowest, *highest, *below, *above; ///< nullptr where nothing can lie beyond
        const char* told;
    };
    const Limits all[] = {
        {kFieldPmech, false, "0,001", "1000000", nullptr, "1000001", "0 und 1000000 "},
        {kFieldPmech, true, "-1000000", "-0,001", "-1000001", nullptr, "-1000000 und 0 "},
        {kFieldU, false, "0,1", "100000", "-1", "100001", "0 und 100000 "},
        {kFieldF, false, "0,1", "1000", "-1", "1000,1", "0 und 1000 "},
        {kFieldN, false, "1", "6000", "-1", "6001", "0 und 6000 "},
        {kFieldI, false, "0,01", "100000", "-1", "100001", "0 und 100000 "},
        {kFieldCosphi, false, "0,01", "1", nullptr, "1,1", "0 und 1 "},
        {kFieldCosphi, true, "-1", "-0,01", "-1,1", nullptr, "-1 und 0 "},
        {kFieldPo, false, "0,001", "1000000", "-1", "1000001", "0 und 1000000 "},
        {kFieldUo, false, "1", "100000", "-1", "100001", "0 und 100000 "},
        {kFieldIo, false, "1", "100000", "-1", "100001", "0 und 100000 "},
        {kFieldFo, false, "1", "1000", "-1", "1001", "0 und 1000 "},
        {kFieldRs, false, "0,001", "1000", "-1", "1001", "0 und 1000 "},
        {kFieldStallRatio, false, "1", "10", "0,99", "10,1", "1 und 10 "},
        {kFieldTth, false, "1", "1000", "-1", "1001", "0 und 1000 "},
        {kFieldMass, false, "1", "100000", "-1", "100001", "0 und 100000 "},
    };
    for (const Limits& limits : all) {
        shell.boxes.clear();
        for (const char* inside : {limits.lowest, limits.highest})
            EXPECT_TRUE(Enter(limits.field, inside, limits.isGenerator).isAccepted) << limits.field << ' ' << inside;
        EXPECT_TRUE(shell.boxes.empty()) << limits.field;
        for (const char* outside : {limits.below, limits.above}) {
            if (!outside)
                continue;
            shell.boxes.clear();
            EXPECT_FALSE(Enter(limits.field, outside, limits.isGenerator).isAccepted) << limits.field << ' ' << outside;
            ASSERT_EQ(shell.boxes.size(), 1U);
            EXPECT_EQ(shell.boxes[0].text,
                      QStringLiteral("Der eingegebene Wert muss sich\nzwischen ") + limits.told + " befinden.");
        }
    }
}

TEST_F(MachineEntryTest, Entered_SignFollowsTheMode)
{
    EXPECT_EQ(Enter(kFieldPmech, "-3").text, "3");
    EXPECT_EQ(Enter(kFieldPmech, "3", true).text, "-3");
    EXPECT_EQ(Enter(kFieldPmech, "-3", true).text, "-3");
    EXPECT_EQ(Enter(kFieldCosphi, "-0,85").text, "0,85");
    EXPECT_EQ(Enter(kFieldCosphi, "0,85", true).text, "-0,85");
    EXPECT_TRUE(shell.boxes.empty());
    EXPECT_FALSE(Enter(kFieldU, "-400", true).isAccepted) << "no other field follows";
}

TEST_F(MachineEntryTest, Entered_CosphiKeepsItsDistanceFromZeroAndOne)
{
    EXPECT_EQ(Enter(kFieldCosphi, "1").text, "0,9999999");
    EXPECT_EQ(Enter(kFieldCosphi, "1", true).text, "-0,9999999");
    EXPECT_EQ(Enter(kFieldCosphi, "0,99999999").text, "0,9999999");
    EXPECT_EQ(Enter(kFieldCosphi, "0,9999998").text, "0,9999998");
    EXPECT_EQ(Enter(kFieldCosphi, "0,00000001").text, "0,0000001");
    EXPECT_EQ(Enter(kFieldCosphi, "0,00000001", true).text, "-0,0000001");
    EXPECT_EQ(Enter(kFieldCosphi, "0,0000002").text, "0,0000002");
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(MachineEntryTest, TextForMode_TurnsTheSignAndLeavesWhatIsNoNumber)
{
    EXPECT_EQ(TextForMode(kFieldPmech, "3,50", true), "-3,5");
    EXPECT_EQ(TextForMode(kFieldPmech, "-3,5", false), "3,5");
    EXPECT_EQ(TextForMode(kFieldPmech, "3,50", false), "3,50") << "nothing to turn";
    EXPECT_EQ(TextForMode(kFieldCosphi, "0.8", true), "-0,8");
    EXPECT_EQ(TextForMode(kFieldPmech, "abc", true), "abc");
    EXPECT_EQ(TextForMode(kFieldPmech, "", true), "");
    EXPECT_EQ(TextForMode(kFieldPmech, "0", true), "0");
    EXPECT_EQ(TextForMode(kFieldU, "400", true), "400");
}

TEST_F(MachineEntryTest, Entered_WithAPointAsDecimalCharacter)
{
    App().DecimalChar = u'.';
    App().OtherDecimalChar = u',';
    EXPECT_EQ(Enter(kFieldPmech, "3,5", true).text, "-3.5");
    EXPECT_EQ(EntryOfMachine(FullRecord()).numbers[kFieldPmech], "18.5");
}

} // namespace
} // namespace korvanel::test
