# MariaDB with a data folder of its own, reached through a socket and never over TCP. The sites' databases are
# installed once; every run works on a copy.

prepare_database() {
    database_folder="$WORLD_DIR/database"
    database_socket="$WORLD_DIR/database.sock"
    local key
    key=$(key_of "$(version_of mariadb-server) ${WORLD_WORDPRESS-} $(php --version)" \
        "$scripts/database.sh" "$scripts/wordpress.sh" "$scripts"/wordpress/*.php \
        "$WORLD_DIR"/sites/*/core/wp-includes/version.php)
    cached database "$key" make_database
    cp -a "$cached_folder" "$database_folder"
}

make_database() {
    database_folder="$1"
    mariadb-install-db --no-defaults --datadir="$database_folder" --auth-root-authentication-method=normal \
        --skip-test-db "${database_options[@]}" >"$WORLD_DIR/logs/database_install.log" 2>&1
    start_database
    wait_for_database
    install_sites
    mariadb-admin --no-defaults --socket="$database_socket" --user=root shutdown
    wait "${service_process[database]}"
}

# The data folder is thrown away after the run, so that nothing has to reach a disk.
database_options=(--innodb-log-file-size=8M --innodb-buffer-pool-size=64M --innodb-autoextend-increment=1)
if [ "$(id -u)" = 0 ]; then database_options+=(--user=root); fi

start_database() {
    start database mariadbd --no-defaults "${database_options[@]}" --datadir="$database_folder" \
        --socket="$database_socket" --pid-file="$WORLD_DIR/database.pid" --skip-networking --skip-log-bin \
        --innodb-flush-log-at-trx-commit=0 --innodb-flush-method=fsync --innodb-use-native-aio=0 --skip-name-resolve
}

wait_for_database() {
    wait_for database mariadb-admin --no-defaults --socket="$database_socket" --user=root ping
}
