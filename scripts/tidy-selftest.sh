# Tries scripts/tidy, which reads this file, on invented sources: what it finds is what clang-tidy finds in each of them
# alone, wherever they are grouped; what hasn't changed is not looked at again.

state=$root/build/tidy/selftest
tree=$state/tree
commands=$tree
failures=0

# write NAME: a file of the tree from the standard input.
write() {
    mkdir -p "$(dirname "$tree/$1")"
    cat >"$tree/$1"
}

write_sources() {
    # A finding of a check that looks at the source as it is written.
    write src/Sign.h <<<'int Sign(int value);'
    write src/Sign.cpp <<'END'
#include "Sign.h"
int Sign(int value)
{
    if (value > 0)
        return 1;
    else
        return 1;
}
END
    # Two that are found on one of the paths only, through a function without a name outside.
    write src/Share.h <<<'int Share(int range);'
    write src/Share.cpp <<'END'
#include "Share.h"
namespace {
int Steps(int range) { return range > 10 ? 2 : 0; }
} // namespace
int Share(int range)
{
    const int steps = Steps(range);
    return range / steps;
}
END
    write src/First.h <<<'int First(const int* place, int count);'
    write src/First.cpp <<'END'
#include "First.h"
int First(const int* place, int count)
{
    if (!place)
        count++;
    return *place + count;
}
END
    # A name that is imported and not used, while the header of another source uses it.
    write src/Names.h <<'END'
#pragma once
namespace names { int Length(); }
END
    write src/Importing.h <<<'int Importing();'
    write src/Importing.cpp <<'END'
#include "Importing.h"
#include "Names.h"
using names::Length;
int Importing() { return 0; }
END
    write src/Using.h <<'END'
#pragma once
#include "Names.h"
inline int Twice() { return 2 * names::Length(); }
int Using();
END
    write src/Using.cpp <<'END'
#include "Using.h"
int Using() { return Twice(); }
END
    # A function with a fault that its caller in another source doesn't meet.
    write src/Divider.h <<'END'
#pragma once
struct Divider { int Part(int value); };
inline Divider NewDivider() { return {}; }
END
    write src/Divider.cpp <<'END'
#include "Divider.h"
int Divider::Part(int value)
{
    int result = 1;
    if (value == 0)
        result = 2;
    return result / value;
}
END
    write src/Caller.h <<<'int Caller();'
    write src/Caller.cpp <<'END'
#include "Caller.h"
#include "Divider.h"
int Caller() { return NewDivider().Part(4); }
END
    # A finding in a header that two include.
    write src/Common.h <<'END'
#pragma once
inline int Common(bool isHigh) { return isHigh ? 3 : 3; }
END
    for name in Left Right; do
        write src/$name.h <<<"int $name();"
        write src/$name.cpp <<END
#include "$name.h"
#include "Common.h"
int $name() { return Common(true); }
END
    done
    # A fault in a header, which would call something else behind the definitions of another source.
    write src/Late.h <<'END'
#pragma once
inline int Divisor(long value) { return value > 1 ? 1 : 0; }
inline int Quotient(int value) { return value / Divisor(1); }
END
    write src/Late.cpp <<'END'
#include "Late.h"
int Late() { return Quotient(3); }
END
    write src/Early.h <<<'int Early();'
    write src/Early.cpp <<'END'
#include "Early.h"
namespace {
int Divisor(int value) { return value + 1; }
} // namespace
int Early() { return Divisor(1); }
END
    # The same names in two; and two more where only the compiler sees that they are the same.
    for name in Twin Double; do
        write src/$name.h <<<"int $name();"
    done
    write src/Twin.cpp <<'END'
#include "Twin.h"
namespace {
int Helper(int value) { return value; }
} // namespace
int Twin() { return Helper(1); }
END
    write src/Double.cpp <<'END'
#include "Double.h"
namespace {
double Helper(double value) { return value; }
} // namespace
int Double() { return static_cast<int>(Helper(2)); }
END
    for name in Lost Found; do
        write src/$name.h <<<"int $name();"
        write src/$name.cpp <<END
#include "$name.h"
  int hidden() { return 1; }
int $name() { return 2; }
END
    done
    # One of another program, where a line counts that doesn't elsewhere.
    write tools/Other.cpp <<'END'
#ifdef OTHER
int Other(int value) { return value == 1 ? 2 : 2; }
#endif
END
}

