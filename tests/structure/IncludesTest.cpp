// The rules of the rooms: tried with invented sources, then held against the sources of the program.
#include "structure/Includes.h"
#include "support/TestPaths.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace korvanel::structure {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// Pages that another room includes, and why it may.
const std::vector<PageException> kPagesOfOtherRooms{
    {.page = "core/window/FormH3.h", .reason = "the choice of columns, a dialog of every grid"},
    {.page = "data/FormH15.h", .reason = "the search of a set, a dialog of every list of the sets"},
};

/// Circles that are known. There are none, and none is to come.
const std::vector<std::string> kKnownCircles{};

std::string ReadFile(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

const std::vector<Source>& SourcesOfTheProgram()
{
    static const std::vector<Source> sources = [] {
        const std::filesystem::path root(KORVANEL_SOURCES);
        std::vector<Source> found;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(root))
            if (const std::filesystem::path& path = entry.path();
                path.extension() == ".h" || path.extension() == ".cpp")
                found.push_back({path.lexically_relative(root).generic_string(), ReadFile(path)});
        std::sort(found.begin(), found.end(), [](const Source& a, const Source& b) { return a.name < b.name; });
        return found;
    }();
    return sources;
}

Libraries LibrariesOfTheProgram()
{
    const std::string cmake = ReadFile(std::filesystem::path(KORVANEL_SOURCES) / "CMakeLists.txt");
    Libraries libraries{.engine = SourcesOfLibrary(cmake, "korvanel_engine"),
                        .pages = SourcesOfLibrary(cmake, "korvanel_pages"),
                        .widgetHeaders = {}};
    for (const auto& entry : std::filesystem::directory_iterator(KORVANEL_WIDGET_HEADERS))
        libraries.widgetHeaders.insert(entry.path().filename().string());
    return libraries;
}

void ExpectNone(const Findings& findings)
{
    for (const std::string& finding : findings)
        ADD_FAILURE() << finding;
}

const Libraries kInvented{
    .engine = {"data/Rows.cpp"}, .pages = {"data/Grid.cpp"}, .widgetHeaders = {"QLabel", "QtWidgets"}};

} // namespace

TEST(ReadIncludes, GivesFileLineAndTarget)
{
    const std::vector<Include> includes = ReadIncludes(
        {"data/Rows.cpp", "// Rows.\n#include \"data/Rows.h\"\n\n  #  include <QLabel>  // of the page\r\n"});
    ASSERT_EQ(includes.size(), 2U);
    EXPECT_EQ(includes[0].file, "data/Rows.cpp");
    EXPECT_EQ(includes[0].line, 2);
    EXPECT_EQ(includes[0].text, "#include \"data/Rows.h\"");
    EXPECT_EQ(includes[0].target, "data/Rows.h");
    EXPECT_TRUE(includes[0].isOfProgram);
    EXPECT_EQ(includes[1].line, 4);
    EXPECT_EQ(includes[1].text, "#  include <QLabel>");
    EXPECT_EQ(includes[1].target, "QLabel");
    EXPECT_FALSE(includes[1].isOfProgram);
}

TEST(ReadIncludes, LeavesOutWhatIsNoInclude)
{
    const char* text = "// #include \"a\"\n/* #include \"b\"\n#include \"c\"\n*/ #include \"d\"\n"
                       "#define INCLUDE \"e\"\n#include\n#include \"f\nconst char* x = \"#include\";\n";
    const std::vector<Include> includes = ReadIncludes({"data/Rows.cpp", text});
    ASSERT_EQ(includes.size(), 1U);
    EXPECT_EQ(includes[0].target, "d");
    EXPECT_EQ(includes[0].line, 4);
}

TEST(ReadIncludes, SeesNoCommentWithinAText)
{
    EXPECT_EQ(ReadIncludes({"data/Rows.cpp", "const char* filter = \"/*\";\n#include \"core//A.h\"\n"}).size(), 1U);
}

TEST(ReadIncludes, KnowsAFileOfTheProgramBetweenAngleBracketsToo)
{
    const std::vector<Include> includes = ReadIncludes({"core/A.h", "#include <data/Rows.h>\n#include <vector>\n"});
    ASSERT_EQ(includes.size(), 2U);
    EXPECT_TRUE(includes[0].isOfProgram);
    EXPECT_FALSE(includes[1].isOfProgram);
}

