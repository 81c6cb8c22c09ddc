// The rules of the rooms of src/, judged by the lines that include other files. Everything here takes names and texts,
// so that the rules are tried with invented sources as well as with those of the program. A finding is one text that
// names file, line, the line itself and the rule that it breaks.
#pragma once

#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace korvanel::structure {

struct Source
{
    std::string name; ///< from src/ on, as in "core/window/Page.h"
    std::string text;
};

/// A line that includes another file.
struct Include
{
    std::string file; ///< the one that has the line
    int line = 0;     ///< counted from 1
    std::string text; ///< the line, without the blanks and the comment around it
    std::string target;
    bool isOfProgram = false; ///< names a file of src/, not one of a library
};

using Findings = std::vector<std::string>;

/// The includes of a source in their order; those within a comment don't count.
std::vector<Include> ReadIncludes(const Source& source);

/// The room that a file belongs to: its folder, except that the texts are part of the core. "main.cpp" is a room of its
/// own. Empty if nobody knows the folder.
std::string RoomOf(std::string_view name);

/// Every file stands in a known room; arrows between rooms point downward only, and the lowest rooms include as little
/// as they have promised.
Findings CheckRooms(const std::vector<Source>& sources);

/// A page of another room that others may include nevertheless.
struct PageException
{
    std::string page; ///< as in "data/FormH15.h"
    std::string reason;
};

/// A page (Form...) is included by files of its own room and by main.cpp. An exception that nobody makes use of is a
/// finding too.
Findings CheckPages(const std::vector<Source>& sources, const std::vector<PageException>& exceptions);

/// The .cpp files between `add_library(library` and the bracket that closes it.
std::set<std::string> SourcesOfLibrary(std::string_view cmake, std::string_view library);

/// The two libraries by their .cpp files, and the names of the toolkit's headers of widgets.
struct Libraries
{
    std::set<std::string> engine;
    std::set<std::string> pages;
    std::set<std::string> widgetHeaders;
};

/// No file of the engine includes one of the pages or a header of widgets. A header belongs where the .cpp of its name
/// belongs; one without a .cpp belongs to the pages if it includes a header of widgets itself, else to the engine.
/// A .cpp that stands in neither list, main.cpp apart, is a finding.
Findings CheckLibraries(const std::vector<Source>& sources, const Libraries& libraries);

/// No file includes itself by way of others, X.h and X.cpp counted as one, core/Texts and its sections too. `known` are
/// circles that exist, written as in "a/X -> a/Y -> a/X" from the first in the alphabet on; one of them that doesn't
/// exist any more is a finding too. Of the circles through one include the shortest is told.
Findings CheckCircles(const std::vector<Source>& sources, const std::vector<std::string>& known);

} // namespace korvanel::structure
