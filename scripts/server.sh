# SPDX-License-Identifier: MIT
# Sourced by the scripts that run a database server of their own beside a command: its user, its folder and its port.
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

# make_home NAME USER: `home`, a folder below build/NAME. The server runs as that user where we are root, because it
# refuses to run as root; `as_user` goes before its commands.
as_user=()
make_home() {
    make_scratch
    server_user=$2
    [ "$(id -u)" -eq 0 ] && as_user=(setpriv --reuid="$2" --regid="$(id -gn "$2")" --init-groups)
    mkdir -p "$build/$1"
    chmod 755 "$build/$1"
    home=$(mktemp -d "$build/$1/XXXXXX") || die "cannot write to $build/$1"
    # The user may not reach the project's folder, and a socket's path has room for about 100 bytes only.
    if [ ${#home} -gt 80 ] || ! "${as_user[@]}" test -x "$build/$1"; then
        rmdir "$home"
        home=$(mktemp -d)
    fi
    at_exit remove_home
}
remove_home() { rm -rf "$home"; }
# give_home: what is in the folder is the server's.
give_home() { [ ${#as_user[@]} -eq 0 ] || chown -R "$server_user:" "$home"; }

# launch SIGNAL LOG COMMAND...: the server's process is `launched`; it gets the signal when this script ends.
launch() {
    (
        close_inherited
        exec setpriv "${as_user[@]:1}" --pdeathsig "$1" "${@:3}" </dev/null >>"$2" 2>&1
    ) &
    launched=$!
}

# find_port: `port`, where nobody answers on the loopback.
find_port() {
    port=$((20000 + RANDOM % 12000))
    while (exec 3<>"/dev/tcp/127.0.0.1/$port") 2>/dev/null; do port=$((20000 + RANDOM % 12000)); done
}

# wait_ready COMMAND...: until it succeeds or the launched server has ended.
wait_ready() {
    local i
    for ((i = 0; i < 300; i++)); do
        kill -0 "$launched" 2>/dev/null || break
        "$@" && return
        sleep 0.1
    done
    return 1
}
end_launched() {
    [ "${launched:-}" ] || return
    kill "$launched" 2>/dev/null && wait "$launched" 2>/dev/null
    launched=
}