TEST(CheckRooms, LetsArrowsPointDownward)
{
    EXPECT_THAT(CheckRooms({{"main.cpp", "#include \"output/Export.h\"\n#include \"core/texts/MainTexts.h\"\n"},
                            {"output/Export.h", "#include \"data/Rows.h\"\n#include <QString>\n"},
                            {"data/Rows.h", "#include \"core/window/Page.h\"\n#include \"machine/Model.h\"\n"},
                            {"core/window/Page.h", "#include \"core/Shell.h\"\n"},
                            {"machine/Model.h", "#include \"core/texts/MainTexts.h\"\n"},
                            {"core/Texts.cpp", "#include \"core/texts/MainTexts.inc\"\n"},
                            {"core/texts/MainTexts.h", "#include \"core/Texts.h\"\n"}}),
                IsEmpty());
}

TEST(CheckRooms, TellsAnArrowUpward)
{
    EXPECT_THAT(CheckRooms({{"data/Rows.cpp", "#include \"data/Rows.h\"\n\n#include \"project/Store.h\"\n"}}),
                ElementsAre("data/Rows.cpp:3: #include \"project/Store.h\": arrows point downward, and project stands "
                            "above data"));
    EXPECT_THAT(
        CheckRooms({{"language/Files.h", "#include \"main.cpp\"\n"}}),
        ElementsAre("language/Files.h:1: #include \"main.cpp\": arrows point downward, and main.cpp stands above "
                    "language"));
}

TEST(CheckRooms, TellsWhatTheLowestRoomsDoNotInclude)
{
    struct Case
    {
        const char* file;
        const char* target;
        const char* rule;
    };
    for (const Case& c : {Case{"core/A.h", "core/window/Page.h", "core includes no other room"},
                          Case{"core/texts/ATexts.h", "machine/Model.h", "core includes no other room"},
                          Case{"core/window/A.h", "machine/Model.h", "core/window includes core alone"},
                          Case{"core/window/A.h", "project/Store.h", "core/window includes core alone"},
                          Case{"machine/A.h", "core/window/Page.h", "machine includes core alone"},
                          Case{"machine/A.h", "data/Rows.h", "machine includes core alone"}}) {
        const std::string line = "#include \"" + std::string(c.target) + '"';
        EXPECT_THAT(CheckRooms({{c.file, "\n" + line}}),
                    ElementsAre(std::string(c.file) + ":2: " + line + ": " + c.rule));
    }
}

TEST(CheckRooms, TellsAFolderThatNobodyKnows)
{
    EXPECT_THAT(CheckRooms({{"attic/Old.h", ""}}), ElementsAre("attic/Old.h: nobody knows the folder 'attic' of src/"));
    EXPECT_THAT(CheckRooms({{"data/old/Rows.h", ""}}),
                ElementsAre("data/old/Rows.h: nobody knows the folder 'data/old' of src/"));
    EXPECT_THAT(CheckRooms({{"Rows.h", ""}}), ElementsAre("Rows.h: nobody knows the folder '' of src/"));
}

TEST(CheckRooms, TellsAnIncludeThatDoesNotBeginWithItsRoom)
{
    EXPECT_THAT(CheckRooms({{"data/Rows.cpp", "#include \"Rows.h\"\n#include \"../project/Store.h\"\n"}}),
                ElementsAre("data/Rows.cpp:1: #include \"Rows.h\": nobody knows the folder '' of src/",
                            "data/Rows.cpp:2: #include \"../project/Store.h\": nobody knows the folder '../project' of "
                            "src/"));
}

TEST(CheckPages, TellsAPageThatAModuleOfAnotherRoomIncludes)
{
    EXPECT_THAT(CheckPages({{"motors/Table.cpp", "#include <map>\n#include \"data/FormF5.h\"\n"}}, {}),
                ElementsAre("motors/Table.cpp:2: #include \"data/FormF5.h\": a page is included by its own room and by "
                            "main.cpp alone"));
}