write_commands() {
    local source separator='['
    find "$tree" -name '*.cpp' | sort | while read -r source; do
        printf '%s{\n"directory": "%s",\n"command": "clang++ -std=c++20 -I%s/src %s -o x.o -c %s",\n"file": "%s"\n}\n' \
            "$separator" "$tree" "$tree" "$([[ $source == */tools/* ]] && echo -DOTHER)" "$source" "$source"
        separator=,
    done >"$tree/compile_commands.json"
    echo ']' >>"$tree/compile_commands.json"
}

# What was found, a line each: place, text and check.
findings() { grep -E '^/.*\[[a-z]' | sed "s|^$tree/||" | sort -u; }

# run NAME...: checks those sources.
run() { check "$tree" < <(printf "$tree/%s.cpp\n" "$@") >"$state/told" || true; }

# expect WHAT IS WANTED
expect() {
    [ "$2" = "$3" ] && return
    failures=$((failures + 1))
    printf 'scripts/tidy: %s\n  found:  %s\n  wanted: %s\n' "$1" "$2" "$3" >&2
}

# The sources that share a group with this one, itself among them.
group_of() {
    awk -F '\t' -v source="$tree/$1.cpp" '
        { all[$1] = all[$1] " " $2 }
        $2 == source { group = $1 }
        END { print all[group] }' "$work/groups"
}

# expect_together NAME OTHER yes|no
expect_together() {
    expect "$1 and $2 in one group" "$([[ "$(group_of "$1") " == *"/$2.cpp "* ]] && echo yes || echo no)" "$3"
}

number_before() { sed -n "s/.*[^0-9]\([0-9]*\) $1.*/\1/p" "$state/told"; }

clean='src/Caller src/Double src/Early src/Twin src/Using'
faulty='src/Divider src/First src/Importing src/Late src/Left src/Share src/Sign tools/Other'

# Each source with a finding among those without: were it overlooked in its group, nothing would be told.
try_findings() {
    local name
    run $clean
    expect "sources checked again of those without a finding" "$(number_before 'of them again')" 0
    for name in $faulty; do
        rm -rf "$state/stamps"
        run $name $clean
        clang-tidy -p "$tree" --quiet "$tree/$name.cpp" >"$state/alone" 2>/dev/null || true
        expect "the findings in $name" "$(findings <"$state/told")" "$(findings <"$state/alone")"
        expect "findings in $name" "$([ -s "$state/alone" ] && echo some)" some
    done
}

try_groups() {
    rm -rf "$state/stamps"
    run src/Share src/Sign src/Late src/Early
    expect_together src/Share src/Sign yes
    expect_together src/Early src/Late yes
    rm -rf "$state/stamps"
    run $faulty $clean
    expect_together src/Caller src/Divider no # since one calls the other
    expect_together src/Twin src/Double no
    expect_together src/Importing src/Sign no
    expect_together tools/Other src/Sign no
    run src/Lost src/Found
    expect_together src/Lost src/Found yes
    expect "sources checked again where their group doesn't compile" "$(number_before 'of them again')" 2
    expect "findings there" "$(number_before 'with findings')" 0
}

try_changes() {
    rm -rf "$state/stamps"
    run src/Left src/Right src/Sign $clean
    run src/Left src/Right src/Sign $clean
    expect "sources checked again when nothing has changed" "$(number_before 'sources checked')" 3
    echo 'inline int Common(bool isHigh) { return isHigh ? 3 : 4; }' | write src/Common.h
    run src/Left src/Right src/Sign $clean
    expect "sources with findings after a header has been mended" "$(number_before 'with findings')" 1
    echo '// A remark.' >>"$tree/src/Names.h"
    run src/Left src/Right src/Using
    expect "sources checked after a header has changed" "$(number_before 'sources checked')" 1
    run src/Left src/Right src/Using
    expect "sources checked again when all is well" "$(number_before 'sources checked')" 0
    sed -i 's/-std=c++20/-std=c++17/' "$tree/compile_commands.json"
    run src/Left src/Right src/Using
    expect "sources unchanged under other flags" "$(number_before unchanged)" 0
}

rm -rf "$state"
mkdir -p "$tree"
write_sources
write_commands
try_findings
try_groups
try_changes
rm -rf "$state"
[ "$failures" -eq 0 ] || exit 1
echo "scripts/tidy: nothing wrong ($SECONDS s)"
