// The schema of the project file as it grows: fresh, older, newer and damaged files, with steps and columns invented
// for the purpose.
#include "project/ProjectSchema.h"

#include "data/SetReader.h"
#include "project/ProjectCommands.h"
#include "support/ProjectFixture.h"
#include "support/StoredRows.h"

#include <QFile>

namespace korvanel::test {
namespace {

constexpr int kNetConf = kNetMachine;

constexpr SchemaStep kGrownSteps[] = {
    {.version = 1},
    {.version = 2, .apply = [](TableDb& db) { db.Execute("CREATE TABLE [Later] ([Name] TEXT)"); }},
    {.version = 3, .apply = [](TableDb& db) { db.Execute("INSERT INTO [Later] VALUES ('third')"); }},
};
constexpr SchemaStep kFailingSteps[] = {
    {.version = 1},
    {.version = 2, .apply = [](TableDb& db) { db.Execute("CREATE TABLE [Later] ([Name] TEXT)"); }},
    {.version = 3, .apply = [](TableDb& db) { db.Execute("INSERT INTO [Nowhere] VALUES (1)"); }},
};
constexpr ConfigMask kOfMachine = ConfigurationsWhere([](const NetConfTraits& net) { return net.hasMachine; });
constexpr ValueColumn kLaterColumns[] = {
    {.name = "T oil", .type = ColumnType::Real, .field = nullptr, .sampled = kOfMachine, .since = 2},
    {.name = "Slip", .type = ColumnType::Real, .field = nullptr, .computed = kOfMachine, .since = 4},
};
const ProjectSchema kGrown{kGrownSteps, kLaterColumns};

class ProjectSchemaTest : public ProjectTest
{
protected:
    void Store(int netConf = kNetConf)
    {
        CreateProject(netConf);
        std::vector<tValueRow> rows(3);
        for (std::size_t i = 0; i < rows.size(); ++i)
            rows[i].dU[kSum] = 400 + static_cast<double>(i);
        StoreRows(rows);
    }
    QString Version() const { return Query("PRAGMA user_version"); }
    void BringUp(int netConf = kNetConf, const ProjectSchema& schema = kGrown)
    {
        const ProjectDbScope scope;
        BringUpProject(ProjectDb(), netConf, schema);
    }
    bool HasTable(const char* name) const
    {
        return Query(QStringLiteral("SELECT count(*) FROM sqlite_schema WHERE name='%1'").arg(QLatin1String(name))) ==
               "1";
    }
};

TEST_F(ProjectSchemaTest, Steps_StandInOrderWithoutAGap)
{
    int version = 0;
    for (const SchemaStep& step : CurrentSchema().steps)
        EXPECT_EQ(step.version, ++version);
}

TEST_F(ProjectSchemaTest, EveryColumn_CameWithAVersionThatThereWas)
{
    for (const ValueColumn& column : CurrentSchema().columns) {
        EXPECT_GE(column.since, 1) << column.name;
        EXPECT_LE(column.since, CurrentSchema().Version()) << column.name;
    }
}

TEST_F(ProjectSchemaTest, Version_IsThatOfTheLastStepOrTheNewestColumn)
{
    EXPECT_EQ(kGrown.Version(), 4);
    EXPECT_EQ((ProjectSchema{kGrownSteps, {}}).Version(), 3);
}

TEST_F(ProjectSchemaTest, FreshFile_HasTheCurrentVersionAndStaysAsItIs)
{
    Store();
    EXPECT_EQ(Version().toInt(), CurrentSchema().Version());
    const ProjectDbScope scope;
    EXPECT_EQ(AgeOfSchema(ProjectDb()), SchemaAge::Current);
    BringUpProject(ProjectDb(), kNetConf);
    EXPECT_EQ(ProjectDb().SchemaVersion(), CurrentSchema().Version());
}

TEST_F(ProjectSchemaTest, OlderFile_TakesEveryStepAndColumnAndKeepsItsSets)
{
    Store();
    BringUp();
    EXPECT_EQ(Version(), "4");
    EXPECT_EQ(Query("SELECT Name FROM Later"), "third");
    EXPECT_TRUE(ColumnNames("SampledValues").endsWith(",T oil")) << ColumnNames("SampledValues").toStdString();
    EXPECT_TRUE(ColumnNames("ComputedValues").endsWith(",Slip"));
    EXPECT_EQ(Query("SELECT [T oil] FROM SampledValues WHERE [Set]=2"), "null");
    EXPECT_EQ(Query("SELECT group_concat([U sum], ' ') FROM SampledValues"), "400.0 401.0 402.0");
}

TEST_F(ProjectSchemaTest, Columns_GoWhereTheNetConfigurationHasThem)
{
    Store(kNetSinglePhase);
    BringUp(kNetSinglePhase);
    EXPECT_EQ(Version(), "4");
    EXPECT_FALSE(ColumnNames("SampledValues").contains("T oil"));
}

TEST_F(ProjectSchemaTest, FileWithoutAVersion_IsBroughtUpFromTheBeginning)
{
    Store();
    Execute("PRAGMA user_version=0");
    BringUp();
    EXPECT_EQ(Version(), "4");
    EXPECT_TRUE(HasTable("Later"));
}

TEST_F(ProjectSchemaTest, FileHalfwayUp_TakesWhatIsMissing)
{
    Store();
    Execute("PRAGMA user_version=2; CREATE TABLE Later (Name TEXT); ALTER TABLE SampledValues ADD COLUMN [T oil] REAL");
    BringUp();
    EXPECT_EQ(Version(), "4");
    EXPECT_EQ(Query("SELECT Name FROM Later"), "third");
}

TEST_F(ProjectSchemaTest, AStepThatFails_TakesAllOfThemBack)
{
    Store();
    EXPECT_THROW(BringUp(kNetConf, {kFailingSteps, {}}), DbError);
    EXPECT_EQ(Version(), "1");
    EXPECT_FALSE(HasTable("Later"));
}

TEST_F(ProjectSchemaTest, NewerFile_IsKnownAsSuchAndLeftAlone)
{
    Store();
    Execute("PRAGMA user_version=9");
    const ProjectDbScope scope;
    EXPECT_EQ(AgeOfSchema(ProjectDb(), kGrown), SchemaAge::Newer);
    BringUpProject(ProjectDb(), kNetConf, kGrown);
    EXPECT_EQ(ProjectDb().SchemaVersion(), 9);
}

TEST_F(ProjectSchemaTest, ImpossibleVersion_IsRefused)
{
    Store();
    Execute("PRAGMA user_version=-3");
    const ProjectDbScope scope;
    EXPECT_THROW(AgeOfSchema(ProjectDb()), DbError);
}

// What was written yesterday is read today: from the menu, with the file as the version before has left it.

TEST_F(ProjectSchemaTest, ProjectOfTheFirstVersion_OpensWithItsSets)
{
    Store();
    Execute("PRAGMA user_version=1");
    App().bProjectOpen = false;
    shell.boxes.clear();
    OpenRecentProject(App().sProjectPath);
    EXPECT_TRUE(App().bProjectOpen);
    EXPECT_EQ(App().iSetCount, 3);
    EXPECT_TRUE(shell.boxes.empty());
    EXPECT_EQ(Version().toInt(), CurrentSchema().Version());
}

TEST_F(ProjectSchemaTest, DamagedVersion_IsABadFormatAndTheFileIsNotTouched)
{
    Store();
    Execute("PRAGMA user_version=-3");
    QFile file(App().sProjectPath);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray before = file.readAll();
    App().bProjectOpen = false;
    shell.boxes.clear();
    OpenRecentProject(App().sProjectPath);
    EXPECT_FALSE(App().bProjectOpen);
    ASSERT_EQ(shell.boxes.size(), 1U);
    EXPECT_TRUE(shell.boxes[0].text.startsWith("Ungültiges Dateiformat")) << shell.boxes[0].text.toStdString();
    file.seek(0);
    EXPECT_EQ(file.readAll(), before);
}

/// A write-protected file can't be brought up; its readers do without what it lacks.
TEST_F(ProjectSchemaTest, AColumnOfALaterVersion_ReadsAsNullWhereTheFileLacksIt)
{
    Store();
    const ProjectDbScope scope;
    const ValueColumn& oil = kLaterColumns[0];
    EXPECT_EQ(ReadName(ProjectDb(), oil, kNetConf, SetSource::Measured), "NULL");
    ProjectDb().Execute(AddStatement(ValueTable::Sampled, oil));
    EXPECT_EQ(ReadName(ProjectDb(), oil, kNetConf, SetSource::Measured), "[SampledValues].[T oil]");
    EXPECT_EQ(ReadName(ProjectDb(), ValueColumns()[2], kNetConf, SetSource::Measured), "[SampledValues].[U sum]");
    const ValueColumn ofTheFirst{.name = "Gone", .sampled = kOfMachine};
    EXPECT_EQ(ReadName(ProjectDb(), ofTheFirst, kNetConf, SetSource::Measured), "[SampledValues].[Gone]")
        << "what was always there is missed";
}

} // namespace
} // namespace korvanel::test
