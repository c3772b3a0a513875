# PHP-FPM on a socket, and with a single process on another. A changed plugin file counts at once.

start_php() {
    php_socket="$WORLD_DIR/php.sock"
    cat >"$WORLD_DIR/etc/php-fpm.conf" <<END
[global]
daemonize = no
error_log = $WORLD_DIR/logs/php.log
END
    php_pool world "$php_socket" 4
    php_pool one "$php_socket.one" 1
    start php php-fpm8.2 --nodaemonize --allow-to-run-as-root --fpm-config "$WORLD_DIR/etc/php-fpm.conf"
}

# php_pool NAME SOCKET PROCESSES
php_pool() {
    cat >>"$WORLD_DIR/etc/php-fpm.conf" <<END
[$1]
user = $(id -un)
group = $(id -gn)
listen = $2
pm = static
pm.max_children = $3
php_admin_value[error_log] = $WORLD_DIR/logs/php.log
php_admin_value[opcache.revalidate_freq] = 0
php_admin_value[sendmail_path] = /bin/true
php_admin_value[upload_max_filesize] = 64M
php_admin_value[post_max_size] = 64M
env[WORLD_DIR] = $WORLD_DIR
END
}

wait_for_php() {
    wait_for php test -S "$php_socket" -a -S "$php_socket.one"
}
