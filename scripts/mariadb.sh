# SPDX-License-Identifier: MIT
# Sourced by the scripts that run MariaDB servers beside a command: where the program is, what all servers are told, and
# a server's files and begin.
. "$(dirname "${BASH_SOURCE[0]}")/server.sh"
program=$(PATH=$PATH:/usr/sbin command -v mariadbd) || die "no MariaDB server: install the package mariadb-server-core"
# The statements that make the server's own tables; Debian 12 and 13 have other names for them.
for tables in /usr/share/m*/m*_system_tables.sql; do [ -e "$tables" ] && break; done

# Nothing is kept after a power failure, and nothing is larger than a test needs. The time zone is not UTC: what a host
# depends on shall not hold by chance.
settings=(
    --no-defaults --log-warnings=1 --bind-address=127.0.0.1 --skip-name-resolve --default-time-zone=+07:00
    --innodb-buffer-pool-size=8M --innodb-log-file-size=4M --innodb-doublewrite=0
    --innodb-flush-method=nosync --innodb-flush-log-at-trx-commit=0
    --innodb-data-file-path=ibdata1:1M:autoextend --innodb-temp-data-file-path=ibtmp1:1M:autoextend
    --innodb-autoextend-increment=1
)

# mariadb_command NAME OPTIONS...: `command` runs the server of that name, whose files are below `home`.
mariadb_command() {
    command=("$program" "${settings[@]}" --datadir="$home/$1" --socket="$home/$1.socket" --pid-file="$home/$1.pid"
        "${@:2}")
}

# make_data NAME OPTIONS...: the files of a new server, with the user vndesk and an empty database vndesk.
make_data() {
    mkdir -p "$home/$1/mysql"
    give_home
    mariadb_command "$@" --bootstrap
    {
        printf '%s;\n' 'USE mysql' 'SET @auth_root_socket=NULL' 'SET @skip_auth_anonymous=1'
        cat "$tables" "${tables%.sql}_data.sql"
        printf '%s;\n' "DELETE FROM global_priv WHERE User='root'" 'FLUSH PRIVILEGES' \
            "CREATE USER vndesk@'%' IDENTIFIED BY '$password'" "GRANT ALL ON *.* TO vndesk@'%' WITH GRANT OPTION" \
            'CREATE DATABASE vndesk'
    } | "${as_user[@]}" "${command[@]}" >"$scratch/bootstrap.log" 2>&1 ||
        die "no data folder made: $(grep -a ERROR "$scratch/bootstrap.log" | tail -n 1)"
}

# launch_mariadb NAME OPTIONS...
launch_mariadb() {
    mariadb_command "$@"
    launch KILL "$home/$1.log" "${command[@]}"
}
is_ready() { grep -q 'ready for connections' "$home/$1.log" 2>/dev/null; }
