# Shared by the scripts of this folder: where the checkout is, and its builds.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"

# configure_and_build PRESET [TARGET...]
configure_and_build() {
    local preset=$1
    shift
    cmake --preset "$preset" >"/tmp/korvanel-configure-$preset-$$.log" || {
        cat "/tmp/korvanel-configure-$preset-$$.log"
        return 1
    }
    rm -f "/tmp/korvanel-configure-$preset-$$.log"
    cmake --build --preset "$preset" ${1:+--target "$@"}
}
