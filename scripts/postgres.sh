# SPDX-License-Identifier: MIT
# Sourced by the scripts that run PostgreSQL servers beside a command: where the programs are, and a server's files, begin
# and end.
. "$(dirname "${BASH_SOURCE[0]}")/server.sh"
bin=$(ls -d /usr/lib/postgresql/*/bin 2>/dev/null | sort -V | tail -n 1)
[ -x "$bin/initdb" ] || die "no PostgreSQL server: install the package postgresql"

# make_cluster DATA: the files of a new server, with the user vndesk.
make_cluster() {
    printf '%s\n' "$password" >"$home/password"
    give_home
    (
        cd "$home" || exit 1
        env -u LC_ALL "${as_user[@]}" "$bin/initdb" -D "$1" -U vndesk -E UTF8 --locale=C.UTF-8 \
            --auth=scram-sha-256 --pwfile="$home/password" --no-sync >"$scratch/initdb.log" 2>&1
    ) || die "initdb failed: $(tail -n 1 "$scratch/initdb.log")"
}

# launch_postgres DATA PORT OPTIONS...
launch_postgres() {
    launch INT "$1.log" "$bin/postgres" -D "$1" -h 127.0.0.1 -p "$2" -k "$home" -F -c full_page_writes=off \
        -c log_timezone=UTC -c timezone=UTC "${@:3}"
}

# main_process DATA: that of the server. Nobody keeps it for one that was started by an order.
main_process() { head -n 1 "$1/postmaster.pid" 2>/dev/null; }
end_postgres() { end_server "$(main_process "$1")" "$2"; }

ready() { "$bin/pg_isready" -q -h 127.0.0.1 -p "$port"; }

# launch_anywhere DATA OPTIONS...: on a free port, which is `port`.
launch_anywhere() {
    local attempt
    for attempt in 1 2 3 4 5; do
        find_port
        launch_postgres "$1" "$port" "${@:2}"
        wait_ready ready && return
        end_server "$launched" INT
    done
    die "PostgreSQL did not start: $(tail -n 1 "$1.log")"
}
