#include "structure/Includes.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <map>
#include <optional>
#include <sstream>

namespace korvanel::structure {

namespace {

constexpr std::string_view kMain = "main.cpp";

/// What a room may include beside itself.
enum class Reach
{
    Nothing,
    CoreAlone,
    AllBelow
};

struct Room
{
    std::string_view name;
    Reach reach = Reach::AllBelow;
};

/// From the lowest to the highest.
constexpr std::array kRooms{
    Room{.name = "core", .reach = Reach::Nothing},
    Room{.name = "core/window", .reach = Reach::CoreAlone},
    Room{.name = "machine", .reach = Reach::CoreAlone},
    Room{.name = "data"},
    Room{.name = "project"},
    Room{.name = "instruments"},
    Room{.name = "acquisition"},
    Room{.name = "motors"},
    Room{.name = "evaluation"},
    Room{.name = "diagrams"},
    Room{.name = "editor"},
    Room{.name = "simulation"},
    Room{.name = "output"},
    Room{.name = "language"},
    Room{.name = kMain},
};

const Room* FindRoom(std::string_view name)
{
    const auto* room = std::find_if(kRooms.begin(), kRooms.end(), [&](const Room& r) { return r.name == name; });
    return room == kRooms.end() ? nullptr : room;
}

std::string_view Trimmed(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(" \t\r");
    return first == std::string_view::npos ? std::string_view()
                                           : text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

/// Takes the comments out of a line. `isWithin` tells if the line begins within one, and afterwards if it ends so.
std::string WithoutComments(std::string_view line, bool& isWithin)
{
    std::string code;
    bool isQuoted = false;
    for (std::size_t i = 0; i < line.size(); ++i) {
        const std::string_view two = line.substr(i, 2);
        if (!isQuoted && two == (isWithin ? "*/" : "/*")) {
            isWithin = !isWithin;
            ++i;
        } else if (!isQuoted && !isWithin && two == "//") {
            break;
        } else if (!isWithin) {
            isQuoted = isQuoted != (line[i] == '"');
            code += line[i];
        }
    }
    return code;
}

/// What stands between the marks of an include; nothing if the line is none.
std::optional<std::string_view> TargetOf(std::string_view code)
{
    for (const std::string_view part : {"#", "include"}) {
        if (!code.starts_with(part))
            return std::nullopt;
        code = Trimmed(code.substr(part.size()));
    }
    if (code.empty() || (code.front() != '"' && code.front() != '<'))
        return std::nullopt;
    const std::size_t end = code.find(code.front() == '"' ? '"' : '>', 1);
    return end == std::string_view::npos ? std::nullopt : std::optional(code.substr(1, end - 1));
}

std::string FolderOf(std::string_view name)
{
    const std::size_t slash = name.rfind('/');
    return std::string(slash == std::string_view::npos ? std::string_view() : name.substr(0, slash));
}

std::string WithoutExtension(std::string_view name)
{
    return std::string(name.substr(0, name.rfind('.')));
}

/// What counts as one file among circles: a header with its .cpp, and the table of texts with its sections.
std::string UnitOf(std::string_view name)
{
    return FolderOf(name) == "core/texts" ? "core/Texts" : WithoutExtension(name);
}

std::string TextOf(const Include& include)
{
    return include.file + ':' + std::to_string(include.line) + ": " + include.text;
}

std::string Told(const Include& include, const std::string& rule)
{
    return TextOf(include) + ": " + rule;
}

std::string UnknownFolder(std::string_view name)
{
    return "nobody knows the folder '" + FolderOf(name) + "' of src/";
}

std::vector<Include> IncludesOfProgram(const std::vector<Source>& sources)
{
    std::vector<Include> all;
    for (const Source& source : sources)
        for (Include& include : ReadIncludes(source))
            if (include.isOfProgram)
                all.push_back(std::move(include));
    return all;
}

/// The rule between rooms that the include breaks; empty if none.
std::string BrokenArrow(const Room& from, const Room& to)
{
    if (&from == &to)
        return {};
    const std::string name(from.name);
    if (from.reach == Reach::Nothing)
        return name + " includes no other room";
    if (from.reach == Reach::CoreAlone && to.name != "core")
        return name + " includes core alone";
    return &from < &to ? "arrows point downward, and " + std::string(to.name) + " stands above " + name : std::string();
}

bool IsPage(std::string_view name)
{
    const std::string_view file = name.substr(name.rfind('/') + 1);
    constexpr std::string_view kPrefix = "Form";
    return file.starts_with(kPrefix) && file.size() > kPrefix.size() && file[kPrefix.size()] >= 'A' &&
           file[kPrefix.size()] <= 'Z' && FolderOf(name) != "core/texts";
}

enum class Library
{
    None,
    Engine,
    Pages
};

bool IsHeaderOfWidgets(const Include& include, const std::set<std::string>& widgetHeaders)
{
    constexpr std::string_view kFolder = "QtWidgets/";
    return widgetHeaders.contains(include.target) || include.target.starts_with(kFolder);
}

using LibraryOfFile = std::map<std::string, Library>;

Library LibraryOf(const Source& source, const std::set<std::string>& names, const Libraries& libraries)
{
    const std::string implementation = WithoutExtension(source.name) + ".cpp";
    if (names.contains(implementation)) {
        if (libraries.engine.contains(implementation))
            return Library::Engine;
        return libraries.pages.contains(implementation) ? Library::Pages : Library::None;
    }
    const std::vector<Include> includes = ReadIncludes(source);
    const bool hasWidgets = std::any_of(includes.begin(), includes.end(), [&](const Include& include) {
        return IsHeaderOfWidgets(include, libraries.widgetHeaders);
    });
    return hasWidgets ? Library::Pages : Library::Engine;
}

LibraryOfFile LibrariesOf(const std::vector<Source>& sources, const Libraries& libraries)
{
    std::set<std::string> names;
    for (const Source& source : sources)
        names.insert(source.name);
    LibraryOfFile found;
    for (const Source& source : sources)
        found[source.name] = LibraryOf(source, names, libraries);
    return found;
}

/// Which unit includes which, and with which line.
using Arrows = std::map<std::string, std::map<std::string, Include>>;

Arrows ArrowsBetween(const std::vector<Source>& sources)
{
    Arrows arrows;
    for (const Include& include : IncludesOfProgram(sources))
        if (const std::string from = UnitOf(include.file), to = UnitOf(include.target); from != to)
            arrows[from].try_emplace(to, include);
    return arrows;
}

using Circle = std::vector<std::string>;

/// The shortest way from `from` to `to`, both ends included; empty if there is none.
Circle ShortestWay(const Arrows& arrows, const std::string& from, const std::string& to)
{
    std::map<std::string, std::string> comesFrom{{from, from}};
    std::vector<std::string> queue{from};
    for (std::size_t i = 0; i < queue.size() && !comesFrom.contains(to); ++i)
        if (const auto found = arrows.find(queue[i]); found != arrows.end())
            for (const auto& [next, include] : found->second)
                if (comesFrom.try_emplace(next, found->first).second)
                    queue.push_back(next);
    Circle way;
    if (comesFrom.contains(to))
        for (std::string at = to; way.empty() || way.back() != from; at = comesFrom[at])
            way.push_back(at);
    std::reverse(way.begin(), way.end());
    return way;
}

/// The shortest circle through each arrow, from its first member in the alphabet on; each circle once.
std::set<Circle> CirclesOf(const Arrows& arrows)
{
    std::set<Circle> circles;
    for (const auto& [from, targets] : arrows)
        for (const auto& [to, include] : targets)
            if (Circle circle = ShortestWay(arrows, to, from); !circle.empty()) {
                std::rotate(circle.begin(), std::min_element(circle.begin(), circle.end()), circle.end());
                circles.insert(std::move(circle));
            }
    return circles;
}

std::string TextOf(const Circle& circle)
{
    std::string text;
    for (const std::string& member : circle)
        text += member + " -> ";
    return text + circle.front();
}

/// The lines that close the circle, one below the other.
std::string LinesOf(const Circle& circle, const Arrows& arrows)
{
    std::string lines;
    for (std::size_t i = 0; i < circle.size(); ++i)
        lines += "\n    " + TextOf(arrows.at(circle[i]).at(circle[(i + 1) % circle.size()]));
    return lines;
}

} // namespace

std::vector<Include> ReadIncludes(const Source& source)
{
    std::vector<Include> includes;
    std::istringstream lines(source.text);
    std::string line;
    bool isWithinComment = false;
    for (int number = 1; std::getline(lines, line); ++number) {
        const std::string code = WithoutComments(line, isWithinComment);
        const std::string_view trimmed = Trimmed(code);
        if (const std::optional<std::string_view> target = TargetOf(trimmed)) {
            const bool isQuoted = trimmed.find('"') != std::string_view::npos;
            includes.push_back({source.name, number, std::string(trimmed), std::string(*target),
                                isQuoted || !RoomOf(*target).empty()});
        }
    }
    return includes;
}

std::string RoomOf(std::string_view name)
{
    if (name == kMain)
        return std::string(kMain);
    const std::string folder = FolderOf(name);
    if (folder == "core/texts")
        return "core";
    return FindRoom(folder) ? folder : std::string();
}

Findings CheckRooms(const std::vector<Source>& sources)
{
    Findings findings;
    for (const Source& source : sources)
        if (RoomOf(source.name).empty())
            findings.push_back(source.name + ": " + UnknownFolder(source.name));
    for (const Include& include : IncludesOfProgram(sources)) {
        const Room* from = FindRoom(RoomOf(include.file));
        const Room* to = FindRoom(RoomOf(include.target));
        if (!to)
            findings.push_back(Told(include, UnknownFolder(include.target)));
        else if (const std::string rule = from ? BrokenArrow(*from, *to) : std::string(); !rule.empty())
            findings.push_back(Told(include, rule));
    }
    return findings;
}

Findings CheckPages(const std::vector<Source>& sources, const std::vector<PageException>& exceptions)
{
    Findings findings;
    std::set<std::string> used;
    for (const Include& include : IncludesOfProgram(sources)) {
        if (!IsPage(include.target) || include.file == kMain || RoomOf(include.file) == RoomOf(include.target))
            continue;
        const bool isException = std::any_of(exceptions.begin(), exceptions.end(),
                                             [&](const PageException& e) { return e.page == include.target; });
        if (isException)
            used.insert(include.target);
        else
            findings.push_back(Told(include, "a page is included by its own room and by main.cpp alone"));
    }
    for (const PageException& exception : exceptions)
        if (!used.contains(exception.page))
            findings.push_back(exception.page + ": no other room includes it, so it needs no exception");
    return findings;
}

std::set<std::string> SourcesOfLibrary(std::string_view cmake, std::string_view library)
{
    std::string text;
    std::istringstream lines{std::string(cmake)};
    for (std::string line; std::getline(lines, line);)
        text += line.substr(0, line.find('#')) + '\n';
    const std::size_t begin = text.find("add_library(" + std::string(library) + ' ');
    if (begin == std::string::npos)
        return {};
    std::istringstream words(text.substr(begin, text.find(')', begin) - begin));
    std::set<std::string> sources;
    std::copy_if(std::istream_iterator<std::string>(words), {}, std::inserter(sources, sources.end()),
                 [](const std::string& word) { return word.ends_with(".cpp"); });
    return sources;
}

Findings CheckLibraries(const std::vector<Source>& sources, const Libraries& libraries)
{
    Findings findings;
    const LibraryOfFile libraryOf = LibrariesOf(sources, libraries);
    for (const Source& source : sources) {
        const Library own = libraryOf.at(source.name);
        if (own == Library::None && source.name != kMain)
            findings.push_back(source.name + ": stands in no library");
        if (own != Library::Engine)
            continue;
        for (const Include& include : ReadIncludes(source)) {
            const auto target = libraryOf.find(include.target);
            if (target != libraryOf.end() && target->second == Library::Pages)
                findings.push_back(Told(include, "the engine includes nothing of the pages"));
            else if (IsHeaderOfWidgets(include, libraries.widgetHeaders))
                findings.push_back(Told(include, "the engine includes no widgets"));
        }
    }
    return findings;
}

Findings CheckCircles(const std::vector<Source>& sources, const std::vector<std::string>& known)
{
    Findings findings;
    std::set<std::string> gone(known.begin(), known.end());
    const Arrows arrows = ArrowsBetween(sources);
    for (const Circle& circle : CirclesOf(arrows))
        if (const std::string text = TextOf(circle); gone.erase(text) == 0)
            findings.push_back(text + ": no file includes itself by way of others" + LinesOf(circle, arrows));
    for (const std::string& text : gone)
        findings.push_back(text + ": this circle is gone, so it is no known one any more");
    return findings;
}

} // namespace korvanel::structure