TEST(CheckPages, LetsTheOwnRoomAndMainIncludeAPage)
{
    EXPECT_THAT(CheckPages({{"main.cpp", "#include \"data/FormF5.h\"\n"},
                            {"data/FormF5.cpp", "#include \"data/FormF5.h\"\n#include \"core/texts/FormF5Texts.h\"\n"},
                            {"motors/Table.cpp", "#include \"core/Formats.h\"\n#include \"core/LocalFormats.h\"\n"}},
                           {}),
                IsEmpty());
}

TEST(CheckPages, LetsAnExceptionPassAndTellsOneWithoutUse)
{
    const std::vector<PageException> exceptions{{.page = "data/FormF5.h", .reason = "a test"}};
    EXPECT_THAT(CheckPages({{"motors/Table.cpp", "#include \"data/FormF5.h\"\n"}}, exceptions), IsEmpty());
    EXPECT_THAT(CheckPages({{"motors/Table.cpp", "#include \"data/Rows.h\"\n"}}, exceptions),
                ElementsAre("data/FormF5.h: no other room includes it, so it needs no exception"));
}

TEST(SourcesOfLibrary, ReadsTheListOfOneLibrary)
{
    const char* cmake = "add_library(engine STATIC\n    core/A.cpp # core/B.cpp\n    # core/C.cpp)\n    data/D.cpp\n)\n"
                        "target_sources(engine PRIVATE core/E.cpp)\nadd_library(engine_of_pages STATIC core/F.cpp)\n";
    EXPECT_THAT(SourcesOfLibrary(cmake, "engine"), ElementsAre("core/A.cpp", "data/D.cpp"));
    EXPECT_THAT(SourcesOfLibrary(cmake, "engine_of_pages"), ElementsAre("core/F.cpp"));
    EXPECT_THAT(SourcesOfLibrary(cmake, "pages"), IsEmpty());
}

TEST(CheckLibraries, TellsAModuleThatIncludesAPage)
{
    EXPECT_THAT(CheckLibraries({{"data/Rows.h", ""},
                                {"data/Rows.cpp", "#include \"data/Rows.h\"\n#include \"data/Grid.h\"\n"},
                                {"data/Grid.h", "#include \"data/Rows.h\"\n"},
                                {"data/Grid.cpp", "#include \"data/Rows.h\"\n#include <QLabel>\n"}},
                               kInvented),
                ElementsAre("data/Rows.cpp:2: #include \"data/Grid.h\": the engine includes nothing of the pages"));
}

TEST(CheckLibraries, TellsAModuleThatIncludesWidgets)
{
    for (const std::string target : {"QLabel", "QtWidgets", "QtWidgets/QLabel"})
        EXPECT_THAT(
            CheckLibraries({{"data/Rows.h", "\n#include <" + target + ">\n"}, {"data/Rows.cpp", ""}}, kInvented),
            ElementsAre("data/Rows.h:2: #include <" + target + ">: the engine includes no widgets"));
}

TEST(CheckLibraries, PutsAHeaderWithoutSourceWhereItsOwnIncludesBelong)
{
    const std::vector<Source> sources{{"data/Rows.cpp", "#include \"data/Plain.h\"\n#include \"data/Label.h\"\n"},
                                      {"data/Plain.h", "#include <QString>\n"},
                                      {"data/Label.h", "#include <QLabel>\n"}};
    EXPECT_THAT(CheckLibraries(sources, kInvented),
                ElementsAre("data/Rows.cpp:2: #include \"data/Label.h\": the engine includes nothing of the pages"));
}

TEST(CheckLibraries, TellsASourceOfNoLibrary)
{
    EXPECT_THAT(CheckLibraries({{"data/Lost.cpp", ""}, {"main.cpp", "#include <QLabel>\n"}}, kInvented),
                ElementsAre("data/Lost.cpp: stands in no library"));
}

