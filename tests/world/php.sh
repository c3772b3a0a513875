# PHP-FPM on a socket, and with a single process on another. A changed plugin file counts at once.

# prepare_php: puts PHP's programs where `php` and `php_fpm` find them. PHP of another release runs on that release's own
# libraries, by its own loader.
prepare_php() {
    php_fpm=(php-fpm8.2)
    case ${WORLD_PHP-} in
        "" | 8.2) return ;;
        7.4) local release="$releases/bullseye" ;;
        newest) local release="$releases/testing" ;;
    esac
    if [ ! -f "$release/versions" ]; then
        echo "PHP $WORLD_PHP is not there; run tests/world/fetch_release ${release##*/}." >&2
        exit 69
    fi
    mkdir -p "$WORLD_DIR/bin" "$WORLD_DIR/etc/php"
    local number fpm loader libraries
    fpm=$(echo "$release"/usr/sbin/php-fpm[0-9]*)
    number=${fpm##*-fpm}
    loader=$(compgen -G "$release/lib/*-linux-gnu/ld-linux*.so.*" || compgen -G "$release/usr/lib/*-linux-gnu/ld-linux*.so.*")
    libraries=${loader%/*}:$release/usr/lib/$(basename "${loader%/*}")
    load_extensions "$release" "$number"
    local run=(env "PHP_INI_SCAN_DIR=$WORLD_DIR/etc/php" "OPENSSL_CONF=$release/etc/ssl/openssl.cnf"
        "$loader" --library-path "$libraries")
    local settings="$release/usr/lib/php/$number/php.ini-production"
    php_fpm=("${run[@]}" "$fpm" --php-ini "$settings")
    printf '#!/bin/bash\nexec %s "$@"\n' "${run[*]@Q} ${release@Q}/usr/bin/php$number --php-ini ${settings@Q}.cli" \
        >"$WORLD_DIR/bin/php"
    chmod +x "$WORLD_DIR/bin/php"
    export PATH="$WORLD_DIR/bin:$PATH"
}

# load_extensions RELEASE NUMBER: has PHP load all that the packages brought, in the order that they ask for.
load_extensions() {
    local ini order
    for ini in "$1/usr/share/php"*/*/*.ini "$1/etc/php/$2/mods-available/"*.ini; do
        [ -f "$ini" ] || continue
        order=$(sed -n 's/^; *priority=//p' "$ini")
        cp "$ini" "$WORLD_DIR/etc/php/${order:-20}-${ini##*/}"
    done
    echo "extension_dir = $(echo "$1"/usr/lib/php/20*)" >"$WORLD_DIR/etc/php/00-folder.ini"
}

start_php() {
    php_socket="$WORLD_DIR/php.sock"
    cat >"$WORLD_DIR/etc/php-fpm.conf" <<END
[global]
daemonize = no
error_log = $WORLD_DIR/logs/php.log
END
    php_pool world "$php_socket" 4
    php_pool one "$php_socket.one" 1
    start php "${php_fpm[@]}" --nodaemonize --allow-to-run-as-root --fpm-config "$WORLD_DIR/etc/php-fpm.conf"
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
