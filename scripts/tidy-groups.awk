# Puts sources into groups that are checked as one, and writes for each group g the source g.cpp and its compile command
# to the folder `work`. Input: the lines "source<TAB>directory<TAB>command" of all sources, "source<TAB>file..." of what
# they include, the names of those to be checked. Output: "group<TAB>source" a line, the longest group first.
#
# In a group no source may be read otherwise than alone. Two never share one if either of them
# - includes the first include of the other, which declares what the other defines: the analyser would step into functions
#   that it doesn't see alone, and then not look at them by themselves;
# - mentions a name that the other defines outside of classes and functions;
# - is compiled with other flags.
# A using-declaration or a using-directive holds to the end of the file, so its source stays alone. All headers come
# first, so that none is read behind the definitions of a source.

BEGIN { FS = "\t"; most = 20 }

FNR == 1 { input++ }
input == 1 {
    directory[$1] = $2
    flags[$1] = FlagsOf($3)
}
input == 2 {
    own[$1] = $2
    for (i = 2; i <= NF; i++)
        includes[$1, $i]
}
input == 3 {
    sources[++count] = $1
    Read($1)
}

END {
    SortByConflicts()
    for (i = 1; i <= count; i++)
        Place(sources[i])
    json = work "/compile_commands.json"
    print "[" > json
    for (i = 1; i <= groups; i++)
        Write(Longest())
    print "]" > json
}

# The command without source, output and precompiled header: that one brings in all of the toolkit, for nothing.
function FlagsOf(command)
{
    sub(/ -o [^ ]+ -c [^ ]+$/, "", command)
    sub(/ -Xclang -include-pch -Xclang [^ ]+/, "", command)
    sub(/ -Xclang -include -Xclang [^ ]+/, "", command)
    return command
}

# Learns of a source its text, its leading includes, the names that it defines and the words that it mentions.
function Read(source,    line, isLeading, isEnumeration)
{
    isLeading = 1
    while ((getline line < source) > 0) {
        text[source] = text[source] line "\n"
        isLeading = isLeading && line ~ /^([ \t]*$|\/\/|#include )/
        if (isLeading && line ~ /^#include /)
            headers[source] = headers[source] line "\n"
        if (line ~ /^#include/)
            continue
        gsub(/"([^"\\]|\\.)*"/, "\"\"", line)
        sub(/\/\/.*/, "", line)
        if (IsUsing(line))
            isAlone[source]
        AddWords(source, line)
        isEnumeration = isEnumeration || line ~ /^enum/
        if (isEnumeration)
            AddEnumerators(source, line)
        else
            AddName(source, line)
        isEnumeration = isEnumeration && line !~ /}/
    }
    close(source)
}

# Not so an alias, nor a class that takes over the constructors of its base.
function IsUsing(line,    parts, n)
{
    if (line !~ /^[ \t]*using[ \t]/ || line ~ /=/)
        return 0
    gsub(/^[ \t]*using[ \t]+|;.*/, "", line)
    n = split(line, parts, "::")
    return n < 2 || parts[n] != parts[n - 1]
}

# A member, behind a point or an arrow, is none of the names outside of classes.
function AddWords(source, line,    parts, i, n)
{
    gsub(/(\.|->)[ ]*[A-Za-z_][A-Za-z0-9_]*/, " ", line)
    n = split(line, parts, /[^A-Za-z0-9_]+/)
    for (i = 1; i <= n; i++)
        mentions[source, parts[i]]
}

function AddDefined(source, name)
{
    if (name ~ /^[A-Za-z_]/ && name !~ /^(class|const|int|enum|struct|void|q?u?int[0-9]+)$/)
        defined[source] = defined[source] " " name
}

function AddEnumerators(source, line,    parts, i, n)
{
    n = split(line, parts, /[^A-Za-z0-9_]+/)
    for (i = 1; i <= n; i++)
        AddDefined(source, parts[i])
}

# The name that a line without indentation defines; for a function of a class, that of the class.
function AddName(source, line)
{
    if (line ~ /^(namespace|template|public|protected|private)/)
        return
    if (!sub(/^(#[ ]*define|using|class|struct|union)[ ]+/, "", line)) {
        while (gsub(/<[^<>]*>/, "", line))
            ;
        if (line !~ /^[A-Za-z]/ || !match(line, /[A-Za-z_][A-Za-z0-9_:~]*[ ]*[({=;[]/))
            return
        line = substr(line, RSTART)
    }
    if (match(line, /^[A-Za-z0-9_]+/))
        AddDefined(source, substr(line, 1, RLENGTH))
}

function MentionsNameOf(source, other,    parts, i, n)
{
    n = split(defined[other], parts, " ")
    for (i = 1; i <= n; i++)
        if ((source, parts[i]) in mentions)
            return 1
    return 0
}

function IsConflict(a, b)
{
    return flags[a] != flags[b] || a in isAlone || b in isAlone || (a, own[b]) in includes || (b, own[a]) in includes ||
           MentionsNameOf(a, b) || MentionsNameOf(b, a)
}

# Those with many conflicts first, as they are the hardest to place.
function SortByConflicts(    i, j, source)
{
    for (i = 1; i <= count; i++)
        for (j = i + 1; j <= count; j++)
            if (IsConflict(sources[i], sources[j])) {
                conflicts[sources[i], sources[j]]
                conflicts[sources[j], sources[i]]
                conflictsOf[sources[i]]++
                conflictsOf[sources[j]]++
            }
    for (i = 2; i <= count; i++) {
        source = sources[i]
        for (j = i; j > 1 && conflictsOf[sources[j - 1]] < conflictsOf[source]; j--)
            sources[j] = sources[j - 1]
        sources[j] = source
    }
}

function Place(source,    g, m)
{
    for (g = 1; g <= groups; g++) {
        for (m = 1; m <= members[g]; m++)
            if ((source, member[g, m]) in conflicts)
                break
        if (m > members[g] && members[g] < most)
            break
    }
    if (g > groups)
        groups = g
    member[g, ++members[g]] = source
    size[g] += length(text[source])
}

function Longest(    g, longest)
{
    for (g = 1; g <= groups; g++)
        if (!(g in isWritten) && (!longest || size[g] > size[longest]))
            longest = g
    return longest
}

function Write(g,    m, file, first)
{
    isWritten[g]
    first = member[g, 1]
    file = work "/" (++written) ".cpp"
    for (m = 1; m <= members[g]; m++)
        printf "%s", headers[member[g, m]] > file
    for (m = 1; m <= members[g]; m++) {
        printf "%s", text[member[g, m]] > file
        print written FS member[g, m]
    }
    close(file)
    printf("%s{ \"directory\": \"%s\",\n  \"command\": \"%s -c %s\",\n  \"file\": \"%s\" }\n",
        (written > 1 ? "," : ""), directory[first], flags[first], file, file) > json
}
