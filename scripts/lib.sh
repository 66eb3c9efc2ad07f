# SPDX-License-Identifier: MIT
# Sourced by the scripts: folders, messages, the private display, running Wine.
set -uo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd -P)
scripts=$root/scripts
build=$root/build

# Without a symbolizer the sanitizers of native programs take the one of binutils.
export ASAN_OPTIONS=allow_addr2line=1

# The cache of compiled files serves every clone, knows precompiled headers by their checksum (cmake/launch.sh), and the
# other headers by the list that the compiler makes anyway.
export CCACHE_BASEDIR=$root CCACHE_NOHASHDIR=1 CCACHE_SLOPPINESS=pch_defines,time_macros
export CCACHE_PCH_EXTSUM=1 CCACHE_DEPEND=1

say() { printf '%s\n' "$*" >&2; }
die() {
    say "${0##*/}: $*"
    exit 1
}

# with_dots LOG COMMAND...: runs a command with its output in a file; dots tell that it goes on.
with_dots() {
    local log=$1 dots
    shift
    while sleep 2; do printf . >&2; done &
    dots=$!
    "$@" </dev/null >"$log" 2>&1
    set -- $?
    kill "$dots"
    wait "$dots" 2>/dev/null
    echo >&2
    return "$1"
}

# own_processors: the numbers of those that this process may run on, a line each.
own_processors() {
    awk '/^Cpus_allowed_list:/ {
        ranges = split($2, range, ",")
        for (i = 1; i <= ranges; i++) {
            ends = split(range[i], end, "-")
            for (number = end[1]; number <= end[ends]; number++) print number
        }
    }' /proc/self/status
}

windows_path() { printf 'Z:%s' "${1//\//\\}"; }

# Cleanups run once, last one first, however the script ends.
cleanups=()
at_exit() { cleanups+=("$1"); }
run_cleanups() {
    local i
    for ((i = ${#cleanups[@]} - 1; i >= 0; i--)); do ${cleanups[i]}; done
    cleanups=()
}
trap run_cleanups EXIT
trap 'exit 130' INT
trap 'exit 143' TERM HUP

make_scratch() {
    scratch=$(mktemp -d) || die "cannot make a temporary folder"
    at_exit remove_scratch
}
remove_scratch() { rm -rf "$scratch"; }

# The caller's pipes and locks must not live on in Wine's services or in the X server.
close_inherited() {
    local fd
    for fd in /proc/self/fd/*; do
        fd=${fd##*/}
        ((fd > 2 && fd != 255)) && eval "exec $fd>&-" 2>/dev/null
    done
    exec 255>&- || true
}

# start_display: an X server of our own on a free number; it ends with the script even if that is killed.
start_display() {
    command -v Xvfb >/dev/null || die "no display and no Xvfb: install the package xvfb"
    local number=$scratch/display i
    : >"$number"
    (
        close_inherited
        exec setpriv --pdeathsig TERM Xvfb -displayfd 3 -screen 0 1280x1024x24 -dpi 96 \
            -nolisten tcp -noreset 3>"$number" </dev/null >"$scratch/xvfb.log" 2>&1
    ) &
    display_pid=$!
    at_exit stop_display
    for ((i = 0; i < 100; i++)); do
        [ -s "$number" ] && break
        kill -0 "$display_pid" 2>/dev/null || break
        sleep 0.1
    done
    [ -s "$number" ] || die "Xvfb did not start: $(tail -n 1 "$scratch/xvfb.log")"
    export DISPLAY=:$(<"$number")
    unset XAUTHORITY
    # Without any X resources Xlib looks for the user's files again for each window of Wine's.
    printf 'vndesk.resources: none\n' >"$build/x-resources"
    export XENVIRONMENT=$build/x-resources
    # Without a table of compositions it reads that of the machine, ten milliseconds for each thread with windows.
    : >"$build/x-compose"
    export XCOMPOSEFILE=$build/x-compose
}
stop_display() {
    kill "$display_pid" 2>/dev/null
    wait "$display_pid" 2>/dev/null
}

# own_prefix ARCH: the name of the project's prefix, of which each lane of the tests has its own.
own_prefix() { printf '%s' "$1${VNDESK_LANE:+-$VNDESK_LANE}"; }

# prefix_folder ARCH: VNDESK_PREFIX names another prefix than the project's own, in which nothing gets registered
# (scripts/setup-prefix).
prefix_folder() { printf '%s' "$build/prefix-${VNDESK_PREFIX:-$(own_prefix "$1")}"; }

# wine_environment ARCH: what every program in a prefix of that architecture is given.
wine_environment() {
    arch=$1
    export WINEPREFIX
    WINEPREFIX=$(prefix_folder "$arch")
    # Hints about the machine (no Bluetooth, no Vulkan) are no one's business here.
    export WINEDEBUG=${WINEDEBUG:-fixme-all,err-winediag,err-ntoskrnl,err-vulkan}
    # No download prompts for .NET and HTML, no menu entries in the user's home.
    export WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe=d"
    # Without a UTF-8 locale Wine loses file names and output.
    case "${LC_ALL:-${LC_CTYPE:-${LANG:-}}}" in
    *[uU][tT][fF]-8 | *[uU][tT][fF]8) ;;
    *) export LC_ALL=C.UTF-8 ;;
    esac
    out=${VNDESK_OUT_DIR:-$build/out/$arch}
    mkdir -p "$out"
    export VNDESK_SOURCE_DIR=$(windows_path "$root")
    export VNDESK_OUT=$(windows_path "$out")
}

# wine_tool NAME ARGS...: `wine` or `wineserver` of the architecture chosen.
wine_tool() {
    local tool=$1
    shift
    if [ "$arch" = x86 ]; then
        exec "$scripts/x86-root" "$tool" "$@"
    elif [ "$tool" = wine ] && [ -x /usr/lib/wine/wine64 ]; then
        # Debian's wrapper asks for a 32-bit Wine on every start.
        WINELOADER=/usr/lib/wine/wine64 exec /usr/lib/wine/wine64 "$@"
    else
        exec "$tool" "$@"
    fi
}

# wine_logged SECONDS LOG TOOL ARGS...: output goes to a file, never to a pipe.
wine_logged() {
    local limit=$1 log=$2 placed=()
    shift 2
    # Wine has one page at a fixed address; now and then a randomised heap is there before it.
    setarch -R true 2>/dev/null && placed=(setarch -R)
    (
        close_inherited
        export -f wine_tool
        export arch scripts
        exec timeout -k 10 "$limit" "${placed[@]}" bash -c 'wine_tool "$@"' wine_tool "$@"
    ) </dev/null >"$log.out" 2>"$log.err"
}

# end_wine: everything that still runs in the prefix.
end_wine() {
    wine_logged 30 "$scratch/end" wineserver -k
    wine_logged 30 "$scratch/end" wineserver -w
}

# One private display at a time per prefix: Wine's desktop belongs to the first display it saw.
lock_prefix() {
    mkdir -p "$build"
    local name=${WINEPREFIX##*/}
    exec {prefix_lock}>"$WINEPREFIX.lock" ||
        die "cannot write to $build: make clean as the user who built here"
    flock -n "$prefix_lock" && return
    say "${0##*/}: waiting for another program in $name"
    flock -w "${VNDESK_LOCK_TIMEOUT:-1800}" "$prefix_lock" || die "$name is still in use"
}
unlock_prefix() { exec {prefix_lock}>&-; }
