// The application block after start-up, and the small operations on it.
#include "core/Common.h"

#include "core/LocalFormats.h"
#include "support/Fixture.h"

namespace korvanel::test {

namespace {

class CommonTest : public ::testing::Test
{
protected:
    CommonTest() { App() = ApplicationBlock(); }
    ~CommonTest() override { App() = ApplicationBlock(); }
};

} // namespace

TEST_F(CommonTest, StartUp_HasNoProjectAndNoPage)
{
    InitialiseApplicationBlock("/opt/korvanel");
    EXPECT_FALSE(App().bProjectOpen);
    EXPECT_FALSE(App().bProjectDirty);
    EXPECT_EQ(App().iCurrentPage, 0);
    EXPECT_FALSE(App().bFileError);
    EXPECT_EQ(App().iExitAction, 0);
    EXPECT_EQ(App().sProjectPath, "");
    EXPECT_EQ(App().iSetCount, 0);
    EXPECT_EQ(App().iCurrentSet, 1);
}

TEST_F(CommonTest, StartUp_SetsEachFieldThatItOwnsWhateverStoodThere)
{
    App().bProjectOpen = true;
    App().bProjectDirty = true;
    App().iCurrentPage = 6;
    App().bFileError = true;
    App().iExitAction = kExitRestartWanted;
    App().iCurrentSet = 17;
    App().iFileErrors = 3;
    App().iGraceLeft = 0;
    App().bEvaluated = 1;
    InitialiseApplicationBlock("/opt/korvanel");
    EXPECT_FALSE(App().bProjectOpen);
    EXPECT_FALSE(App().bProjectDirty);
    EXPECT_EQ(App().iCurrentPage, 0);
    EXPECT_FALSE(App().bFileError);
    EXPECT_EQ(App().iExitAction, 0);
    EXPECT_EQ(App().iCurrentSet, 1);
    EXPECT_EQ(App().iFileErrors, 0);
    EXPECT_EQ(App().iGraceLeft, 5);
    EXPECT_EQ(App().bEvaluated, 0);
}

TEST_F(CommonTest, StartUp_NamesPathsFromTheExecutablesDirectory)
{
    InitialiseApplicationBlock("/opt/korvanel");
    EXPECT_EQ(App().sProgramDir, "/opt/korvanel");
    EXPECT_EQ(App().sDefaultProjectFile, "PROJECT1.KVL");
    EXPECT_EQ(App().sProjectLabel, QString("/opt/korvanel") + QDir::separator() + "PROJECTS");
}

TEST_F(CommonTest, StartUp_DropsOneTrailingSeparatorOfTheProgramDirectory)
{
    InitialiseApplicationBlock("C:\\");
    EXPECT_EQ(App().sProgramDir, "C:");
    InitialiseApplicationBlock("/opt/korvanel/");
    EXPECT_EQ(App().sProgramDir, "/opt/korvanel");
    EXPECT_EQ(App().sProjectLabel, QString("/opt/korvanel") + QDir::separator() + "PROJECTS");
}

TEST_F(CommonTest, StartUp_SetsGridRowsAndProgressThreshold)
{
    InitialiseApplicationBlock("/opt/korvanel");
    EXPECT_EQ(App().iGridRows, (std::array<qint32, 7>{5, 5, 16, 5, 17, 7, 100}));
    EXPECT_EQ(App().iProgressThreshold(), 100);
}

TEST_F(CommonTest, StartUp_AllowsFiveInvalidSamplesAndNoErrors)
{
    InitialiseApplicationBlock("/opt/korvanel");
    EXPECT_EQ(App().iFileErrors, 0);
    EXPECT_EQ(App().iGraceLeft, 5);
    EXPECT_EQ(App().bEvaluated, 0);
}

TEST_F(CommonTest, StartUp_LeavesTheConstantsAtZeroUntilAProjectIsSetUp)
{
    InitialiseApplicationBlock("/opt/korvanel");
    EXPECT_EQ(App().PI, 0);
    EXPECT_EQ(App().E, 0);
    EXPECT_EQ(App().SQRT3, 0);
    EXPECT_EQ(App().LN10, 0);
}

TEST_F(CommonTest, StartUp_SetsMethodLettersAndSuitabilityColours)
{
    InitialiseApplicationBlock("/opt/korvanel");
    EXPECT_EQ(App().MethodLetter, (std::array<QString, 2>{"V", "P"}));
    EXPECT_EQ(App().SuitabilityColour, (std::array<QString, 4>{"0", "49152", "40443", "192"}));
}

TEST_F(CommonTest, StartUp_TakesTheDecimalCharactersOfTheSystem)
{
    App().DecimalChar = u'?';
    App().OtherDecimalChar = u'?';
    InitialiseApplicationBlock("/opt/korvanel");
    EXPECT_EQ(App().DecimalChar, u',') << "without a locale the German one counts";
    EXPECT_EQ(App().OtherDecimalChar, u'.');
}

TEST_F(CommonTest, StartUp_KeepsTheObjectsOfOtherRooms)
{
    FixedClock clock;
    App().TheClock = &clock;
    InitialiseApplicationBlock("/opt/korvanel");
    EXPECT_EQ(App().TheClock, &clock);
}

TEST_F(CommonTest, IsAron_OnlyInNetConfigurationOne)
{
    for (qint16 netConf = 0; netConf < kNetConfCount; ++netConf) {
        App().iNetConfIndex = netConf;
        EXPECT_EQ(IsAron(), netConf == 1) << netConf;
    }
}

TEST_F(CommonTest, HasMachine_OnlyInNetConfigurationsTwoAndFive)
{
    for (int netConf = 0; netConf < kNetConfCount; ++netConf)
        EXPECT_EQ(HasMachine(netConf), netConf == 2 || netConf == 5) << netConf;
}

TEST_F(CommonTest, ResetRowBuffers_EmptiesAllThree)
{
    for (tValueRow* row : {&App().CurrentRow, static_cast<tValueRow*>(&App().MeasuredRow), &App().SimulatedRow}) {
        row->dU = {230, 231, 229, 230};
        row->dI[kNeutral] = 0.5;
        row->dM = 12;
        row->sMethod = "V";
        row->dWqMinusRel = -7;
        row->bEdit = 255;
    }
    App().MeasuredRow.sValidMask = "NENN";
    App().MeasuredRow.lSet = 9;
    ResetRowBuffers();
    for (const tValueRow* row : {&App().CurrentRow, static_cast<tValueRow*>(&App().MeasuredRow), &App().SimulatedRow}) {
        EXPECT_EQ(row->dU, (std::array<double, 4>{}));
        EXPECT_EQ(row->dI[kNeutral], 0);
        EXPECT_EQ(row->dM, 0);
        EXPECT_EQ(row->sMethod, "");
        EXPECT_EQ(row->dWqMinusRel, 0);
        EXPECT_EQ(row->bEdit, 0);
    }
    EXPECT_EQ(App().MeasuredRow.sValidMask, "NNNN");
    EXPECT_EQ(App().MeasuredRow.lSet, 0);
}

} // namespace korvanel::test
