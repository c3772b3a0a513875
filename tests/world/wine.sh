# Which Wine the desktop has: that of the installed package, or a later release's (fetch_wine). That one runs in a root
# folder of its own, with its own libraries down to the C library; all else in there is the world's.

# Sets WORLD_WINE_ROOT, which bin/wine and bin/wineserver go by; empty for the installed Wine.
prepare_wine() {
    export WORLD_WINE_ROOT=
    [ "${WORLD_WINE-}" = next ] || return 0
    local release="$releases/wine-next"
    if [ ! -f "$release/recipe" ]; then
        echo "WORLD_WINE=next is not there; run tests/world/fetch_wine." >&2
        exit 69
    fi
    mkdir -p "$WORLD_DIR/wine"/{release,changes,work,root}
    mount --bind "$release" "$WORLD_DIR/wine/release"
    (cd "$WORLD_DIR/wine" && mount -t overlay -o lowerdir=release,upperdir=changes,workdir=work world root)
    WORLD_WINE_ROOT="$WORLD_DIR/wine/root"
    # It takes the user's name in the code page of the program, and loses the end of one that is longer in UTF-8: what
    # it protects for that user cannot be opened again.
    export USER='Zoe User'
    # As the package's own scripts say, which look for more than there is in there.
    export WINELOADER=/usr/lib/wine/wine64 WINESERVER=/usr/lib/wine/wineserver64
    share_with_wine /proc /dev /sys /tmp /usr/share/fonts /etc/hosts /etc/resolv.conf /etc/passwd /etc/group \
        "$HOME" "$WORLD_CACHE" "$project"
}

# share_with_wine PATH...: in the root of that Wine these are what they are in the world, the mounts below them as of now.
share_with_wine() {
    [ -n "$WORLD_WINE_ROOT" ] || return 0
    local path
    for path in "$@"; do
        if [ -d "$path" ]; then mkdir -p "$WORLD_WINE_ROOT$path"; else : >>"$WORLD_WINE_ROOT$path"; fi
        mount --rbind "$path" "$WORLD_WINE_ROOT$path"
    done
}

wine_version() {
    if [ -n "$WORLD_WINE_ROOT" ]; then cat "$releases/wine-next/recipe"; else version_of wine64 fonts-wine; fi
}
