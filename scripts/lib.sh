# Shared by the scripts of this folder: where the checkout is, and its builds.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"

# configure PRESET
configure() {
    cmake --preset "$1" >"/tmp/korvanel-configure-$1-$$.log" || {
        cat "/tmp/korvanel-configure-$1-$$.log"
        return 1
    }
    rm -f "/tmp/korvanel-configure-$1-$$.log"
}

# configure_and_build PRESET [TARGET...]
configure_and_build() {
    local preset=$1
    shift
    configure "$preset"
    cmake --build --preset "$preset" ${1:+--target "$@"}
}
