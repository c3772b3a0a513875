# Two WordPress sites: "stable" is Debian's installed package, "newer" that of a later Debian release. Both run from
# their package's files, with a configuration and a content folder (plugins, themes, uploads) of the run's own.

newer_wordpress=$(cat "$scripts/newer_wordpress")

prepare_sites() {
    prepare_site stable /usr/share/wordpress
    prepare_site newer "$scripts/../../.deps/newer-wordpress/usr/share/wordpress"
}

prepare_site() {
    local site="$WORLD_DIR/sites/$1" package=$2
    if [ ! -f "$package/wp-load.php" ]; then
        echo "There is no WordPress in $package; run scripts/bootstrap." >&2
        exit 69
    fi
    mkdir -p "$site/core" "$site/content/plugins" "$site/content/uploads" "$site/content/themes"
    cp -r "$scripts/wordpress/theme" "$site/content/themes/world"
    # The package's links to the libraries of other packages lead beside it.
    ln -s /usr/share/javascript /usr/share/php "$site/"
    mount --bind "$package" "$site/core"
    # WordPress can replace its own files; those of the machine are not the world's to change.
    if [ "$(id -u)" = 0 ]; then mount -o remount,bind,ro "$site/core"; fi
    mount --bind "$scripts/wordpress/config.php" "$site/core/wp-config.php"
    mount --bind "$site/content" "$site/core/wp-content"
}

install_sites() {
    mariadb --no-defaults --socket="$database_socket" --user=root \
        --execute 'CREATE DATABASE stable CHARACTER SET utf8mb4; CREATE DATABASE newer CHARACTER SET utf8mb4'
    php "$scripts/wordpress/install.php" "$WORLD_DIR/sites/stable/core" brasslet.test
    php "$scripts/wordpress/install.php" "$WORLD_DIR/sites/newer/core" newer.brasslet.test
}
