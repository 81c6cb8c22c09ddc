// Paths with either separator, extensions, and the copy of a whole file.
#include "core/Paths.h"

#include "support/Fixture.h"

namespace korvanel::test {

namespace {

class PathsTest : public BlockTest
{
};

} // namespace

TEST_F(PathsTest, JoinPath_PutsExactlyOneSeparatorBetween)
{
    struct Case
    {
        const char* directory;
        const char* name;
    };
    const Case backslashes[] = {{"C:\\K", "P"},     {"C:\\K\\", "P"},       {"C:\\K", "\\P"},
                                {"C:\\K\\", "\\P"}, {"C:\\K\\\\", "\\\\P"}, {"C:\\K/", "/P"}};
    for (const Case& c : backslashes)
        EXPECT_EQ(JoinPath(c.directory, c.name, u'\\'), "C:\\K\\P") << c.directory << " + " << c.name;
    const Case slashes[] = {{"/opt/k", "P"},   {"/opt/k/", "P"},    {"/opt/k", "/P"},
                            {"/opt/k/", "/P"}, {"/opt/k//", "//P"}, {"/opt/k\\", "\\P"}};
    for (const Case& c : slashes)
        EXPECT_EQ(JoinPath(c.directory, c.name, u'/'), "/opt/k/P") << c.directory << " + " << c.name;
}

TEST_F(PathsTest, JoinPath_UsesTheSystemsSeparatorByDefault)
{
    EXPECT_EQ(JoinPath("a", "b"), QString("a") + QDir::separator() + "b");
}

TEST_F(PathsTest, JoinPath_OfAnEmptyNameEndsInTheSeparator)
{
    EXPECT_EQ(JoinPath("C:\\K\\PROJECTS", "", u'\\'), "C:\\K\\PROJECTS\\");
    EXPECT_EQ(JoinPath("/k/PROJECTS/", "", u'/'), "/k/PROJECTS/");
}

TEST_F(PathsTest, JoinPath_OfARootKeepsTheRoot)
{
    EXPECT_EQ(JoinPath("/", "PROJECTS", u'/'), "/PROJECTS");
    EXPECT_EQ(JoinPath("C:", "PROJECTS", u'\\'), "C:\\PROJECTS");
}

TEST_F(PathsTest, WithoutTrailingSeparator_RemovesOne)
{
    EXPECT_EQ(WithoutTrailingSeparator("C:\\"), "C:");
    EXPECT_EQ(WithoutTrailingSeparator("/opt/k/"), "/opt/k");
    EXPECT_EQ(WithoutTrailingSeparator("/opt/k"), "/opt/k");
    EXPECT_EQ(WithoutTrailingSeparator("/opt/k//"), "/opt/k/");
    EXPECT_EQ(WithoutTrailingSeparator(""), "");
}

TEST_F(PathsTest, WithoutTrailingSeparator_KeepsTheRoot)
{
    EXPECT_EQ(WithoutTrailingSeparator("/"), "/");
}

TEST_F(PathsTest, FileNameOf_IsWhatStandsBehindTheLastSeparator)
{
    EXPECT_EQ(FileNameOf("C:\\K\\a.MDB"), "a.MDB");
    EXPECT_EQ(FileNameOf("/opt/k/a.MDB"), "a.MDB");
    EXPECT_EQ(FileNameOf("C:\\K/b\\a.MDB"), "a.MDB");
    EXPECT_EQ(FileNameOf("a.MDB"), "a.MDB");
    EXPECT_EQ(FileNameOf("/opt/k/"), "");
    EXPECT_EQ(FileNameOf(""), "");
}

TEST_F(PathsTest, HasExtension_ComparesInCapitals)
{
    EXPECT_TRUE(HasExtension("a.MDB", ".MDB"));
    EXPECT_TRUE(HasExtension("a.mdb", ".MDB"));
    EXPECT_TRUE(HasExtension("a.kvl", ".KVL"));
    EXPECT_FALSE(HasExtension("a.mdb.bak", ".MDB"));
    EXPECT_FALSE(HasExtension("aMDB", ".MDB"));
    EXPECT_FALSE(HasExtension("", ".MDB"));
}

TEST_F(PathsTest, WithExtension_AddsItOnlyWhereItIsMissing)
{
    EXPECT_EQ(WithExtension("a", ".MDB"), "a.MDB");
    EXPECT_EQ(WithExtension("a.mdb", ".MDB"), "a.mdb");
    EXPECT_EQ(WithExtension("a.txt", ".MDB"), "a.txt.MDB");
}

TEST_F(PathsTest, CopyFileReplacing_CopiesTheWholeContent)
{
    const QByteArray content = QByteArray(3'000'000, 'x') + QByteArray("\0\r\n", 3);
    WriteContent("von.MDB", content);
    EXPECT_EQ(CopyFileReplacing(PathOf("von.MDB"), PathOf("nach.MDB")), "");
    EXPECT_EQ(ContentOf("nach.MDB"), content);
    EXPECT_EQ(ContentOf("von.MDB"), content);
}

TEST_F(PathsTest, CopyFileReplacing_ReplacesALongerFile)
{
    WriteContent("von.MDB", "neu");
    WriteContent("nach.MDB", "alt und länger");
    EXPECT_EQ(CopyFileReplacing(PathOf("von.MDB"), PathOf("nach.MDB")), "");
    EXPECT_EQ(ContentOf("nach.MDB"), "neu");
}

TEST_F(PathsTest, CopyFileReplacing_CopiesAnEmptyFile)
{
    WriteContent("von.MDB", "");
    EXPECT_EQ(CopyFileReplacing(PathOf("von.MDB"), PathOf("nach.MDB")), "");
    EXPECT_EQ(ContentOf("nach.MDB"), "");
}

TEST_F(PathsTest, CopyFileReplacing_OntoItselfKeepsTheContent)
{
    WriteContent("von.MDB", "inhalt");
    CopyFileReplacing(PathOf("von.MDB"), PathOf("von.MDB"));
    EXPECT_EQ(ContentOf("von.MDB"), "inhalt");
}

TEST_F(PathsTest, CopyFileReplacing_FailureGivesAReasonAndKeepsTheTarget)
{
    WriteContent("nach.MDB", "alt");
    EXPECT_NE(CopyFileReplacing(PathOf("fehlt.MDB"), PathOf("nach.MDB")), "");
    EXPECT_EQ(ContentOf("nach.MDB"), "alt");
}

TEST_F(PathsTest, CopyFileReplacing_IntoAMissingDirectoryGivesAReason)
{
    WriteContent("von.MDB", "neu");
    EXPECT_NE(CopyFileReplacing(PathOf("von.MDB"), PathOf("fehlt/nach.MDB")), "");
    EXPECT_FALSE(QFile::exists(PathOf("fehlt/nach.MDB")));
}

} // namespace korvanel::test
