# SPDX-License-Identifier: MIT
# Sourced by the scripts that run database servers of their own beside a command: their user, folder, password and ports,
# a server's begin and end, and the orders by which the command takes servers away and brings them back.
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

# make_home NAME USER: `home`, a folder below build/NAME, and `password`. The servers run as that user where we are root,
# because they refuse to run as root; `as_user` goes before their commands.
as_user=()
make_home() {
    make_scratch
    server_user=$2
    password=pw$RANDOM$RANDOM
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
# give_home: what is in the folder is the servers'.
give_home() { [ ${#as_user[@]} -eq 0 ] || chown -R "$server_user:" "$home"; }

# launch SIGNAL LOG COMMAND...: the server's process is `launched`; it gets the signal when this script ends.
launch() {
    (
        close_inherited
        # The user may not look into the current folder.
        cd "$home" || exit 1
        exec setpriv "${as_user[@]:1}" --pdeathsig "$1" "${@:3}" </dev/null >>"$2" 2>&1
    ) &
    launched=$!
    # The shell says nothing when it is killed.
    disown "$launched"
}

# find_port: `port`, where nobody answers on the loopback.
find_port() {
    port=$((20000 + RANDOM % 12000))
    while (exec 3<>"/dev/tcp/127.0.0.1/$port") 2>/dev/null; do port=$((20000 + RANDOM % 12000)); done
}

# is_running PROCESS: not one that has ended and that nobody has asked about.
is_running() { grep -qs '^State:[[:space:]]*[^Z]' "/proc/$1/status"; }
# wait_ready COMMAND...: until it succeeds or the launched server has ended.
wait_ready() {
    local i
    for ((i = 0; i < 300; i++)); do
        is_running "$launched" || break
        "$@" && return
        sleep 0.1
    done
    return 1
}
# end_server PROCESS SIGNAL: returns when it has ended.
end_server() {
    local i
    kill "-$2" "$1" 2>/dev/null || return
    for ((i = 0; i < 300; i++)); do
        is_running "$1" || break
        sleep 0.05
    done
}

# obey_orders FUNCTION: calls it with each line of the pipe VNDESK_SERVER_CONTROL, until end_orders. Each order that has
# been done is a line of <pipe>.done.
obey_orders() {
    export VNDESK_SERVER_CONTROL=$home/control
    mkfifo "$VNDESK_SERVER_CONTROL" || die "no control pipe made"
    (
        close_inherited
        while read -r order; do
            "$1" "$order"
            printf '%s\n' "$order" >>"$VNDESK_SERVER_CONTROL.done"
        done <>"$VNDESK_SERVER_CONTROL"
    ) </dev/null >/dev/null 2>&1 &
    keeper=$!
}
end_orders() { [ "${keeper:-}" ] && kill "$keeper" 2>/dev/null; }
