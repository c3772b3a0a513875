# The WordPress sites: "newer" is the package of a later Debian release, all others are Debian's installed one. They run
# from their package's files, with a configuration, a content folder (plugins, themes, uploads) and a database of the
# run's own. README.md says what each of them is. With WORLD_WORDPRESS all are that version, and there is no "newer".

sites=(stable domains folders below apart)
[ -n "${WORLD_WORDPRESS-}" ] || sites+=(newer)

prepare_sites() {
    local site
    for site in "${sites[@]}"; do
        prepare_site "$site" "$(package_of "$site")"
    done
    # In a folder of its host: with the site, and apart from it ("WordPress in its own directory").
    mkdir "$WORLD_DIR/sites/below/web" "$WORLD_DIR/sites/apart/web"
    ln -s ../core "$WORLD_DIR/sites/below/web/blog"
    ln -s ../core "$WORLD_DIR/sites/apart/web/wp"
    sed "s|/wp-blog-header.php|/wp&|" "$(package_of apart)/index.php" >"$WORLD_DIR/sites/apart/web/index.php"
}

# package_of SITE: the folder of the package whose files it runs from.
package_of() {
    local version=${WORLD_WORDPRESS:-6.1}
    if [ "$1" = newer ]; then version=6.8; fi
    case $version in
        5.7) echo "$releases/bullseye/usr/share/wordpress" ;;
        6.1) echo /usr/share/wordpress ;;
        6.8) echo "$project/.deps/newer-wordpress/usr/share/wordpress" ;;
        newest) echo "$releases/testing/usr/share/wordpress" ;;
    esac
}

prepare_site() {
    local site="$WORLD_DIR/sites/$1" package=$2
    if [ ! -f "$package/wp-load.php" ]; then
        echo "There is no WordPress in $package; run scripts/bootstrap or tests/world/fetch_release." >&2
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
    install_site stable brasslet.test
    [ -n "${WORLD_WORDPRESS-}" ] || install_site newer newer.brasslet.test
    install_site domains net.brasslet.test
    add_second_site domains net.brasslet.test two.net.brasslet.test /
    install_site folders folders.brasslet.test
    add_second_site folders folders.brasslet.test folders.brasslet.test /second/
    install_site below below.brasslet.test
    install_site apart apart.brasslet.test
}

install_site() {
    mariadb --no-defaults --socket="$database_socket" --user=root --execute "CREATE DATABASE $1 CHARACTER SET utf8mb4"
    php "$scripts/wordpress/install.php" "$WORLD_DIR/sites/$1/core" "$2" >>"$WORLD_DIR/logs/install.log" 2>&1
}

add_second_site() {
    php "$scripts/wordpress/second_site.php" "$WORLD_DIR/sites/$1/core" "$2" "$3" "$4" >>"$WORLD_DIR/logs/install.log" 2>&1
}
