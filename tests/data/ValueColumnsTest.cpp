#include "data/ValueColumns.h"

#include "support/ProjectFixture.h"

#include <set>

namespace korvanel::test {
namespace {

struct Layout
{
    int netConf;
    const char* sampled;
    const char* computed;
};

constexpr const char* kPhases = "Set,Time,U sum,U 1,U 2,U 3,I sum,I 1,I 2,I 3,I N,f sum,P sum,P 1,P 2,P 3,"
                                "phi sum,phi 1,phi 2,phi 3,Q sum,Q 1,Q 2,Q 3,S sum,S 1,S 2,S 3,"
                                "cosphi sum,cosphi 1,cosphi 2,cosphi 3,"
                                "Wp abs,Wp+ abs,Wp- abs,Wq abs,Wq+ abs,Wq- abs,t,Edit";
constexpr const char* kSums = "Set,Time,U sum,I sum,f sum,P sum,phi sum,t,Edit";
constexpr const char* kEnergies = "Set,Q sum,S sum,cosphi sum,Wp,Wp+,Wp-,Wq";
constexpr const char* kRelative = "Set,Wp rel,Wp+ rel,Wp- rel,Wq rel,Wq+ rel,Wq- rel";

const Layout kLayouts[] = {
    {0, kSums, kEnergies},
    {1, kSums, kEnergies},
    {2, kSums, "Set,Q sum,S sum,cosphi sum,Wp,Wp+,Wp-,Wq,n,M,Pmech,eta,Method"},
    {3,
     "Set,Time,U sum,I sum,I N,f sum,P sum,phi sum,Q sum,S sum,cosphi sum,"
     "Wp abs,Wp+ abs,Wp- abs,Wq abs,Wq+ abs,Wq- abs,t,Edit",
     kRelative},
    {4, kPhases, kRelative},
    {5, kPhases, "Set,Wp rel,Wp+ rel,Wp- rel,Wq rel,Wq+ rel,Wq- rel,n,M,Pmech,eta,Method"},
    {6, "Set,Time,U sum,U 1,U 2,U 3,f sum,t,Edit", "Set"},
};

class ValueColumnsOfConfiguration : public ProjectTest, public ::testing::WithParamInterface<Layout>
{
};

TEST_P(ValueColumnsOfConfiguration, FileHasExactlyTheColumnsInTheirOrder)
{
    CreateProject(GetParam().netConf);
    EXPECT_EQ(ColumnNames("SampledValues"), QLatin1String(GetParam().sampled));
    EXPECT_EQ(ColumnNames("ComputedValues"), QLatin1String(GetParam().computed));
}

TEST_P(ValueColumnsOfConfiguration, NoColumnStandsInBothTablesButTheSet)
{
    std::set<std::string> names;
    for (const ValueTable table : {ValueTable::Sampled, ValueTable::Computed}) {
        for (const ValueColumn* column : ColumnsOf(table, GetParam().netConf)) {
            if (column->type != ColumnType::Key) {
                EXPECT_TRUE(names.insert(column->name).second) << column->name;
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(All, ValueColumnsOfConfiguration, ::testing::ValuesIn(kLayouts),
                         [](const auto& layout) { return "Configuration" + std::to_string(layout.param.netConf); });

TEST_F(ProjectTest, SetIsTheRowIdSoThatNoSecondIndexExists)
{
    CreateProject(2);
    EXPECT_EQ(Query("SELECT count(*) FROM sqlite_schema WHERE type='index' AND tbl_name IN "
                    "('SampledValues','ComputedValues')"),
              "0");
    Execute("INSERT INTO SampledValues ([Set]) VALUES (41)");
    EXPECT_EQ(Query("SELECT rowid FROM SampledValues"), "41");
}

TEST_F(ProjectTest, StorageTypesFollowTheMeaningOfTheColumns)
{
    CreateProject(2);
    EXPECT_EQ(Query("SELECT group_concat(type, ',') FROM pragma_table_info('SampledValues')"),
              "INTEGER,TEXT,REAL,REAL,REAL,REAL,REAL,INTEGER,INTEGER");
    EXPECT_EQ(Query("SELECT type FROM pragma_table_info('ComputedValues') WHERE name='Method'"), "TEXT");
}

} // namespace
} // namespace korvanel::test
