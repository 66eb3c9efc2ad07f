# SPDX-License-Identifier: MIT
# Sourced by the scripts that run PostgreSQL servers of their own beside a command: where the programs are, the folder of
# the servers, and a server's begin and end. `home` is the folder, `password` that of the user vndesk.
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"
bin=$(ls -d /usr/lib/postgresql/*/bin 2>/dev/null | sort -V | tail -n 1)
[ -x "$bin/initdb" ] || die "no PostgreSQL server: install the package postgresql"

# The server refuses to run as root, and its user may not reach the project's folder.
as_user=()
if [ "$(id -u)" -eq 0 ]; then
    as_user=(setpriv --reuid=postgres --regid=postgres --init-groups)
fi

make_home() {
    make_scratch
    mkdir -p "$build/pg"
    chmod 755 "$build/pg"
    home=$(mktemp -d "$build/pg/XXXXXX") || die "cannot write to $build/pg"
    # A socket's path has room for about 100 bytes only.
    if [ ${#home} -gt 80 ] || ! "${as_user[@]}" test -x "$build/pg"; then
        rmdir "$home"
        home=$(mktemp -d)
    fi
    at_exit remove_home
    password=pw$RANDOM$RANDOM
    printf '%s\n' "$password" >"$home/password"
    give_home
}
give_home() { [ ${#as_user[@]} -eq 0 ] || chown -R postgres: "$home"; }
remove_home() {
    umount -l "$home/data" "$home/small" 2>/dev/null
    rm -rf "$home"
}

# make_cluster DATA: the files of a new server.
make_cluster() {
    (
        cd "$home" || exit 1
        env -u LC_ALL "${as_user[@]}" "$bin/initdb" -D "$1" -U vndesk -E UTF8 --locale=C.UTF-8 \
            --auth=scram-sha-256 --pwfile="$home/password" --no-sync >"$scratch/initdb.log" 2>&1
    ) || die "initdb failed: $(tail -n 1 "$scratch/initdb.log")"
}

# launch DATA PORT OPTIONS...: its process is `launched`. It ends with this script.
launch() {
    local data=$1 port=$2
    shift 2
    (
        close_inherited
        cd "$home" || exit 1
        exec setpriv "${as_user[@]:1}" --pdeathsig INT "$bin/postgres" -D "$data" -h 127.0.0.1 \
            -p "$port" -k "$home" -F -c full_page_writes=off \
            -c log_timezone=UTC -c timezone=UTC "$@" </dev/null >>"$data.log" 2>&1
    ) &
    launched=$!
    # The shell says nothing when it is killed.
    disown "$launched"
}

# end_server DATA SIGNAL: the server removes its file when it has ended.
end_server() {
    local server i
    server=$(head -n 1 "$1/postmaster.pid" 2>/dev/null) || return
    kill "-$2" "$server" 2>/dev/null
    for ((i = 0; i < 150; i++)); do
        [ -e "$1/postmaster.pid" ] || break
        sleep 0.1
    done
}

ready() { "$bin/pg_isready" -q -h 127.0.0.1 -p "$1"; }

# launch_anywhere DATA OPTIONS...: on a free port, which is `port`.
launch_anywhere() {
    local data=$1 attempt i
    shift
    for attempt in 1 2 3 4 5; do
        port=$((20000 + RANDOM % 12000))
        ready "$port"
        # Someone answers there already.
        [ $? -eq 2 ] || continue
        launch "$data" "$port" "$@"
        for ((i = 0; i < 150; i++)); do
            kill -0 "$launched" 2>/dev/null || break
            ready "$port" && return
            sleep 0.2
        done
        end_server "$data" INT
    done
    die "PostgreSQL did not start: $(tail -n 1 "$data.log")"
}

# obey_orders FUNCTION: calls it with each line of the pipe VNDESK_PG_CONTROL, until end_orders. Each order that has been
# done is a line of <pipe>.done.
obey_orders() {
    export VNDESK_PG_CONTROL=$home/control
    mkfifo "$VNDESK_PG_CONTROL" || die "no control pipe made"
    (
        close_inherited
        while read -r order; do
            "$1" "$order"
            printf '%s\n' "$order" >>"$VNDESK_PG_CONTROL.done"
        done <>"$VNDESK_PG_CONTROL"
    ) </dev/null >/dev/null 2>&1 &
    keeper=$!
}
end_orders() { [ "${keeper:-}" ] && kill "$keeper" 2>/dev/null; }