TEST(CheckCircles, CountsAHeaderAndItsSourceAsOne)
{
    EXPECT_THAT(
        CheckCircles({{"a/X.h", ""}, {"a/X.cpp", "#include \"a/X.h\"\n#include \"a/Y.h\"\n"}, {"a/Y.h", ""}}, {}),
        IsEmpty());
    EXPECT_THAT(
        CheckCircles({{"a/X.h", ""}, {"a/X.cpp", "#include \"a/Y.h\"\n"}, {"a/Y.cpp", "#include \"a/X.h\"\n"}}, {}),
        ElementsAre("a/X -> a/Y -> a/X: no file includes itself by way of others\n"
                    "    a/X.cpp:1: #include \"a/Y.h\"\n"
                    "    a/Y.cpp:1: #include \"a/X.h\""));
}

TEST(CheckCircles, CountsTheTextsAndTheirSectionsAsOne)
{
    EXPECT_THAT(CheckCircles(
                    {{"core/Texts.cpp", "#include \"core/texts/MainTexts.h\"\n#include \"core/texts/MainTexts.inc\"\n"},
                     {"core/texts/MainTexts.h", "#include \"core/Texts.h\"\n"}},
                    {}),
                IsEmpty());
}

TEST(CheckCircles, TellsTheWholeCircleOfThree)
{
    EXPECT_THAT(CheckCircles({{"b/Two.h", "// Two.\n#include \"c/Three.h\"\n"},
                              {"a/One.h", "#include \"b/Two.h\"\n#include \"c/Four.h\"\n"},
                              {"c/Four.h", ""},
                              {"c/Three.cpp", "\n\n#include \"a/One.h\"\n"}},
                             {}),
                ElementsAre("a/One -> b/Two -> c/Three -> a/One: no file includes itself by way of others\n"
                            "    a/One.h:1: #include \"b/Two.h\"\n"
                            "    b/Two.h:2: #include \"c/Three.h\"\n"
                            "    c/Three.cpp:3: #include \"a/One.h\""));
}

TEST(CheckCircles, TellsEachOfTwoCirclesThatShareAFile)
{
    const Findings findings = CheckCircles({{"a/X.cpp", "#include \"a/Y.h\"\n#include \"a/Z.h\"\n"},
                                            {"a/Y.cpp", "#include \"a/X.h\"\n"},
                                            {"a/Z.cpp", "#include \"a/X.h\"\n"}},
                                           {"a/X -> a/Y -> a/X"});
    EXPECT_THAT(findings, ElementsAre(::testing::StartsWith("a/X -> a/Z -> a/X: ")));
}

TEST(CheckCircles, LetsAKnownCirclePassAndTellsOneThatIsGone)
{
    const std::vector<Source> circle{{"a/X.h", "#include \"a/Y.h\"\n"}, {"a/Y.h", "#include \"a/X.h\"\n"}};
    EXPECT_THAT(CheckCircles(circle, {"a/X -> a/Y -> a/X"}), IsEmpty());
    EXPECT_THAT(CheckCircles({}, {"a/X -> a/Y -> a/X"}),
                ElementsAre("a/X -> a/Y -> a/X: this circle is gone, so it is no known one any more"));
}

TEST(SourcesOfTheProgram, AreFoundWithTheirLibraries)
{
    EXPECT_GT(SourcesOfTheProgram().size(), 100U);
    const Libraries libraries = LibrariesOfTheProgram();
    EXPECT_TRUE(libraries.engine.contains("core/Common.cpp"));
    EXPECT_TRUE(libraries.pages.contains("core/window/MainWindow.cpp"));
    EXPECT_TRUE(libraries.widgetHeaders.contains("QLabel"));
    EXPECT_FALSE(libraries.widgetHeaders.contains("QString"));
}

TEST(SourcesOfTheProgram, StandInRoomsWithArrowsDownward)
{
    ExpectNone(CheckRooms(SourcesOfTheProgram()));
}

TEST(SourcesOfTheProgram, IncludeNoPageOfAnotherRoom)
{
    ExpectNone(CheckPages(SourcesOfTheProgram(), kPagesOfOtherRooms));
}

TEST(SourcesOfTheProgram, KeepTheEngineFreeOfPagesAndWidgets)
{
    ExpectNone(CheckLibraries(SourcesOfTheProgram(), LibrariesOfTheProgram()));
}

TEST(SourcesOfTheProgram, IncludeEachOtherInNoCircle)
{
    ExpectNone(CheckCircles(SourcesOfTheProgram(), kKnownCircles));
}

} // namespace korvanel::structure
