# Lists what each source includes of the project, directly or by way of others.  Input: lines
# "source<TAB>directory<TAB>command"; output: "source<TAB>file..." with full paths, its own first include before all
# others. What lies in no folder of the command's -I, the headers of libraries, is left out. The file that the command
# includes by itself counts too.

BEGIN { FS = "\t" }

{
    split("", isSeen)
    split("", queue)
    folders = FoldersOf($3)
    last = 0
    Take($1)
    forced = match($3, /-include -Xclang [^ ]+/) ? substr($3, RSTART + 17, RLENGTH - 17) : ""
    for (at = 1; at <= last; at++) {
        n = split(TargetsOf(queue[at]), targets, "\n")
        for (i = 1; i < n; i++)
            Take(Resolved(queue[at], targets[i], folders))
    }
    if (Exists(forced))
        Take(forced)
    line = $1
    for (at = 2; at <= last; at++)
        line = line FS queue[at]
    print line
}

function Take(file)
{
    if (file != "" && !(file in isSeen)) {
        isSeen[file]
        queue[++last] = file
    }
}

function FoldersOf(command,    words, i, n, found)
{
    n = split(command, words, " ")
    for (i = 1; i <= n; i++)
        if (words[i] ~ /^-I/)
            found = found substr(words[i], 3) "\n"
    return found
}

# What stands between the quotes of its includes, one a line.
function TargetsOf(file,    line, parts)
{
    if (!(file in targetsOf)) {
        targetsOf[file] = ""
        while ((getline line < file) > 0)
            if (line ~ /^[ \t]*#[ \t]*include[ \t]*"/) {
                split(line, parts, "\"")
                targetsOf[file] = targetsOf[file] parts[2] "\n"
            }
        close(file)
    }
    return targetsOf[file]
}

function Resolved(from, target, folders,    folder, paths, i, n)
{
    folder = from
    sub(/[^\/]*$/, "", folder)
    if (Exists(folder target))
        return folder target
    n = split(folders, paths, "\n")
    for (i = 1; i < n; i++)
        if (Exists(paths[i] "/" target))
            return paths[i] "/" target
    return ""
}

function Exists(path,    line)
{
    if (!(path in exists)) {
        exists[path] = path != "" && (getline line < path) >= 0
        close(path)
    }
    return exists[path]
}
